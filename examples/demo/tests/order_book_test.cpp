// The demo's data path without a window: the database made from the shipped CSV, the orders as
// the grid shows them, generated rows, the customer tree and the edit checks.
#include "../order_book.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>

namespace demo {
namespace {

namespace fs = std::filesystem;
using quilta::Variant;

class OrderBook : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    dir = fs::temp_directory_path() / ("quilta-demo-test-" + std::to_string(::getpid()));
    fs::create_directories(dir);
    EnsureOrderDatabase(QUILTA_DEMO_CSV, Db());
  }
  static void TearDownTestSuite() { fs::remove_all(dir); }
  static std::string Db() { return (dir / "orders.sqlite").string(); }

  int32_t Load(int32_t rows = 0) {
    quilta::data::SqliteDatabase db(Db());
    const int32_t n = LoadOrders(g, db, rows);
    FormatOrders(g);
    return n;
  }
  std::string Text(int32_t row, const char* col) { return g.CellText(row, col); }

  static inline fs::path dir;
  quilta::Quilta g;
};

TEST_F(OrderBook, TheDatabaseIsMadeOnceFromTheCsvAndAMissingCsvLeavesNoFile) {
  const auto made = fs::last_write_time(Db());
  EnsureOrderDatabase(QUILTA_DEMO_CSV, Db());  // present: left alone
  EXPECT_EQ(fs::last_write_time(Db()), made);
  const std::string other = (dir / "other.sqlite").string();
  EXPECT_THROW(EnsureOrderDatabase((dir / "missing.csv").string(), other), std::exception);
  EXPECT_FALSE(fs::exists(other));
  quilta::data::SqliteDatabase db(Db());
  auto rs = db.Query("SELECT count(*), count(ShippedDate), sum(Quantity) FROM orders");
  EXPECT_EQ(quilta::CLng(rs->Value(0)), 3200);
  EXPECT_LT(quilta::CLng(rs->Value(1)), 3200);  // some orders are not shipped yet
}

TEST_F(OrderBook, OrdersShowFormattedDatesMoneyPercentagesAndTheirStatus) {
  ASSERT_EQ(Load(), 3200);
  // The first order of the CSV, found by its key.
  const int32_t r = g.RowIndex("10248");
  ASSERT_GE(r, 1);
  EXPECT_EQ(Text(r, col::kDate), "06 Jul 2024");
  EXPECT_EQ(Text(r, col::kCustomer), "Santé Gourmet");
  EXPECT_EQ(Text(r, col::kPrice), "$32.80");
  EXPECT_EQ(Text(r, col::kDiscount), "25%");
  EXPECT_EQ(Text(r, col::kTotal), "$984.00");  // 40 x 32.80 less 25 %
  EXPECT_EQ(Text(r, col::kShipVia), "Speedy Express");
  EXPECT_EQ(g.CellIcon(r, col::kShipVia), kIconSpeedy);
  EXPECT_EQ(Text(r, col::kShipped), "");  // the check box shows it
  EXPECT_EQ(g.CellCheckState(r, col::kShipped), quilta::quCheckStateChecked);
  EXPECT_EQ(g.CellIcon(r, col::kOrder), kIconShipped);
  EXPECT_EQ(g.FrozenCols(), 1);
  // Every order without a shipping date is unchecked and pending, and only those.
  for (int32_t row = 1; row <= g.RowCount(); ++row) {
    const bool shipped = !g.CellValue(row, col::kShippedOn).IsNull();
    ASSERT_EQ(g.CellCheckState(row, col::kShipped) == quilta::quCheckStateChecked, shipped) << row;
    ASSERT_EQ(g.CellIcon(row, col::kOrder), shipped ? kIconShipped : kIconPending) << row;
  }
  g.SetCellValue(r, col::kQuantity, 10);
  UpdateTotal(g, r);
  EXPECT_EQ(Text(r, col::kTotal), "$246.00");
}

TEST_F(OrderBook, GeneratedRowsContinueTheNumbersAWeekLaterPerCopy) {
  ASSERT_EQ(Load(7000), 7000);
  const double first = g.CellValue(1, col::kDate).DateValue();
  EXPECT_EQ(Text(3201, col::kOrder), "13448");
  EXPECT_EQ(g.RowIndex("17247"), 7000);
  EXPECT_EQ(g.CellValue(3201, col::kDate).DateValue(), first + 7);
  EXPECT_EQ(g.CellValue(6401, col::kDate).DateValue(), first + 14);
  EXPECT_EQ(Text(6401, col::kCustomer), Text(1, col::kCustomer));
  EXPECT_EQ(Text(6401, col::kTotal), Text(1, col::kTotal));
  quilta::Quilta small;
  quilta::data::SqliteDatabase db(Db());
  EXPECT_EQ(LoadOrders(small, db, 50), 50);
}

TEST_F(OrderBook, TheTreeHasOneNodePerCustomerHoldingItsOrdersAndTheirSum) {
  Load();
  quilta::Quilta tree;
  LoadOrderTree(tree, g);
  std::map<std::string, std::pair<int32_t, double>> expected;  // customer: orders, sum
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    auto& e = expected[quilta::CStr(g.CellValue(r, col::kCustomer))];
    ++e.first;
    e.second += quilta::CDbl(g.CellValue(r, col::kTotal));
  }
  int32_t nodes = 0;
  for (int32_t r = 1; r <= tree.RowCount(); r = tree.RowLastNested(r) + 1, ++nodes) {
    ASSERT_EQ(tree.RowLevel(r), 0);
    const std::string name = quilta::CStr(tree.CellValue(r, 1));
    const std::string customer = name.substr(0, name.find("  ("));
    ASSERT_TRUE(expected.count(customer)) << name;
    EXPECT_EQ(tree.RowChildCount(r), expected[customer].first) << customer;
    EXPECT_NEAR(quilta::CDbl(tree.CellValue(r, 5)), expected[customer].second, 0.005);
    EXPECT_EQ(tree.CellText(r, 2), "");  // a customer has no date
  }
  EXPECT_EQ(nodes, static_cast<int32_t>(expected.size()));
  EXPECT_EQ(tree.RowCount(), g.RowCount() + nodes);
  EXPECT_TRUE(tree.RowExpanded(1));
  EXPECT_FALSE(tree.RowExpanded(tree.RowLastNested(1) + 1));
}

TEST_F(OrderBook, EditChecksRefuseNegativeAmountsBadDiscountsAndEmptyNames) {
  Variant v = -1;
  EXPECT_NE(CheckOrderValue(col::kQuantity, v), "");
  v = 0;
  EXPECT_EQ(CheckOrderValue(col::kQuantity, v), "");
  v = quilta::CCur(Variant(-0.5));
  EXPECT_NE(CheckOrderValue(col::kPrice, v), "");
  v = 15;
  EXPECT_EQ(CheckOrderValue(col::kDiscount, v), "");
  EXPECT_DOUBLE_EQ(quilta::CDbl(v), 0.15);  // a whole percentage becomes its fraction
  v = 0.3;
  EXPECT_EQ(CheckOrderValue(col::kDiscount, v), "");
  EXPECT_DOUBLE_EQ(quilta::CDbl(v), 0.3);
  v = 150;
  EXPECT_NE(CheckOrderValue(col::kDiscount, v), "");
  v = -0.1;
  EXPECT_NE(CheckOrderValue(col::kDiscount, v), "");
  v = std::string();
  EXPECT_NE(CheckOrderValue(col::kCustomer, v), "");
  v = -5;
  EXPECT_EQ(CheckOrderValue(col::kCity, v), "");  // no rule for other columns
  EXPECT_FALSE(OrderColumnEditable(col::kTotal));
  EXPECT_FALSE(OrderColumnEditable(col::kOrder));
  EXPECT_TRUE(OrderColumnEditable(col::kQuantity));
}

}  // namespace
}  // namespace demo

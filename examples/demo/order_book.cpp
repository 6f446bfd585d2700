#include "order_book.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace demo {
namespace {

using quilta::Variant;

// The orders table with declared types, so the record sets hand out dates, currency and
// numbers rather than text.
constexpr const char* kSchema = R"(
  CREATE TABLE orders (
    OrderID INTEGER PRIMARY KEY, OrderDate DATE NOT NULL, Customer TEXT NOT NULL,
    City TEXT, Country TEXT, Product TEXT NOT NULL, Quantity INTEGER NOT NULL,
    UnitPrice MONEY NOT NULL, Discount NUMERIC NOT NULL, ShipVia TEXT, ShippedDate DATE))";

constexpr const char* kColumns =
    "OrderID, OrderDate, Customer, City, Country, Product, Quantity, UnitPrice, Discount, "
    "Quantity * UnitPrice * (1 - Discount) AS Total, ShipVia, "
    "ShippedDate IS NOT NULL AS Shipped, ShippedDate";

std::vector<std::string> SplitCsv(const std::string& line) {
  std::vector<std::string> fields;
  std::string field;
  bool quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    const char ch = line[i];
    if (quoted && ch == '"' && i + 1 < line.size() && line[i + 1] == '"') {
      field += '"';
      ++i;
    } else if (ch == '"') {
      quoted = !quoted;
    } else if (ch == ',' && !quoted) {
      fields.push_back(std::move(field));
      field.clear();
    } else if (ch != '\r') {
      field += ch;
    }
  }
  fields.push_back(std::move(field));
  return fields;
}

std::string SqlText(const std::string& s) {
  if (s.empty()) return "NULL";
  std::string out = "'";
  for (char ch : s) out += ch == '\'' ? std::string("''") : std::string(1, ch);
  return out + "'";
}

// Makes `rows` orders out of the loaded ones: copy k of order i gets a new number and is dated
// k weeks later. Generated in memory, because a million rows are a benchmark of the grid, not
// of the database.
void Multiply(quilta::Quilta& grid, int32_t rows) {
  const int32_t base = grid.RowCount();
  const int32_t cols = grid.ColCount();
  if (base == 0) return;
  if (rows <= base) {
    grid.SetRowCount(rows);
    return;
  }
  std::vector<Variant> values(static_cast<size_t>(base) * cols);
  for (int32_t r = 1; r <= base; ++r)
    for (int32_t c = 1; c <= cols; ++c) values[(r - 1) * cols + (c - 1)] = grid.CellValue(r, c);
  const int32_t cOrder = grid.ColIndex(col::kOrder);
  const int32_t cDate = grid.ColIndex(col::kDate);
  const int32_t cShippedOn = grid.ColIndex(col::kShippedOn);
  const int32_t firstOrder = quilta::CLng(values[cOrder - 1]);
  grid.AddRow({.lCount = rows - base});
  for (int32_t r = base + 1; r <= rows; ++r) {
    const int32_t i = r - 1;
    const Variant* from = &values[static_cast<size_t>(i % base) * cols];
    const double weeks = 7.0 * (i / base);
    for (int32_t c = 1; c <= cols; ++c) {
      const Variant& v = from[c - 1];
      if (c == cOrder) {
        grid.SetCellValue(r, c, firstOrder + i);
      } else if ((c == cDate || c == cShippedOn) && v.Type() == quilta::vbDate) {
        grid.SetCellValue(r, c, Variant::Date(v.DateValue() + weeks));
      } else {
        grid.SetCellValue(r, c, v);
      }
    }
    grid.SetRowKey(r, std::to_string(firstOrder + i));
  }
}

}  // namespace

void EnsureOrderDatabase(const std::string& csvPath, const std::string& dbPath) {
  if (std::filesystem::exists(dbPath)) return;
  std::ifstream in(csvPath);
  if (!in) throw std::runtime_error("cannot read " + csvPath);
  const std::string partial = dbPath + ".part";
  std::filesystem::remove(partial);
  {
    quilta::data::SqliteDatabase db(partial);
    std::ostringstream sql;
    sql << kSchema << ";\nBEGIN;\n";
    std::string line;
    std::getline(in, line);  // the header
    while (std::getline(in, line)) {
      const std::vector<std::string> f = SplitCsv(line);
      if (f.size() != 11) continue;
      sql << "INSERT INTO orders VALUES (" << f[0] << ',' << SqlText(f[1]) << ',' << SqlText(f[2])
          << ',' << SqlText(f[3]) << ',' << SqlText(f[4]) << ',' << SqlText(f[5]) << ',' << f[6]
          << ',' << f[7] << ',' << f[8] << ',' << SqlText(f[9]) << ',' << SqlText(f[10]) << ");\n";
    }
    sql << "COMMIT;";
    db.Execute(sql.str());
  }
  // Renamed only when complete: an interrupted first run leaves no half-filled database.
  std::filesystem::rename(partial, dbPath);
}

int32_t LoadOrders(quilta::Quilta& grid, quilta::data::SqliteDatabase& db, int32_t rows) {
  grid.BeginUpdate();
  grid.FillFromRS(db.Query(std::string("SELECT ") + kColumns + " FROM orders ORDER BY OrderID"),
                  quilta::quFillRSColsIfEmptyAndRows, col::kOrder);
  if (rows > 0) Multiply(grid, rows);
  grid.EndUpdate();
  return grid.RowCount();
}

namespace {

struct ColumnLook {
  const char* key;
  const char* header;
  int32_t width;
  quilta::EHAlignment align;
  const char* format;
};

constexpr ColumnLook kLooks[] = {
    {col::kOrder, "Order", 86, quilta::quAlignHLeft, ""},
    {col::kDate, "Date", 92, quilta::quAlignHLeft, "dd mmm yyyy"},
    {col::kCustomer, "Customer", 176, quilta::quAlignHLeft, ""},
    {col::kCity, "City", 100, quilta::quAlignHLeft, ""},
    {col::kCountry, "Country", 80, quilta::quAlignHLeft, ""},
    {col::kProduct, "Product", 196, quilta::quAlignHLeft, ""},
    {col::kQuantity, "Qty", 56, quilta::quAlignHRight, "#,##0"},
    {col::kPrice, "Unit price", 80, quilta::quAlignHRight, "$#,##0.00"},
    {col::kDiscount, "Discount", 70, quilta::quAlignHRight, "0%"},
    {col::kTotal, "Total", 96, quilta::quAlignHRight, "$#,##0.00"},
    {col::kShipVia, "Ship via", 136, quilta::quAlignHLeft, ""},
    {col::kShipped, "Shipped", 64, quilta::quAlignHCenter, ""},
    {col::kShippedOn, "Shipped on", 92, quilta::quAlignHLeft, "dd mmm yyyy"},
};

const char* const kShippers[] = {"Speedy Express", "United Package", "Federal Shipping"};

}  // namespace

void FormatOrders(quilta::Quilta& g) {
  g.BeginUpdate();
  for (const ColumnLook& look : kLooks) {
    const int32_t c = g.ColIndex(look.key);
    g.SetColHeaderText(c, look.header);
    g.SetColWidth(c, look.width);
    g.SetColHeaderAlignH(c, look.align);
    g.SetColCellsProp(c, quilta::quPropCellAlignH, static_cast<int32_t>(look.align));
    if (*look.format) g.SetColCellsProp(c, quilta::quPropCellFmtString, look.format);
  }
  for (const char* key : {col::kCustomer, col::kCity, col::kCountry, col::kProduct, col::kShipVia})
    g.SetColSortType(key, quilta::quSortByValueNoCase);

  if (g.Combos().Exists("shippers")) g.Combos().Remove("shippers");  // formatted again
  quilta::ComboObject& shippers = g.Combos().Add("shippers");
  for (int16_t i = 0; i < 3; ++i) shippers.AddItem(kShippers[i], kShippers[i], kIconSpeedy + i);
  const int32_t shipVia = g.ColIndex(col::kShipVia);
  g.SetColCellsProp(shipVia, quilta::quPropCellType, static_cast<int32_t>(quilta::quCellCombo));
  g.SetColCellsProp(shipVia, quilta::quPropCellCtrlKey, "shippers");
  g.SetColCellsProp(shipVia, quilta::quPropCellImageList, 1);

  const int32_t order = g.ColIndex(col::kOrder);
  const int32_t shipped = g.ColIndex(col::kShipped);
  g.SetColCellsProp(order, quilta::quPropCellImageList, 1);
  g.SetColCellsProp(shipped, quilta::quPropCellCheckVisible, true);
  g.SetColCellsProp(shipped, quilta::quPropCellCheckPos,
                    static_cast<int32_t>(quilta::quCheckPosCenter));
  g.SetColSortType(shipped, quilta::quSortByValueGeneral);
  const int32_t rows = g.RowCount();
  for (int32_t r = 1; r <= rows; ++r) {
    const bool done = quilta::CLng(g.CellValue(r, shipped)) != 0;
    g.SetCellCheckState(r, shipped,
                        done ? quilta::quCheckStateChecked : quilta::quCheckStateUnchecked);
    g.SetCellIcon(r, order, done ? kIconShipped : kIconPending);
    const quilta::Variant via = g.CellValue(r, shipVia);
    const int32_t item = shippers.FindItemByValue(via);
    if (item >= 0) g.SetCellIcon(r, shipVia, static_cast<int16_t>(kIconSpeedy + item));
  }
  // The check box says it all: the cell's value stays, but shows no text.
  g.SetColCellsProp(shipped, quilta::quPropCellFmtString, ";;;");

  g.SetFrozenCols(1);
  g.SetGridLines(quilta::quGridLinesBoth);
  g.SetGridLineColor(0xE6E0DC);
  g.SetBackColorEvenRows(0xFCF8F5);
  g.SetMultiSelect(true);
  g.SetEditable(true);
  g.SetKeySearchCol(g.ColIndex(col::kCustomer));
  g.EndUpdate();
}

std::string CheckOrderValue(const std::string& key, quilta::Variant& value) {
  if (key == col::kQuantity && quilta::CDbl(value) < 0) return "A quantity cannot be negative";
  if (key == col::kPrice && quilta::CDbl(value) < 0) return "A price cannot be negative";
  if (key == col::kDiscount) {
    double d = quilta::CDbl(value);
    if (d > 1 && d <= 100) value = d /= 100;  // "15" means 15 %
    if (d < 0 || d > 1) return "A discount lies between 0 % and 100 %";
  }
  if ((key == col::kCustomer || key == col::kProduct) &&
      (value.IsNull() || quilta::CStr(value).empty()))
    return "This field cannot be empty";
  return {};
}

bool OrderColumnEditable(const std::string& key) {
  return key != col::kOrder && key != col::kTotal && key != col::kShipped;
}

void UpdateTotal(quilta::Quilta& g, int32_t row) {
  const double qty = quilta::CDbl(g.CellValue(row, col::kQuantity));
  const double price = quilta::CDbl(g.CellValue(row, col::kPrice));
  const double discount = quilta::CDbl(g.CellValue(row, col::kDiscount));
  g.SetCellValue(row, col::kTotal, qty * price * (1 - discount));
}

void LoadOrderTree(quilta::Quilta& tree, const quilta::Quilta& orders) {
  const int32_t n = orders.RowCount();
  const int32_t cCustomer = orders.ColIndex(col::kCustomer);
  const int32_t cTotal = orders.ColIndex(col::kTotal);
  // Source columns of the tree's columns 1-6 (the order number, then its details).
  const int32_t from[] = {orders.ColIndex(col::kOrder),
                          orders.ColIndex(col::kDate),
                          orders.ColIndex(col::kProduct),
                          orders.ColIndex(col::kQuantity),
                          cTotal,
                          orders.ColIndex(col::kShipVia)};
  std::vector<std::string> customers(static_cast<size_t>(n) + 1);
  std::vector<int32_t> byCustomer(static_cast<size_t>(n));
  for (int32_t r = 1; r <= n; ++r) {
    customers[r] = quilta::CStr(orders.CellValue(r, cCustomer));
    byCustomer[r - 1] = r;
  }
  std::stable_sort(byCustomer.begin(), byCustomer.end(),
                   [&](int32_t a, int32_t b) { return customers[a] < customers[b]; });

  tree.BeginUpdate();
  tree.AddCol({.sKey = "node", .sHeader = "Customer / order", .lWidth = 300});
  tree.AddCol({.sKey = "date", .sHeader = "Date", .lWidth = 92});
  tree.AddCol({.sKey = "product", .sHeader = "Product", .lWidth = 220});
  tree.AddCol(
      {.sKey = "qty", .sHeader = "Qty", .lWidth = 60, .eHeaderAlignH = quilta::quAlignHRight});
  tree.AddCol(
      {.sKey = "total", .sHeader = "Total", .lWidth = 110, .eHeaderAlignH = quilta::quAlignHRight});
  tree.AddCol({.sKey = "via", .sHeader = "Ship via", .lWidth = 140});
  const auto bold = quilta::MakeFont(tree.Font()->name, tree.Font()->size, true);
  for (size_t i = 0; i < byCustomer.size();) {
    const std::string& name = customers[byCustomer[i]];
    size_t end = i;
    double sum = 0;
    while (end < byCustomer.size() && customers[byCustomer[end]] == name)
      sum += quilta::CDbl(orders.CellValue(byCustomer[end++], cTotal));
    const int32_t parent = tree.AddRow({.eTreeButton = quilta::quRowTreeButtonVisible});
    tree.SetCellValue(parent, 1, name + "  (" + std::to_string(end - i) + ")");
    tree.SetCellValue(parent, 5, sum);
    tree.SetCellIcon(parent, 1, kIconCustomer);
    for (int32_t c : {2, 3, 4, 6}) tree.SetCellValue(parent, c, quilta::Variant::Null());
    for (int32_t c = 1; c <= 6; ++c) tree.SetCellFont(parent, c, bold);
    const int32_t first = tree.AddRow({.btLevel = 1, .lCount = static_cast<int32_t>(end - i)});
    for (int32_t r = first; i < end; ++i, ++r) {
      for (int32_t c = 1; c <= 6; ++c)
        tree.SetCellValue(r, c, orders.CellValue(byCustomer[i], from[c - 1]));
      tree.SetCellIcon(r, 1, orders.CellIcon(byCustomer[i], from[0]));
      tree.SetCellIcon(r, 6, orders.CellIcon(byCustomer[i], from[5]));
    }
  }
  tree.SetColCellsProp(1, quilta::quPropCellImageList, 1);
  tree.SetColCellsProp(6, quilta::quPropCellImageList, 1);
  tree.SetColCellsProp(2, quilta::quPropCellFmtString, "dd mmm yyyy");
  tree.SetColCellsProp(4, quilta::quPropCellFmtString, "#,##0");
  tree.SetColCellsProp(5, quilta::quPropCellFmtString, "$#,##0.00");
  tree.SetColCellsProp(4, quilta::quPropCellAlignH, static_cast<int32_t>(quilta::quAlignHRight));
  tree.SetColCellsProp(5, quilta::quPropCellAlignH, static_cast<int32_t>(quilta::quAlignHRight));
  tree.SetTreeCol(1);
  tree.SetTreeLines(quilta::quTreeLinesDotted);
  tree.SetGridLines(quilta::quGridLinesHorizontal);
  tree.SetGridLineColor(0xEEEAE6);
  tree.SetFrozenCols(1);
  tree.CollapseAllRows();
  if (tree.RowCount() > 0) tree.SetRowExpanded(1, true);  // one customer open shows the shape
  tree.EndUpdate();
}

}  // namespace demo

// The key-based sort must order rows exactly as comparing their cells does, ties included: the
// same data is sorted once by the grid's own sort types (keys) and once through a CustomSort
// handler applying the same comparison (events), and both are checked against the row sort as
// documented, run here on plain values.
#include <functional>
#include <random>

#include "ops/ops_support.hpp"
#include "ops/sorting/cell_compare.hpp"
#include "ops/sorting/sort_keys.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

using Row = std::vector<Variant>;
using CellCompare = std::function<int(const Variant&, const Variant&)>;

int RowCompare(const Row& a, const Row& b, const std::vector<bool>& desc, const CellCompare& cmp) {
  for (size_t k = 0;; ++k) {
    int c = cmp(a[k], b[k]);
    if (c != 0 || k + 1 == a.size()) return desc[k] ? -c : c;
  }
}

// The row sort as documented: gaps 1, 4, 13, ... (largest below n first); a row moves up past
// rows it compares strictly smaller than; two rows swap when the first compares above 0.
std::vector<int32_t> ReferenceOrder(std::vector<Row> rows, const std::vector<bool>& desc,
                                    const CellCompare& cmp) {
  std::vector<int32_t> tags(rows.size());
  for (size_t i = 0; i < tags.size(); ++i) tags[i] = static_cast<int32_t>(i + 1);
  size_t n = rows.size();
  if (n == 2 && RowCompare(rows[0], rows[1], desc, cmp) > 0) std::swap(tags[0], tags[1]);
  if (n <= 2) return tags;
  size_t h = 1;
  while (h * 3 + 1 < n) h = h * 3 + 1;
  for (; h > 0; h = (h - 1) / 3) {
    for (size_t i = h; i < n; ++i) {
      Row row = rows[i];
      int32_t tag = tags[i];
      size_t j = i;
      for (; j >= h && RowCompare(row, rows[j - h], desc, cmp) < 0; j -= h) {
        rows[j] = rows[j - h];
        tags[j] = tags[j - h];
      }
      rows[j] = row;
      tags[j] = tag;
    }
  }
  return tags;
}

struct ByHandler : QuiltaEvents {
  CellCompare cmp;
  void CustomSort(int32_t, int32_t, int32_t, const Variant& v1, const Variant& v2,
                  int32_t& lCompareResult) override {
    lCompareResult = cmp(v1, v2);
  }
};

Quilta Filled(const std::vector<Row>& rows) {
  Quilta g;
  g.AddCol({.lCount = static_cast<int32_t>(rows[0].size())});
  g.AddRow({.lCount = static_cast<int32_t>(rows.size())});
  for (size_t r = 0; r < rows.size(); ++r)
    for (size_t c = 0; c < rows[r].size(); ++c)
      SetValue(g, static_cast<int32_t>(r + 1), static_cast<int32_t>(c + 1), rows[r][c]);
  TagRows(g);
  return g;
}

bool SortsByKeys(Quilta& g) {
  auto& c = g.Internals();
  ops::SortPlan plan = ops::MakePlan(c, ops::SortGroupAccess::Items(c.sortObject), 1, g.RowCount());
  ops::RowKeys keys;
  return ops::BuildRowKeys(c, plan, keys);
}

// Sorts rows by the sort type and through CustomSort with `cmp`; both must match the reference.
void ExpectExactOrder(const std::vector<Row>& rows, ESortTypes type, const std::vector<bool>& desc,
                      const CellCompare& cmp, bool keys = true, int32_t treeCol = 0) {
  Quilta byType = Filled(rows);
  Quilta byEvents = Filled(rows);
  ByHandler handler;
  handler.cmp = cmp;
  byEvents.SetEventSink(&handler);
  for (size_t k = 0; k < desc.size(); ++k) {
    ESortOrders order = desc[k] ? quSortDesc : quSortAsc;
    byType.SortObject().AddItem(static_cast<int32_t>(k + 1), order, type);
    byEvents.SortObject().AddItem(static_cast<int32_t>(k + 1), order, quSortCustom);
  }
  if (treeCol) {
    for (Quilta* g : {&byType, &byEvents}) {
      std::mt19937 random(7);
      for (int32_t r = 2; r <= g->RowCount(); ++r)
        g->SetRowLevel(r, static_cast<uint8_t>(random() % (g->RowLevel(r - 1) + 2)));
      g->SetTreeCol(treeCol);
    }
  }
  EXPECT_EQ(SortsByKeys(byType), keys);
  byType.Sort();
  byEvents.Sort();
  EXPECT_EQ(TagOrder(byType), TagOrder(byEvents));
  if (!treeCol) {
    EXPECT_EQ(TagOrder(byType), ReferenceOrder(rows, desc, cmp));
  }
}

std::vector<Row> Random(size_t n, size_t cols, const std::vector<Variant>& pool, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<Row> rows(n, Row(cols));
  for (Row& row : rows)
    for (Variant& v : row) v = pool[random() % pool.size()];
  return rows;
}

const CellCompare kGeneral = ops::CompareGeneral;

TEST(SortKeys, StringsAndNumbersWithManyTies) {
  std::vector<Variant> texts = {"apple",
                                "Apple",
                                "APPLE",
                                "banana",
                                "",
                                Variant::Null(),
                                "applesauce with a long tail 1",
                                "Applesauce with a long tail 2",
                                "\xc3\x84rger",
                                "\xc3\xa4rger",
                                "zebra",
                                Variant()};
  ExpectExactOrder(Random(3000, 2, texts, 1), quSortByValueGeneral, {false, true}, kGeneral);
  std::vector<Variant> numbers = {1,    2.5, int16_t{2}, uint8_t{1}, Variant::Date(2.5),
                                  true, -3,  0.0,        Variant(),  Variant::Null()};
  ExpectExactOrder(Random(3000, 2, numbers, 2), quSortByValueGeneral, {true, false}, kGeneral);
  std::vector<Variant> mixed = {1, "1", "a", "A", 2.0, Variant::Null(), "b", -1};
  ExpectExactOrder(Random(2000, 1, mixed, 3), quSortByValueGeneral, {false}, kGeneral);
}

TEST(SortKeys, TextSortTypes) {
  std::vector<Variant> texts = {"Prefix-0001-a",
                                "prefix-0001-A",
                                "Prefix-0001",
                                "B",
                                "b",
                                "",
                                "prefix\xc3\xa9",
                                "Prefix\xc3\x89",
                                12,
                                Variant::Null()};
  for (bool noCase : {false, true}) {
    CellCompare cmp = [noCase](const Variant& a, const Variant& b) {
      int nulls = ops::CompareNulls(a.IsNull(), b.IsNull());
      return nulls != 2 ? nulls : ops::CompareText(CStr(a), CStr(b), noCase);
    };
    ExpectExactOrder(Random(2000, 2, texts, 4), noCase ? quSortByValueNoCase : quSortByValueUseCase,
                     {false, true}, cmp);
  }
}

// Many texts sharing their first 8 and 16 bytes, some differing only in length or in zero bytes.
TEST(SortKeys, TextsWithLongCommonBeginnings) {
  std::vector<Variant> texts = {"Customer",
                                "customer",
                                std::string("Customer\0", 9),
                                "Customer account 1",
                                "CUSTOMER ACCOUNT",
                                "Customer account",
                                std::string("Customer account\0\0", 18)};
  for (int i = 0; i < 300; ++i)
    texts.push_back("Customer" + std::string(1, "aBc"[i % 3]) + std::string(1, "XyZ"[i / 3 % 3]) +
                    " account " + std::string(i % 5, i % 2 ? 'Q' : 'q') +
                    std::to_string(i * 7919 % 1000));
  ExpectExactOrder(Random(6000, 1, texts, 9), quSortByValueGeneral, {false}, kGeneral);
  CellCompare binary = [](const Variant& a, const Variant& b) {
    return ops::CompareText(a.StringView(), b.StringView(), false);
  };
  ExpectExactOrder(Random(6000, 1, texts, 10), quSortByValueUseCase, {true}, binary);
}

TEST(SortKeys, IconIndexes) {
  std::vector<Variant> icons = {-2, 0, 3, 3, 7, 100};
  std::vector<Row> rows = Random(1000, 1, icons, 5);
  Quilta probe = Filled(rows);
  for (size_t r = 0; r < rows.size(); ++r)
    CellOf(probe, static_cast<int32_t>(r + 1), 1).icon =
        static_cast<int16_t>(rows[r][0].LongValue());
  probe.SortObject().AddItem(1, quSortDesc, quSortByIcon);
  EXPECT_TRUE(SortsByKeys(probe));
  probe.Sort();
  EXPECT_EQ(TagOrder(probe), ReferenceOrder(rows, {true}, [](const Variant& a, const Variant& b) {
              return (a.LongValue() > b.LongValue()) - (a.LongValue() < b.LongValue());
            }));
}

TEST(SortKeys, ValuesWithoutOneConsistentOrderAreComparedDirectly) {
  // Empty equals both 0 and "", which differ from each other.
  std::vector<Variant> pool = {0, "", Variant(), 1, "a"};
  ExpectExactOrder(Random(500, 1, pool, 6), quSortByValueGeneral, {false}, kGeneral, false);
}

TEST(SortKeys, TreeSortMatchesTheEventPath) {
  std::vector<Variant> pool = {"x", "X", "y", 3, 1, Variant::Null()};
  ExpectExactOrder(Random(1500, 2, pool, 8), quSortByValueGeneral, {true, false}, kGeneral, true,
                   1);
}

}  // namespace

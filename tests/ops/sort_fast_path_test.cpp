// The key-based sort must order rows exactly as comparing their cells does, ties included: the
// same data is sorted once by the grid's own sort types (keys) and once through a CustomSort
// handler applying the same comparison (events), and both are checked against the row sort as
// documented, run here on plain values.
#include <algorithm>
#include <functional>
#include <random>

#include "control/internals_access.hpp"
#include "ops/ops_support.hpp"
#include "ops/sorting/packed_shell_sort.hpp"
#include "ops/sorting/sort_keys.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

using Row = std::vector<Variant>;
using CellCompare = std::function<int(const Variant&, const Variant&)>;

struct Sorting {
  std::vector<bool> desc;
  CellCompare cmp;
  int Rows(const Row& a, const Row& b) const {
    for (size_t k = 0;; ++k) {
      int c = cmp(a[k], b[k]);
      if (c != 0 || k + 1 == a.size()) return desc[k] ? -c : c;
    }
  }
};

// The row sort as documented: gaps 1, 4, 13, ... (largest below n first); a row moves up past
// rows it compares strictly smaller than.
std::vector<int32_t> ReferenceOrder(std::vector<Row> rows, const Sorting& s) {
  std::vector<int32_t> tags(rows.size());
  for (size_t i = 0; i < tags.size(); ++i) tags[i] = static_cast<int32_t>(i + 1);
  size_t h = 1;
  while (h * 3 + 1 < rows.size()) h = h * 3 + 1;
  for (; h > 0; h = (h - 1) / 3) {
    for (size_t i = h; i < rows.size(); ++i) {
      Row row = rows[i];
      int32_t tag = tags[i];
      size_t j = i;
      for (; j >= h && s.Rows(row, rows[j - h]) < 0; j -= h) {
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

// A grid of the rows sorted by `type`, or through CustomSort; with `tree`, random levels and the
// tree sort.
Quilta Sorted(const std::vector<Row>& rows, ESortTypes type, const Sorting& s, bool tree,
              ByHandler* handler, bool* byKeys = nullptr) {
  Quilta g;
  g.AddCol({.lCount = static_cast<int32_t>(rows[0].size())});
  g.AddRow({.lCount = static_cast<int32_t>(rows.size())});
  std::mt19937 random(7);
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    for (size_t c = 0; c < rows[0].size(); ++c)
      SetValue(g, r, static_cast<int32_t>(c + 1), rows[static_cast<size_t>(r - 1)][c]);
    if (tree && r > 1) g.SetRowLevel(r, static_cast<uint8_t>(random() % (g.RowLevel(r - 1) + 2)));
  }
  TagRows(g);
  g.SetTreeCol(tree ? 1 : 0);
  g.SetEventSink(handler);
  for (size_t k = 0; k < s.desc.size(); ++k)
    g.SortObject().AddItem(static_cast<int32_t>(k + 1), s.desc[k] ? quSortDesc : quSortAsc,
                           handler ? quSortCustom : type);
  if (byKeys) {
    auto& c = control::Internals(g);
    ops::RowKeys keys;
    *byKeys = ops::BuildRowKeys(
        c, ops::MakePlan(c, ops::SortGroupAccess::Items(c.sortObject), 1, g.RowCount()), keys);
  }
  g.Sort();
  return g;
}

void ExpectExactOrder(const std::vector<Row>& rows, ESortTypes type, const Sorting& s,
                      bool keys = true, bool tree = false) {
  ByHandler handler;
  handler.cmp = s.cmp;
  bool byKeys = false;
  Quilta byType = Sorted(rows, type, s, tree, nullptr, &byKeys);
  EXPECT_EQ(byKeys, keys);
  EXPECT_EQ(TagOrder(byType), TagOrder(Sorted(rows, type, s, tree, &handler)));
  if (!tree) {
    EXPECT_EQ(TagOrder(byType), ReferenceOrder(rows, s));
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
  ExpectExactOrder(Random(3000, 2, texts, 1), quSortByValueGeneral, {{false, true}, kGeneral});
  std::vector<Variant> numbers = {1,    2.5, int16_t{2}, uint8_t{1}, Variant::Date(2.5),
                                  true, -3,  0.0,        Variant(),  Variant::Null()};
  ExpectExactOrder(Random(3000, 2, numbers, 2), quSortByValueGeneral, {{true, false}, kGeneral});
  // Whole numbers only: ranked by their distance from the lowest, without sorting.
  std::vector<Variant> whole = {1,     -3,        int16_t{2}, uint8_t{7},     true,
                                false, Variant(), 400,        Variant::Null()};
  ExpectExactOrder(Random(3000, 2, whole, 4), quSortByValueGeneral, {{false, true}, kGeneral});
  ExpectExactOrder(Random(20000, 1, whole, 12), quSortByValueGeneral, {{false}, kGeneral});
  whole.push_back(-2000000000);  // spread too wide for that: ranked by sorting
  ExpectExactOrder(Random(3000, 2, whole, 4), quSortByValueGeneral, {{true, false}, kGeneral});
  ExpectExactOrder(Random(3000, 1, {Variant::Null()}, 5), quSortByValueGeneral,
                   {{false}, kGeneral});
  std::vector<Variant> mixed = {1, "1", "a", "A", 2.0, Variant::Null(), "b", -1};
  ExpectExactOrder(Random(2000, 1, mixed, 3), quSortByValueGeneral, {{false}, kGeneral});
  ExpectExactOrder(Random(1500, 2, mixed, 8), quSortByValueGeneral, {{true, false}, kGeneral}, true,
                   true);  // the tree sort
  // Empty equals both 0 and "", which differ: no consistent order, so no keys.
  ExpectExactOrder(Random(500, 1, {0, "", Variant(), 1, "a"}, 6), quSortByValueGeneral,
                   {{false}, kGeneral}, false);
}

// Texts by character code or ignoring case, many sharing their first 8 and 16 bytes, some
// differing only in length, in zero bytes or beyond ASCII.
TEST(SortKeys, TextsWithLongCommonBeginnings) {
  std::vector<Variant> texts = {"Customer",
                                "customer",
                                std::string("Customer\0", 9),
                                "B",
                                "b",
                                "Customer account",
                                std::string("Customer account\0\0", 18),
                                "Customer\xc3\xa9",
                                "CUSTOMER\xc3\x89",
                                12,
                                Variant::Null()};
  for (int i = 0; i < 300; ++i)
    texts.push_back("Customer" + std::string(1, "aBc"[i % 3]) + std::string(1, "XyZ"[i / 3 % 3]) +
                    " account " + std::string(i % 5, i % 2 ? 'Q' : 'q') +
                    std::to_string(i * 7919 % 1000));
  for (bool noCase : {false, true}) {
    CellCompare cmp = [noCase](const Variant& a, const Variant& b) {
      int nulls = ops::CompareNulls(a.IsNull(), b.IsNull());
      return nulls != 2 ? nulls : ops::CompareText(CStr(a), CStr(b), noCase);
    };
    ExpectExactOrder(Random(6000, 1, texts, 9), noCase ? quSortByValueNoCase : quSortByValueUseCase,
                     {{noCase}, cmp});
  }
}

}  // namespace

namespace {
TEST(SortKeys, DistinctValuesTakeTheDirectRouteToTheSameOrder) {
  std::vector<Row> rows(3000, Row(1));
  std::mt19937 random(11);
  for (size_t i = 0; i < rows.size(); ++i) rows[i][0] = static_cast<int32_t>(i * 7919 % 100003);
  std::shuffle(rows.begin(), rows.end(), random);
  ExpectExactOrder(rows, quSortByValueGeneral, Sorting{{false}, kGeneral});
  ExpectExactOrder(rows, quSortByValueGeneral, Sorting{{true}, kGeneral});
  // Close together, with one Null: distinct as well, told so without sorting.
  for (size_t i = 0; i < rows.size(); ++i) rows[i][0] = static_cast<int32_t>(i * 3) - 4000;
  rows[17][0] = Variant::Null();
  std::shuffle(rows.begin(), rows.end(), random);
  ExpectExactOrder(rows, quSortByValueGeneral, Sorting{{false}, kGeneral});
  ExpectExactOrder(rows, quSortByValueGeneral, Sorting{{true}, kGeneral});
}
}  // namespace

namespace {
// The passes that step eight entries at a time make the moves of the one-at-a-time passes: the
// same arrangement, ties included, for sizes around the lane width and the gaps, and for keys
// from all distinct to all equal.
TEST(SortKeys, EightLanePassesMoveAsOneAtATime) {
  std::mt19937_64 random(5);
  for (size_t n : {2, 7, 8, 9, 15, 16, 17, 40, 41, 121, 1000, 5000, 100000}) {
    for (uint64_t distinct : {uint64_t{1}, uint64_t{3}, n / 3 + 1, n}) {
      std::vector<uint64_t> entries(n);
      const unsigned shift = 20;
      for (size_t k = 0; k < n; ++k) entries[k] = (random() % distinct) << shift | k;
      std::vector<uint64_t> oneAtATime = entries;
      ops::ShellSortPacked(entries.data(), n, shift);
      ops::ShellSortPacked(oneAtATime.data(), n, shift, false);
      ASSERT_EQ(entries, oneAtATime) << n << " entries, " << distinct << " keys";
    }
  }
}
}  // namespace

// Helpers shared by the row hierarchy and sorting tests.
#pragma once

#include <string>
#include <vector>

#include "control/internals_access.hpp"
#include "model/test_support.hpp"

namespace quilta::testing {

// Cells are written through the store until the cell properties are public.
inline model::Cell& CellOf(Quilta& g, int32_t row, int32_t col) {
  return control::Internals(g).store.MutableCell(row, col);
}
inline void SetValue(Quilta& g, int32_t row, int32_t col, const Variant& v) {
  CellOf(g, row, col).value = v;
  control::Internals(g).store.Cells().Column(col).NoteRefs(CellOf(g, row, col));
}

// Rows are told apart by their tags: row r starts with tag r.
inline void TagRows(Quilta& g) {
  for (int32_t r = 1; r <= g.RowCount(); ++r) g.SetRowTag(r, r);
}
inline std::vector<int32_t> TagOrder(const Quilta& g) {
  std::vector<int32_t> tags;
  for (int32_t r = 1; r <= g.RowCount(); ++r) tags.push_back(g.RowTag(r).LongValue());
  return tags;
}
inline std::vector<int> Levels(const Quilta& g) {
  std::vector<int> levels;
  for (int32_t r = 1; r <= g.RowCount(); ++r) levels.push_back(g.RowLevel(r));
  return levels;
}

// 1 A, 2 A1, 3 A1a, 4 A1b, 5 A2, 6 B, 7 B1: keys as named, levels 0 1 2 2 1 0 1.
inline Quilta Tree() {
  Quilta g;
  g.AddCol();
  for (auto [key, parent] : {std::pair{"A", ""},
                             {"A1", "A"},
                             {"A1a", "A1"},
                             {"A1b", "A1"},
                             {"A2", "A"},
                             {"B", ""},
                             {"B1", "B"}})
    g.AddRow({.sKey = key, .vRowParent = *parent ? Variant(parent) : Variant::Missing()});
  return g;
}

// Records the events of interest as text, in the order raised.
struct EventLog : QuiltaEvents {
  std::vector<std::string> log;
  bool doDefault = true;
  void Add(std::string s) { log.push_back(std::move(s)); }
  void BeforeContentsSorted() override { Add("BeforeSorted"); }
  void AfterContentsSorted() override { Add("AfterSorted"); }
  void QuitCustomEdit() override { Add("QuitCustomEdit"); }
  void CurRowChange(int32_t lNewRow, int32_t lOldRow) override {
    Add("CurRow " + std::to_string(lOldRow) + "->" + std::to_string(lNewRow));
  }
  void BeforeRowCollapseExpand(int32_t lRow, bool bNowExpanded, bool& bDoDefault) override {
    Add("Before " + std::to_string(lRow) + (bNowExpanded ? " expand" : " collapse"));
    bDoDefault = doDefault;
  }
  void AfterRowCollapseExpand(int32_t lRow, bool bNowExpanded) override {
    Add("After " + std::to_string(lRow) + (bNowExpanded ? " expand" : " collapse"));
  }
};

}  // namespace quilta::testing

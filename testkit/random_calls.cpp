#include "random_calls.hpp"

#include <algorithm>
#include <map>
#include <quilta/error.hpp>
#include <string>

#include "model/text/text.hpp"
#include "random_calls_support.hpp"

namespace quilta::testkit {
using std::to_string;

int Pick(Rng& rng, int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); }
bool Chance(Rng& rng, int percent) { return Pick(rng, 1, 100) <= percent; }

// Mostly rows that exist; now and then one just outside, a key, or something that is no row.
Variant RowRef(Rng& rng, const ReferenceModel& m) {
  const int n = m.RowCount();
  const int roll = Pick(rng, 1, 100);
  if (roll <= 86 && n > 0) return Pick(rng, 1, n);
  if (roll <= 92) {
    for (int tries = 0; tries < 4 && n > 0; ++tries) {
      const std::string& key = m.Row(Pick(rng, 1, n)).key;
      if (!key.empty()) return key;
    }
  }
  if (roll <= 96) return Chance(rng, 50) ? 0 : n + 1;
  return Chance(rng, 50) ? Variant("no such key") : Variant();
}

Variant ColRef(Rng& rng, const ReferenceModel& m) {
  const int n = m.ColCount();
  const int roll = Pick(rng, 1, 100);
  if (roll <= 85) return Pick(rng, 1, n + 1);
  if (roll <= 93 && n > 0) {
    std::string key = m.colKeys[static_cast<size_t>(Pick(rng, 1, n)) - 1];
    if (!key.empty()) {
      if (Chance(rng, 50)) std::transform(key.begin(), key.end(), key.begin(), ::toupper);
      return key;
    }
  }
  return Chance(rng, 50) ? Variant(n + 2) : Variant("no such column");
}

// A small pool, so that duplicates happen often.
std::string RowKey(Rng& rng) { return Chance(rng, 40) ? "" : "k" + to_string(Pick(rng, 0, 9)); }
std::string ColKey(Rng& rng) { return Chance(rng, 40) ? "" : "c" + to_string(Pick(rng, 0, 5)); }

Variant Value(Rng& rng) {
  switch (Pick(rng, 0, 6)) {
    case 0:
      return Variant();
    case 1:
      return Variant::Null();
    case 2:
      return Pick(rng, 0, 20) * 0.5;
    case 3:
      return "t" + to_string(Pick(rng, 0, 20));
    default:
      return Pick(rng, -5, 30);
  }
}

int32_t Count(Rng& rng) {
  const int roll = Pick(rng, 1, 100);
  if (roll <= 85) return Pick(rng, 1, 3);
  if (roll <= 95) return Pick(rng, 4, 7);
  return Chance(rng, 70) ? 0 : -1;
}

std::string ShowRef(const Variant& v) { return v.IsMissing() ? "Missing" : Show(v); }

std::vector<int32_t> Ids(const std::vector<RowState>& rows) {
  std::vector<int32_t> ids;
  for (const RowState& r : rows) ids.push_back(r.id);
  return ids;
}

// The grid's rows are the model's rows in some order; the model takes that order.
std::string AdoptOrder(ReferenceModel& m, const GridSnapshot& after) {
  std::vector<int32_t> want = Ids(m.rows), got = Ids(after.rows);
  std::sort(want.begin(), want.end());
  std::sort(got.begin(), got.end());
  if (want != got) return "the rows after the call are not the rows before it";
  std::map<int32_t, RowState> byId;
  for (RowState& r : m.rows) byId[r.id] = std::move(r);
  m.rows.clear();
  for (const RowState& r : after.rows) m.rows.push_back(byId[r.id]);
  return "";
}

namespace {

// ---- Predictions --------------------------------------------------------------------------------

int32_t PredictAddRow(ReferenceModel& m, const Call& k) {
  const bool hasBefore = IsGiven(k.v);
  const bool hasParent = IsGiven(k.w);
  const int32_t before = hasBefore ? m.ResolveRow(k.v) : 0;
  const int32_t parent = hasParent ? m.ResolveRow(k.w) : 0;
  if (!k.s.empty() && m.RowOfKey(k.s)) throw ExpectedError{515};
  if (k.b < 1) throw ExpectedError{514};
  if (parent && m.Row(parent).level == 255) throw ExpectedError{524};
  RowState fill = m.NewRow(0);
  fill.expanded = k.c & 1;
  fill.visibleAsChild = k.c & 2;
  fill.visible = k.c & 4;
  fill.level = static_cast<uint8_t>(k.e);
  fill.treeButton = m.autoTreeButton ? quRowTreeButtonHidden : quRowTreeButtonAbsent;
  int32_t at = before ? before : m.RowCount() + 1;
  if (parent) {
    RowState& p = m.Row(parent);
    fill.level = static_cast<uint8_t>(p.level + 1);
    fill.visibleAsChild = fill.visibleAsChild && p.expanded && p.visibleAsChild;
    at = m.LastNested(parent) + 1;
    if (m.autoTreeButton) p.treeButton = quRowTreeButtonVisible;
  }
  std::vector<RowState> added(static_cast<size_t>(k.b), fill);
  for (int32_t i = 0; i < k.b; ++i) added[static_cast<size_t>(i)].id = k.d + i;
  added[0].key = k.s;
  m.rows.insert(m.rows.begin() + (at - 1), added.begin(), added.end());
  return at;
}

int32_t PredictRemoveRow(ReferenceModel& m, const Call& k) {
  const int32_t r = m.ResolveRow(k.v);
  int32_t count = k.b;
  const int32_t last = m.LastNested(r);
  if (last > r) {
    count = last - r + 1;
  } else if (count < 1 || r + count - 1 > m.RowCount()) {
    throw ExpectedError{514};
  }
  if (count == m.RowCount()) {
    m.ClearRows();
    return 0;
  }
  const int32_t parent = m.ParentOf(r);
  // A current row inside the removed block moves to current row - count, before the block.
  const int32_t cur = m.RowOfId(m.curId);
  const bool curInside = cur > r && cur < r + count;
  m.rows.erase(m.rows.begin() + (r - 1), m.rows.begin() + (r - 1 + count));
  if (curInside) m.curId = cur - count >= 1 ? m.Row(cur - count).id : 0;
  if (parent && m.Row(parent).treeButton == quRowTreeButtonVisible && !m.HasChildren(parent))
    m.Row(parent).treeButton = quRowTreeButtonHidden;
  return 0;
}

int32_t PredictSetRowCount(ReferenceModel& m, const Call& k) {
  if (k.a < 0) throw ExpectedError{514};
  if (k.a < m.RowCount()) m.rows.resize(static_cast<size_t>(k.a));
  for (int32_t id = k.d; m.RowCount() < k.a; ++id) m.rows.push_back(m.NewRow(id));
  return 0;
}

// The subtree walk of a single row's expanded state: collapsed children keep their subtrees.
int32_t PredictSetRowExpanded(ReferenceModel& m, const Call& k) {
  const int32_t r = m.ResolveRow(k.v);
  const bool e = k.a != 0;
  if (m.Row(r).expanded == e) return 0;
  m.Row(r).expanded = e;
  for (int32_t i = r + 1; i <= m.RowCount() && m.Row(i).level > m.Row(r).level; ++i) {
    m.Row(i).visibleAsChild = e;
    if (!m.Row(i).expanded) i = m.LastNested(i);
  }
  return 0;
}

void CollapseExpand(ReferenceModel& m, int32_t start, bool expand, bool wholeGrid) {
  if (m.RowCount() == 0) return;
  const int32_t last = wholeGrid ? m.RowCount() : m.LastNested(start);
  m.Row(start).expanded = expand;
  for (int32_t r = start + 1; r <= last; ++r) {
    m.Row(r).expanded = expand;
    if (!wholeGrid || m.Row(r).level > 0) m.Row(r).visibleAsChild = expand;
  }
}

int32_t PredictAddCol(ReferenceModel& m, const Call& k) {
  const std::string lower = text::ToLower(k.s);
  for (const std::string& key : m.colKeys)
    if (!lower.empty() && text::ToLower(key) == lower) throw ExpectedError{515};
  if (k.b < 1) throw ExpectedError{514};
  const int32_t at = IsGiven(k.v) ? m.ResolveCol(k.v) : m.ColCount() + 1;
  m.InsertColumns(at, k.b);
  m.colKeys[static_cast<size_t>(at) - 1] = k.s;
  return at;
}

int32_t PredictRemoveCol(ReferenceModel& m, const Call& k) {
  const int32_t c = m.ResolveCol(k.v);
  if (k.b < 1 || c + k.b - 1 > m.ColCount()) throw ExpectedError{514};
  m.EraseColumns(c, k.b);
  return 0;
}

int32_t PredictSetColCount(ReferenceModel& m, const Call& k) {
  if (k.a < 0) throw ExpectedError{514};
  if (k.a < m.ColCount()) m.EraseColumns(k.a + 1, m.ColCount() - k.a);
  if (k.a > m.ColCount()) m.InsertColumns(m.ColCount() + 1, k.a - m.ColCount());
  if (k.a == 0) m.curId = 0;  // a grid without columns has no current cell
  return 0;
}

int32_t PredictSetColKey(ReferenceModel& m, const Call& k) {
  if (k.a < 1 || k.a > m.ColCount() + 1) throw ExpectedError{513};
  if (k.a == m.ColCount() + 1) return 0;
  const std::string lower = text::ToLower(k.s);
  for (int32_t c = 1; c <= m.ColCount(); ++c)
    if (c != k.a && !lower.empty() && text::ToLower(m.colKeys[c - 1]) == lower)
      throw ExpectedError{515};
  if (k.a <= m.ColCount()) m.colKeys[static_cast<size_t>(k.a) - 1] = k.s;
  return 0;
}

// ---- Calls whose exact result is the grid's own choice ------------------------------------------

std::vector<int32_t> ParentIds(const ReferenceModel& m) {
  std::vector<int32_t> parents;
  for (int32_t r = 1; r <= m.RowCount(); ++r) {
    const int32_t p = m.ParentOf(r);
    parents.push_back(p ? m.Row(p).id : 0);
  }
  return parents;
}

std::string AdoptSort(ReferenceModel& m, const GridSnapshot& after, const Call& k) {
  int32_t col = 0;
  try {
    col = m.ResolveCol(k.v);
  } catch (const ExpectedError&) {
    return "Sort succeeded with a column reference that does not resolve";
  }
  std::map<int32_t, int32_t> parentBefore;
  std::vector<int32_t> parents = ParentIds(m);
  for (size_t i = 0; i < parents.size(); ++i) parentBefore[m.rows[i].id] = parents[i];
  // Levels that jump or start above 0 make entries of their own; only a proper tree is kept.
  bool properTree = true;
  for (int32_t r = 1; r <= m.RowCount(); ++r)
    properTree = properTree && m.Row(r).level <= (r == 1 ? 0 : m.Row(r - 1).level + 1);
  if (std::string complaint = AdoptOrder(m, after); !complaint.empty()) return complaint;
  if (m.treeCol != 0) {
    if (!properTree) return "";
    parents = ParentIds(m);
    for (size_t i = 0; i < parents.size(); ++i)
      if (parents[i] != parentBefore[m.rows[i].id])
        return "a tree sort moved row id " + to_string(m.rows[i].id) + " to another parent";
    return "";
  }
  // Rows of a tree keep their subtrees: the plain order is checked on flat grids only, and not
  // for the row-text column, which sorts only when given a sort type.
  bool allLongs = col <= m.ColCount();
  for (const RowState& r : m.rows)
    allLongs = allLongs && r.values[col - 1].Type() == vbLong && r.level == 0;
  for (size_t i = 1; allLongs && i < m.rows.size(); ++i)
    if (m.rows[i - 1].values[col - 1].LongValue() > m.rows[i].values[col - 1].LongValue())
      return "rows " + to_string(i) + " and " + to_string(i + 1) + " are out of order";
  return "";
}

// The moved block keeps its order and shape, the other rows keep theirs; the block's levels,
// tree buttons and visible-as-child flags are taken from the grid.
std::string AdoptMoveRow(ReferenceModel& m, const GridSnapshot& after, const Call& k) {
  int32_t row = 0;
  try {
    row = m.ResolveRow(k.v);
  } catch (const ExpectedError&) {
    return "MoveRow succeeded with a row reference that does not resolve";
  }
  int32_t last = row - 1;
  for (int32_t i = 0; i < k.b; ++i) {
    if (last + 1 > m.RowCount() || m.Row(last + 1).level != m.Row(row).level)
      return "MoveRow succeeded with fewer than lCount rows to move";
    last = m.LastNested(last + 1);
  }
  std::vector<int32_t> block, rest;
  std::vector<int> blockLevels;
  for (int32_t r = 1; r <= m.RowCount(); ++r) {
    (r >= row && r <= last ? block : rest).push_back(m.Row(r).id);
    if (r >= row && r <= last) blockLevels.push_back(m.Row(r).level);
  }
  if (std::string complaint = AdoptOrder(m, after); !complaint.empty()) return complaint;
  std::vector<int32_t> restAfter, blockAfter;
  std::vector<int> levelsAfter;
  size_t firstAt = 0;
  for (size_t i = 0; i < after.rows.size(); ++i) {
    const int32_t id = after.rows[i].id;
    if (std::find(block.begin(), block.end(), id) == block.end()) {
      restAfter.push_back(id);
      continue;
    }
    if (blockAfter.empty()) firstAt = i;
    if (i != firstAt + blockAfter.size()) return "the moved rows are no longer together";
    blockAfter.push_back(id);
    levelsAfter.push_back(after.rows[i].level);
  }
  if (restAfter != rest) return "rows outside the moved block changed their order";
  if (blockAfter != block) return "the moved block changed its order";
  for (size_t i = 0; i < block.size(); ++i)
    if (levelsAfter[i] - blockLevels[i] != levelsAfter[0] - blockLevels[0])
      return "the moved block changed its shape";
  for (size_t i = 0; i < after.rows.size(); ++i) {
    m.rows[i].level = after.rows[i].level;
    m.rows[i].treeButton = after.rows[i].treeButton;
    if (i >= firstAt && i < firstAt + block.size())
      m.rows[i].visibleAsChild = after.rows[i].visibleAsChild;
  }
  return "";
}

// ---- The table ----------------------------------------------------------------------------------

// An entry for a setter of one row: (row reference, small value).
CallKind RowSetter(std::string name, int weight, int lo, int hi,
                   std::function<void(Quilta&, const Variant&, int32_t)> set,
                   std::function<void(RowState&, int32_t)> apply) {
  CallKind kind;
  kind.name = name;
  kind.weight = weight;
  kind.make = [lo, hi](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = RowRef(rng, m);
    k.a = Pick(rng, lo, hi);
    return k;
  };
  kind.run = [set](Quilta& g, const Call& k) { return set(g, k.v, k.a), 0; };
  kind.predict = [apply](ReferenceModel& m, const Call& k) {
    return apply(m.Row(m.ResolveRow(k.v)), k.a), 0;
  };
  kind.show = [name](const Call& k) {
    return name + "(" + ShowRef(k.v) + ", " + to_string(k.a) + ")";
  };
  return kind;
}

CallKind Bulk(std::string name, int weight, bool expand, bool wholeGrid) {
  CallKind kind;
  kind.name = name;
  kind.weight = weight;
  kind.make = [wholeGrid](Rng& rng, const ReferenceModel& m) {
    Call k;
    if (!wholeGrid) k.v = RowRef(rng, m);
    return k;
  };
  kind.run = [expand, wholeGrid](Quilta& g, const Call& k) {
    if (wholeGrid) expand ? g.ExpandAllRows() : g.CollapseAllRows();
    if (!wholeGrid) expand ? g.ExpandAllChildRows(k.v) : g.CollapseAllChildRows(k.v);
    return 0;
  };
  kind.predict = [expand, wholeGrid](ReferenceModel& m, const Call& k) {
    CollapseExpand(m, wholeGrid ? 1 : m.ResolveRow(k.v), expand, wholeGrid);
    return 0;
  };
  kind.show = [name, wholeGrid](const Call& k) {
    return name + "(" + (wholeGrid ? "" : ShowRef(k.v)) + ")";
  };
  return kind;
}

void AddStoreCalls(RandomCallTable& t) {
  CallKind add;
  add.name = "AddRow";
  add.weight = 14;
  add.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = Chance(rng, 50) ? Variant::Missing() : RowRef(rng, m);
    k.w = Chance(rng, 70) ? Variant::Missing() : RowRef(rng, m);
    k.b = m.RowCount() > 60 ? 1 : Count(rng);
    k.s = RowKey(rng);
    k.c = (Chance(rng, 85) ? 1 : 0) | (Chance(rng, 90) ? 2 : 0) | (Chance(rng, 90) ? 4 : 0);
    k.e = Chance(rng, 85) ? 0 : Chance(rng, 90) ? Pick(rng, 1, 3) : 255;
    return k;
  };
  add.run = [](Quilta& g, const Call& k) {
    const int32_t first = g.AddRow({.sKey = k.s,
                                    .vRowBefore = k.v,
                                    .bVisible = (k.c & 4) != 0,
                                    .vRowParent = k.w,
                                    .bExpanded = (k.c & 1) != 0,
                                    .btLevel = static_cast<uint8_t>(k.e),
                                    .bVisibleAsChild = (k.c & 2) != 0,
                                    .lCount = k.b});
    for (int32_t i = 0; i < k.b; ++i) g.SetRowTag(first + i, k.d + i);
    return first;
  };
  add.predict = PredictAddRow;
  add.checkResult = true;
  add.show = [](const Call& k) {
    return "AddRow(key \"" + k.s + "\", before " + ShowRef(k.v) + ", parent " + ShowRef(k.w) +
           ", count " + to_string(k.b) + ", flags " + to_string(k.c) + ", level " + to_string(k.e) +
           ")";
  };
  t.Add(add);

  CallKind remove;
  remove.name = "RemoveRow";
  remove.weight = 8;
  remove.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = RowRef(rng, m);
    k.b = Count(rng);
    return k;
  };
  remove.run = [](Quilta& g, const Call& k) { return g.RemoveRow(k.v, k.b), 0; };
  remove.predict = PredictRemoveRow;
  remove.show = [](const Call& k) {
    return "RemoveRow(" + ShowRef(k.v) + ", " + to_string(k.b) + ")";
  };
  t.Add(remove);

  CallKind rowCount;
  rowCount.name = "SetRowCount";
  rowCount.weight = 2;
  rowCount.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.a = Chance(rng, 5) ? -1 : std::clamp(m.RowCount() + Pick(rng, -6, 6), 0, 70);
    return k;
  };
  rowCount.run = [](Quilta& g, const Call& k) {
    const int32_t old = g.RowCount();
    g.SetRowCount(k.a);
    for (int32_t r = old + 1; r <= k.a; ++r) g.SetRowTag(r, k.d + (r - old - 1));
    return 0;
  };
  rowCount.predict = PredictSetRowCount;
  rowCount.show = [](const Call& k) { return "SetRowCount(" + to_string(k.a) + ")"; };
  t.Add(rowCount);

  CallKind clear;
  clear.name = "Clear";
  clear.weight = 1;
  clear.make = [](Rng& rng, const ReferenceModel&) {
    Call k;
    k.a = Chance(rng, 15);
    return k;
  };
  clear.run = [](Quilta& g, const Call& k) { return g.Clear(k.a != 0), 0; };
  clear.predict = [](ReferenceModel& m, const Call& k) {
    m.ClearRows();
    if (k.a) m.EraseColumns(1, m.ColCount());
    return 0;
  };
  clear.show = [](const Call& k) { return std::string("Clear(") + (k.a ? "true" : "false") + ")"; };
  t.Add(clear);

  CallKind key;
  key.name = "SetRowKey";
  key.weight = 4;
  key.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.a = Pick(rng, Chance(rng, 5) ? 0 : 1, m.RowCount() + (Chance(rng, 5) ? 1 : 0));
    k.s = RowKey(rng);
    return k;
  };
  key.run = [](Quilta& g, const Call& k) { return g.SetRowKey(k.a, k.s), 0; };
  key.predict = [](ReferenceModel& m, const Call& k) {
    const int32_t r = m.ResolveRow(k.a);
    const int32_t holder = m.RowOfKey(k.s);
    if (holder && holder != r) throw ExpectedError{515};
    m.Row(r).key = k.s;
    return 0;
  };
  key.show = [](const Call& k) { return "SetRowKey(" + to_string(k.a) + ", \"" + k.s + "\")"; };
  t.Add(key);

  CallKind value;
  value.name = "SetCellValue";
  value.weight = 12;
  value.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = RowRef(rng, m);
    k.w = ColRef(rng, m);
    k.x = Value(rng);
    return k;
  };
  value.run = [](Quilta& g, const Call& k) { return g.SetCellValue(k.v, k.w, k.x), 0; };
  value.predict = [](ReferenceModel& m, const Call& k) {
    const int32_t r = m.ResolveRow(k.v);
    const int32_t c = m.ResolveCol(k.w);
    m.Row(r).values[static_cast<size_t>(c) - 1] = k.x;
    return 0;
  };
  value.show = [](const Call& k) {
    return "SetCellValue(" + ShowRef(k.v) + ", " + ShowRef(k.w) + ", " + Show(k.x) + ")";
  };
  t.Add(value);
}

void AddColumnCalls(RandomCallTable& t) {
  CallKind add;
  add.name = "AddCol";
  add.weight = 2;
  add.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.s = ColKey(rng);
    k.v = Chance(rng, 50) ? Variant::Missing() : ColRef(rng, m);
    k.b = m.ColCount() > 8 ? 1 : Chance(rng, 90) ? Pick(rng, 1, 2) : 0;
    return k;
  };
  add.run = [](Quilta& g, const Call& k) {
    g.AddCol({.sKey = k.s, .vColBefore = k.v, .lCount = k.b});
    return 0;
  };
  add.predict = PredictAddCol;
  add.show = [](const Call& k) {
    return "AddCol(key \"" + k.s + "\", before " + ShowRef(k.v) + ", count " + to_string(k.b) + ")";
  };
  t.Add(add);

  CallKind remove;
  remove.name = "RemoveCol";
  remove.weight = 2;
  remove.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = ColRef(rng, m);
    k.b = Chance(rng, 90) ? Pick(rng, 1, 2) : Pick(rng, -1, 0);
    return k;
  };
  remove.run = [](Quilta& g, const Call& k) { return g.RemoveCol(k.v, k.b), 0; };
  remove.predict = PredictRemoveCol;
  remove.show = [](const Call& k) {
    return "RemoveCol(" + ShowRef(k.v) + ", " + to_string(k.b) + ")";
  };
  t.Add(remove);

  CallKind count;
  count.name = "SetColCount";
  count.weight = 1;
  count.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.a = Chance(rng, 5) ? -1 : std::clamp(m.ColCount() + Pick(rng, -2, 2), 0, 9);
    return k;
  };
  count.run = [](Quilta& g, const Call& k) { return g.SetColCount(k.a), 0; };
  count.predict = PredictSetColCount;
  count.show = [](const Call& k) { return "SetColCount(" + to_string(k.a) + ")"; };
  t.Add(count);

  CallKind key;
  key.name = "SetColKey";
  key.weight = 1;
  key.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    // The row-text column's key is left alone: the model does not keep it.
    k.a = Chance(rng, 8) || m.ColCount() == 0 ? (Chance(rng, 50) ? 0 : m.ColCount() + 2)
                                              : Pick(rng, 1, m.ColCount());
    k.s = ColKey(rng);
    return k;
  };
  // The row-text column's key is not kept by the model: the call leaves it alone.
  key.run = [](Quilta& g, const Call& k) {
    if (k.a != g.RowTextCol()) g.SetColKey(k.a, k.s);
    return 0;
  };
  key.predict = PredictSetColKey;
  key.show = [](const Call& k) { return "SetColKey(" + to_string(k.a) + ", \"" + k.s + "\")"; };
  t.Add(key);
}

void AddTreeCalls(RandomCallTable& t) {
  t.Add(RowSetter(
      "SetRowLevel", 3, 0, 3,
      [](Quilta& g, const Variant& r, int32_t a) { g.SetRowLevel(r, static_cast<uint8_t>(a)); },
      [](RowState& row, int32_t a) { row.level = static_cast<uint8_t>(a); }));
  CallKind expanded;
  expanded.name = "SetRowExpanded";
  expanded.weight = 5;
  expanded.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = RowRef(rng, m);
    k.a = Pick(rng, 0, 1);
    return k;
  };
  expanded.run = [](Quilta& g, const Call& k) { return g.SetRowExpanded(k.v, k.a != 0), 0; };
  expanded.predict = PredictSetRowExpanded;
  expanded.show = [](const Call& k) {
    return "SetRowExpanded(" + ShowRef(k.v) + ", " + to_string(k.a) + ")";
  };
  t.Add(expanded);
  t.Add(RowSetter(
      "SetRowVisibleAsChild", 1, 0, 1,
      [](Quilta& g, const Variant& r, int32_t a) { g.SetRowVisibleAsChild(r, a != 0); },
      [](RowState& row, int32_t a) { row.visibleAsChild = a != 0; }));
  t.Add(RowSetter(
      "SetRowVisible", 2, 0, 1,
      [](Quilta& g, const Variant& r, int32_t a) { g.SetRowVisible(r, a != 0); },
      [](RowState& row, int32_t a) { row.visible = a != 0; }));
  t.Add(RowSetter(
      "SetRowHeight", 2, 0, 30,
      [](Quilta& g, const Variant& r, int32_t a) { g.SetRowHeight(r, a); },
      [](RowState& row, int32_t a) { row.height = a; }));
  t.Add(RowSetter(
      "SetRowTreeButton", 1, 0, 2,
      [](Quilta& g, const Variant& r, int32_t a) {
        g.SetRowTreeButton(r, static_cast<ERowTreeButton>(a));
      },
      [](RowState& row, int32_t a) { row.treeButton = a; }));
  t.Add(Bulk("CollapseAllChildRows", 2, false, false));
  t.Add(Bulk("ExpandAllChildRows", 2, true, false));
  t.Add(Bulk("CollapseAllRows", 1, false, true));
  t.Add(Bulk("ExpandAllRows", 1, true, true));

  CallKind move;
  move.name = "MoveRow";
  move.weight = 5;
  move.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = RowRef(rng, m);
    k.w = RowRef(rng, m);
    k.b = Chance(rng, 95) ? Pick(rng, 1, 2) : 0;
    k.a = Chance(rng, 97) ? Pick(rng, 0, 2) : 3;
    return k;
  };
  move.run = [](Quilta& g, const Call& k) {
    return g.MoveRow(k.v, k.w, k.b, static_cast<EMoveRowMode>(k.a)), 0;
  };
  move.adopt = AdoptMoveRow;
  move.show = [](const Call& k) {
    return "MoveRow(" + ShowRef(k.v) + ", " + ShowRef(k.w) + ", " + to_string(k.b) + ", mode " +
           to_string(k.a) + ")";
  };
  t.Add(move);

  CallKind treeCol;
  treeCol.name = "SetTreeCol";
  treeCol.weight = 1;
  treeCol.make = [](Rng& rng, const ReferenceModel&) {
    Call k;
    k.a = Pick(rng, 0, 1);
    return k;
  };
  treeCol.run = [](Quilta& g, const Call& k) { return g.SetTreeCol(k.a), 0; };
  treeCol.predict = [](ReferenceModel& m, const Call& k) { return m.treeCol = k.a, 0; };
  treeCol.show = [](const Call& k) { return "SetTreeCol(" + to_string(k.a) + ")"; };
  t.Add(treeCol);

  CallKind autoButton;
  autoButton.name = "SetAddRowAutoTreeButton";
  autoButton.weight = 1;
  autoButton.make = treeCol.make;
  autoButton.run = [](Quilta& g, const Call& k) { return g.SetAddRowAutoTreeButton(k.a != 0), 0; };
  autoButton.predict = [](ReferenceModel& m, const Call& k) {
    return m.autoTreeButton = k.a != 0, 0;
  };
  autoButton.show = [](const Call& k) { return "SetAddRowAutoTreeButton(" + to_string(k.a) + ")"; };
  t.Add(autoButton);
}

void AddOrderAndUpdateCalls(RandomCallTable& t) {
  CallKind sort;
  sort.name = "Sort";
  sort.weight = 3;
  sort.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = ColRef(rng, m);
    return k;
  };
  sort.run = [](Quilta& g, const Call& k) { return g.Sort(k.v), 0; };
  sort.adopt = AdoptSort;
  sort.show = [](const Call& k) { return "Sort(" + ShowRef(k.v) + ")"; };
  t.Add(sort);

  // The same sort compared by the host, whose CustomSort handler throws on its n-th comparison:
  // either the sort finished first, or the rows and criteria are as they were.
  CallKind throwing;
  throwing.name = "Sort through a throwing CustomSort";
  throwing.weight = 2;
  throwing.make = [](Rng& rng, const ReferenceModel& m) {
    Call k;
    k.v = ColRef(rng, m);
    k.a = Pick(rng, 1, 80);
    return k;
  };
  throwing.run = [](Quilta& g, const Call& k) {
    struct Sink : QuiltaEvents {
      int left = 0;
      void CustomSort(int32_t, int32_t, int32_t, const Variant& v1, const Variant& v2,
                      int32_t& result) override {
        if (--left == 0) throw HostHandlerFailure{};
        const VarCmpResult r = Compare(v1, v2);
        result = r == VarCmpNull ? 0 : r;
      }
    } sink;
    sink.left = k.a;
    const ESortTypes type = g.ColSortType(k.v);
    g.SetColSortType(k.v, quSortCustom);
    g.SetEventSink(&sink);
    try {
      g.Sort(k.v);
    } catch (...) {
      g.SetEventSink(nullptr);
      g.SetColSortType(k.v, type);
      throw;
    }
    g.SetEventSink(nullptr);
    g.SetColSortType(k.v, type);
    return 0;
  };
  throwing.adopt = AdoptSort;
  throwing.show = [](const Call& k) {
    return "Sort(" + ShowRef(k.v) + ") with CustomSort throwing on comparison " + to_string(k.a);
  };
  t.Add(throwing);

  CallKind begin;
  begin.name = "BeginUpdate";
  begin.weight = 1;
  begin.make = [](Rng&, const ReferenceModel&) { return Call{}; };
  begin.run = [](Quilta& g, const Call&) { return g.BeginUpdate(), 0; };
  begin.predict = [](ReferenceModel& m, const Call&) { return ++m.updateCount, 0; };
  begin.show = [](const Call&) { return std::string("BeginUpdate()"); };
  t.Add(begin);

  CallKind end;
  end.name = "EndUpdate";
  end.weight = 2;
  end.make = begin.make;
  end.run = [](Quilta& g, const Call&) { return g.EndUpdate(), 0; };
  end.predict = [](ReferenceModel& m, const Call&) {
    if (m.updateCount > 0) --m.updateCount;
    return 0;
  };
  end.show = [](const Call&) { return std::string("EndUpdate()"); };
  t.Add(end);
}

}  // namespace

const RandomCallTable& RandomCallTable::ForGrid() {
  static const RandomCallTable table = [] {
    RandomCallTable t;
    AddStoreCalls(t);
    AddColumnCalls(t);
    AddTreeCalls(t);
    AddOrderAndUpdateCalls(t);
    AddInteractionCalls(t);
    AddExchangeCalls(t);
    return t;
  }();
  return table;
}

void RandomCallTable::Add(CallKind kind) {
  totalWeight_ += kind.weight;
  kinds_.push_back(std::move(kind));
}

Call RandomCallTable::Make(Rng& rng, const ReferenceModel& model) const {
  int roll = Pick(rng, 1, totalWeight_);
  int i = 0;
  while (roll > kinds_[static_cast<size_t>(i)].weight)
    roll -= kinds_[static_cast<size_t>(i++)].weight;
  Call call = kinds_[static_cast<size_t>(i)].make(rng, model);
  call.kind = i;
  return call;
}

std::string RandomCallTable::Show(const Call& call) const { return Kind(call.kind).show(call); }

void PrepareGrid(Quilta& grid, ReferenceModel& model) {
  for (const char* key : {"a", "b", "c"}) grid.AddCol({.sKey = key});
  model = ReferenceModel{};
  model.colKeys = {"a", "b", "c"};
  model.colDefaults.assign(4, Variant());
  model.multiSelect = grid.MultiSelect();
  model.rowMode = grid.RowMode();
}

}  // namespace quilta::testkit

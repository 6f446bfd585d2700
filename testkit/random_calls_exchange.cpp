// Random calls of grouping, layout strings, the column layout, column default cells, a few
// control properties, and the clipboard commands. Grouping runs as one session per call (group,
// change cells and aggregates inside the groups, ungroup), checked as it goes.
#include <algorithm>
#include <set>
#include <string>

#include "consistency_checker.hpp"
#include "random_calls_support.hpp"

namespace quilta::testkit {
namespace {

using std::to_string;

void Complain(const std::string& what) { throw Complaint{what}; }

int32_t ExpectColumn(const ReferenceModel& m, const Variant& ref) {
  try {
    m.ResolveCol(ref);
  } catch (const ExpectedError& e) {
    return e.code;
  }
  return kAnyOutcome;
}

std::string AdoptNothingChanged(ReferenceModel& m, const GridSnapshot& after, const Call&) {
  return AdoptUserAction(m, after, {});
}

void CheckConsistent(Quilta& g, const std::string& when) {
  const std::vector<std::string> problems = ConsistencyChecker::ForGrid().Run(g);
  if (!problems.empty()) Complain("inconsistent grid " + when + ":\n" + Describe(problems));
}

// ---- Grouping
// ------------------------------------------------------------------------------------

// The data rows whose cells a grouping session changes, chosen alike from the grid (by tag) and
// from the model (by id): up to three (id, column, value) from the call's seed.
struct CellChange {
  int32_t id, col;
  Variant value;
};

std::vector<CellChange> ChangesFor(std::vector<int32_t> ids, int32_t cols, uint64_t seed) {
  std::vector<CellChange> changes;
  std::sort(ids.begin(), ids.end());
  Rng rng(seed);
  const int n = ids.empty() || cols == 0 ? 0 : Pick(rng, 0, 3);
  for (int i = 0; i < n; ++i) {
    const int32_t id = ids[static_cast<size_t>(Pick(rng, 0, static_cast<int>(ids.size()) - 1))];
    const int32_t col = Pick(rng, 1, cols);
    changes.push_back({id, col, Value(rng)});
  }
  return changes;
}

int32_t DataRowOf(const Quilta& g, int32_t id) {
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    const Variant tag = g.RowTag(r);
    if (tag.Type() == vbLong && tag.LongValue() == id && !g.RowIsGroupRow(r)) return r;
  }
  return 0;
}

// What a grouped grid must show: group rows above runs, counts that add up, the checker content.
void CheckGrouped(Quilta& g, int32_t dataRows, int32_t levels, bool properTree,
                  const std::string& when) {
  CheckConsistent(g, when);
  if (g.GroupedBy().ColCount() != levels)
    Complain("grouped by " + to_string(g.GroupedBy().ColCount()) + " criteria, not " +
             to_string(levels) + " " + when);
  int32_t groupRows = 0, topCount = 0;
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    if (!g.RowIsGroupRow(r)) continue;
    ++groupRows;
    if (g.RowLevel(r) == 0) topCount += g.GroupRowDataCount(r);
    for (int32_t i = 1; i <= g.AggrFuncs().Count(); ++i) {
      try {
        g.GroupRowAggrValue(r, i);
      } catch (const Error& e) {
        if (e.Code() != 13) throw;  // a sum of texts is a type mismatch
      }
    }
  }
  if (g.RowCount() - groupRows != dataRows)
    Complain(to_string(g.RowCount() - groupRows) + " data rows while grouped, " +
             to_string(dataRows) + " before " + when);
  if (properTree && dataRows > 0 && topCount != dataRows)
    Complain("the top groups count " + to_string(topCount) + " data rows of " +
             to_string(dataRows) + " " + when);
}

int32_t RunGroupSession(Quilta& g, const Call& c) {
  const int32_t dataRows = g.RowCount();
  bool properTree = true;  // levels that start above 0 or jump make groups of their own
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    properTree = properTree && g.RowLevel(r) <= (r == 1 ? 0 : g.RowLevel(r - 1) + 1);
  Variant cols = Variant::Array1D(0, static_cast<int32_t>(c.s.size()));
  for (size_t i = 0; i < c.s.size(); ++i)
    cols.SetAt(static_cast<int32_t>(i), c.s[i] == '*' ? Variant(513) : Variant(c.s[i] - '0'));
  g.Group(cols);  // a column that does not exist: 513 with nothing changed
  CheckGrouped(g, dataRows, static_cast<int32_t>(c.s.size()), properTree, "after Group");
  AggrFuncsObject& aggr = g.AggrFuncs();
  if (c.a % 3 == 0 && g.ColCount() > 0) aggr.AddItem(1 + c.a % g.ColCount(), EAggrFuncs(c.a % 8));
  if (c.a % 5 == 1 && aggr.Count() > 0) aggr.RemoveItem(1 + c.a % aggr.Count());
  if (c.a % 7 == 2) {
    const int32_t before = aggr.Count();
    try {
      aggr.AddItem(g.ColCount() + 2);
      Complain("AggrFuncs.AddItem took a column that does not exist");
    } catch (const Error& e) {
      if (e.Code() != 513 || aggr.Count() != before)
        Complain("AggrFuncs.AddItem of no column raised " + to_string(e.Code()));
    }
  }
  std::vector<int32_t> ids;
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    if (!g.RowIsGroupRow(r)) ids.push_back(g.RowTag(r).LongValue());
  for (const CellChange& change : ChangesFor(ids, g.ColCount(), static_cast<uint64_t>(c.b))) {
    g.SetCellValue(DataRowOf(g, change.id), change.col, change.value);
    CheckGrouped(g, dataRows, static_cast<int32_t>(c.s.size()), properTree, "after a cell changed");
  }
  g.Ungroup();
  if (g.GroupedBy().ColCount() != 0) Complain("Ungroup left the grid grouped");
  return 0;
}

std::string AdoptGroupSession(ReferenceModel& m, const GridSnapshot& after, const Call& c) {
  std::vector<CellChange> changes =
      ChangesFor(Ids(m.rows), m.ColCount(), static_cast<uint64_t>(c.b));
  // (Levels that start above 0 or jump sort as entries of their own: proper trees only.)
  bool properTree = true;
  for (int32_t r = 1; r <= m.RowCount(); ++r)
    properTree = properTree && m.Row(r).level <= (r == 1 ? 0 : m.Row(r - 1).level + 1);
  if (std::string complaint = AdoptOrder(m, after); !complaint.empty()) return complaint;
  // Grouping shows the rows under expanded parents again: visible-as-child follows the tree.
  for (size_t i = 0; i < m.rows.size(); ++i)
    m.rows[i].visibleAsChild = after.rows[i].visibleAsChild;
  // Grouping sorts by the first column; the runs of equal whole numbers stay together.
  int32_t first = m.allowSorting && properTree ? c.s[0] - '0' : 0;
  for (int32_t r = 1; r <= m.RowCount() && first > 0; ++r)  // whole numbers only
    if (m.Row(r).level == 0 && m.Row(r).values[static_cast<size_t>(first) - 1].Type() != vbLong)
      first = 0;
  std::set<int32_t> done;
  Variant previous;
  for (int32_t r = 1; r <= m.RowCount() && first > 0; ++r) {
    if (m.Row(r).level != 0) continue;
    const Variant v = m.Row(r).values[static_cast<size_t>(first) - 1];
    // Equal as grouping compares them (a whole number and the same double are one group).
    const VarType pt = previous.Type();
    const bool sameRun = v.Type() == vbLong && r > 1 &&
                         (pt == vbLong || pt == vbDouble || pt == vbEmpty) &&
                         Compare(v, previous) == VarCmpEq;
    previous = v;
    if (v.Type() != vbLong || sameRun) continue;
    if (!done.insert(v.LongValue()).second)
      return "the value " + to_string(v.LongValue()) + " of column " + to_string(first) +
             " forms two runs after grouping";
  }
  for (const CellChange& change : changes)
    m.Row(m.RowOfId(change.id)).values[static_cast<size_t>(change.col) - 1] = change.value;
  return "";
}

CallKind GroupCall() {
  CallKind k;
  k.name = "Group, change cells and aggregates, Ungroup";
  k.weight = 4;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    const int n = Pick(rng, 1, 3);
    for (int i = 0; i < n; ++i)
      c.s += m.ColCount() == 0 || Chance(rng, 4)
                 ? '*'
                 : static_cast<char>('0' + Pick(rng, 1, std::min(m.ColCount(), 9)));
    c.a = Pick(rng, 0, 1000);
    c.b = Pick(rng, 0, 1 << 30);
    return c;
  };
  k.run = RunGroupSession;
  k.expect = [](const ReferenceModel& m, const Call& c) {
    for (char col : c.s)
      if (col == '*' || col - '0' > m.ColCount()) return 513;
    for (const RowState& row : m.rows)  // data rows moved below the groups must fit a byte
      if (row.level + c.s.size() > 255) return 524;
    return 0;
  };
  k.adopt = AdoptGroupSession;
  k.show = [](const Call& c) {
    return "Group(columns " + c.s + "), aggregates " + to_string(c.a) + ", cell changes from " +
           to_string(c.b) + ", Ungroup";
  };
  return k;
}

// ---- Layout strings
// ------------------------------------------------------------------------------

std::string Damaged(const std::string& s, int32_t at) {
  if (s.size() < 2) return "{dpi=96}1|Width";
  std::string cut = s.substr(0, 1 + static_cast<size_t>(at) % (s.size() - 1));
  if (cut.back() == '|') cut += "7";      // a field without its bar
  if (cut.back() == '}') cut += "1|Wid";  // (no items at all would be a valid string)
  return cut;
}

std::string RandomLayoutCol(const Call& c, int32_t cols) {
  Rng rng(static_cast<uint64_t>(c.b));
  std::vector<int32_t> order(static_cast<size_t>(cols));
  for (int32_t i = 0; i < cols; ++i) order[static_cast<size_t>(i)] = i + 1;
  std::shuffle(order.begin(), order.end(), rng);
  std::string s = "{dpi=96}";
  for (int32_t i = 1; i <= cols; ++i)
    s += to_string(i) + "|Width|" + to_string(Pick(rng, 0, 150)) + "|" + to_string(i) + "|Order|" +
         to_string(order[static_cast<size_t>(i) - 1]) + "|" + to_string(i) + "|Visible|" +
         to_string(Chance(rng, 85)) + "|";
  return s;
}

bool KeysWithoutGaps(const Quilta& g) {
  std::vector<int32_t> keys;
  for (int32_t c = 1; c <= g.ColCount(); ++c)
    if (g.ColSortKey(c) > 0) keys.push_back(g.ColSortKey(c));
  std::sort(keys.begin(), keys.end());
  for (size_t i = 0; i < keys.size(); ++i)
    if (keys[i] != static_cast<int32_t>(i) + 1) return false;
  return true;
}

int32_t RunLayout(Quilta& g, const Call& c) {
  const std::string col = g.LayoutCol(), sort = g.LayoutSort();
  const bool keysWithoutGaps = KeysWithoutGaps(g);
  switch (c.a) {
    case 0:  // read back what was written: nothing changes
      g.SetLayoutCol(col);
      g.SetLayoutSort(sort);
      if (g.LayoutCol() != col)
        Complain("LayoutCol read back as " + g.LayoutCol() + ", not " + col);
      // Sort keys with gaps (left by removed sort columns) are read into other criteria.
      if (g.LayoutSort() != sort && keysWithoutGaps)
        Complain("LayoutSort read back as " + g.LayoutSort() + ", not " + sort);
      break;
    case 1:  // a damaged string changes no column
      g.SetLayoutCol(Damaged(col, c.b));
      if (g.LayoutCol() != col)
        Complain("a damaged LayoutCol changed the columns: " + g.LayoutCol());
      break;
    case 2:  // a damaged sort string stops without sorting
      g.SetLayoutSort(Damaged(sort.empty() ? "1|SortKey|1|1|SortOrder|1|" : sort, c.b));
      break;
    default: {  // another arrangement, then read back
      const std::string other = RandomLayoutCol(c, g.ColCount());
      g.SetLayoutCol(other);
      if (g.LayoutCol() != other) Complain("LayoutCol " + other + " read back as " + g.LayoutCol());
    }
  }
  return 0;
}

CallKind LayoutCall() {
  CallKind k;
  k.name = "LayoutCol/LayoutSort";
  k.weight = 4;
  k.make = [](Rng& rng, const ReferenceModel&) {
    Call c;
    c.a = Pick(rng, 0, 3);
    c.b = Pick(rng, 0, 1 << 30);
    return c;
  };
  k.run = RunLayout;
  k.expect = [](const ReferenceModel&, const Call&) { return 0; };
  // Reading LayoutSort sorts again: the rows may take another order, nothing else changes.
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    if (c.a == 0)
      if (std::string complaint = AdoptOrder(m, after); !complaint.empty()) return complaint;
    return AdoptUserAction(m, after, {});
  };
  k.show = [](const Call& c) {
    static const char* const kWhat[] = {"round trip", "damaged LayoutCol", "damaged LayoutSort",
                                        "another LayoutCol"};
    return std::string(kWhat[c.a]) + " (" + to_string(c.b) + ")";
  };
  return k;
}

// ---- Column layout, default cells, properties
// ----------------------------------------------------

CallKind ColumnLayoutCall() {
  CallKind k;
  k.name = "SetColWidth/SetColPos/SetColVisible";
  k.weight = 4;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    c.a = Pick(rng, 0, 2);
    c.v = ColRef(rng, m);
    c.b = c.a == 0   ? Pick(rng, -5, 200)
          : c.a == 1 ? Pick(rng, -1, m.ColCount() + 2)
                     : Chance(rng, 70);
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    if (c.a == 0) g.SetColWidth(c.v, c.b);
    if (c.a == 1) g.SetColPos(c.v, c.b);
    if (c.a == 2) g.SetColVisible(c.v, c.b != 0);
    return 0;
  };
  k.expect = [](const ReferenceModel& m, const Call& c) { return ExpectColumn(m, c.v); };
  k.adopt = AdoptNothingChanged;
  k.show = [](const Call& c) {
    static const char* const kWhat[] = {"SetColWidth(", "SetColPos(", "SetColVisible("};
    return kWhat[c.a] + ShowRef(c.v) + ", " + to_string(c.b) + ")";
  };
  return k;
}

// The default cell's value reaches the cells of rows added later, and only those.
CallKind DefaultCellCall() {
  CallKind k;
  k.name = "ColDefaultCell.vValue";
  k.weight = 2;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    c.v = ColRef(rng, m);
    c.x = Value(rng);
    return c;
  };
  k.run = [](Quilta& g, const Call& c) { return g.ColDefaultCell(c.v)->SetvValue(c.x), 0; };
  k.predict = [](ReferenceModel& m, const Call& c) {
    m.colDefaults[static_cast<size_t>(m.ResolveCol(c.v)) - 1] = c.x;
    return 0;
  };
  k.show = [](const Call& c) {
    return "ColDefaultCell(" + ShowRef(c.v) + ").vValue = " + Show(c.x);
  };
  return k;
}

CallKind ColCellsPropCall() {
  CallKind k;
  k.name = "SetColCellsProp";
  k.weight = 3;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    c.a = Pick(rng, 0, 2);  // value, selected, back colour
    c.v = ColRef(rng, m);
    c.x = c.a == 0 ? Value(rng) : c.a == 1 ? Variant(Chance(rng, 60)) : Variant(Pick(rng, 0, 255));
    const int32_t n = m.RowCount();
    const int32_t start = n ? Pick(rng, 1, n) : 1, end = n ? Pick(rng, start, n) : 1;
    c.w = Chance(rng, 30) ? Variant::Missing() : Chance(rng, 5) ? Variant(n + 1) : Variant(start);
    c.e = Chance(rng, 30) ? -1 : end;
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    static const ECellProperty kProps[] = {quPropCellValue, quPropCellSelected,
                                           quPropCellBackColor};
    g.SetColCellsProp(c.v, kProps[c.a], c.x, c.w, c.e < 0 ? Variant::Missing() : Variant(c.e));
    return 0;
  };
  k.expect = [](const ReferenceModel& m, const Call& c) {
    try {
      m.ResolveCol(c.v);
      const int32_t start = IsGiven(c.w) ? m.ResolveRow(c.w) : 1;
      const int32_t end = c.e < 0 ? m.RowCount() : m.ResolveRow(c.e);
      if (c.a == 1 && c.x.LongValue() != 0 && !m.multiSelect && end > start) return 514;
    } catch (const ExpectedError& e) {
      return m.RowCount() == 0 ? kAnyOutcome : e.code;
    }
    return 0;
  };
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    if (c.a != 0) return AdoptUserAction(m, after, {});
    const int32_t col = m.ResolveCol(c.v);
    const int32_t start = IsGiven(c.w) ? m.ResolveRow(c.w) : 1;
    const int32_t end = c.e < 0 ? m.RowCount() : m.ResolveRow(c.e);
    for (int32_t r = start; r <= end; ++r) m.Row(r).values[static_cast<size_t>(col) - 1] = c.x;
    return AdoptUserAction(m, after, {});
  };
  k.show = [](const Call& c) {
    static const char* const kProps[] = {"value", "selected", "back colour"};
    return std::string("SetColCellsProp(") + ShowRef(c.v) + ", " + kProps[c.a] + ", " + Show(c.x) +
           ", " + ShowRef(c.w) + ", " + (c.e < 0 ? "Missing" : to_string(c.e)) + ")";
  };
  return k;
}

CallKind PropertyCall() {
  CallKind k;
  k.name = "control properties";
  k.weight = 3;
  k.make = [](Rng& rng, const ReferenceModel&) {
    Call c;
    c.a = Pick(rng, 0, 7);
    c.b = c.a == 7 ? Pick(rng, -1, 4) : Chance(rng, c.a == 1 ? 85 : 60);
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    const bool on = c.b != 0;
    switch (c.a) {
      case 0:
        g.SetEditable(on);
        break;
      case 1:
        g.SetEnabled(on);
        break;
      case 2:
        g.SetCopyPasteEnabled(on);
        break;
      case 3:
        g.SetAllowSorting(on);
        break;
      case 4:
        g.SetDrawRowText(on);
        break;
      case 5:
        g.SetSkipNonSelectableCells(on);
        break;
      case 6:
        g.SetDragSelect(on);
        break;
      default:
        g.SetFrozenCols(c.b);
    }
    return 0;
  };
  k.expect = [](const ReferenceModel&, const Call& c) { return c.a == 7 ? kAnyOutcome : 0; };
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    if (c.a == 3) m.allowSorting = c.b != 0;
    return AdoptUserAction(m, after, {});
  };
  k.show = [](const Call& c) {
    static const char* const kNames[] = {"Editable",     "Enabled",     "CopyPasteEnabled",
                                         "AllowSorting", "DrawRowText", "SkipNonSelectableCells",
                                         "DragSelect",   "FrozenCols"};
    return std::string("Set") + kNames[c.a] + "(" + to_string(c.b) + ")";
  };
  return k;
}

// ---- The clipboard
// -------------------------------------------------------------------------------

// Rows of tab-separated values, sometimes quoted with a line feed, sometimes one value alone.
std::string ClipboardText(Rng& rng) {
  static const char* const kCells[] = {"1", "t2", "2.5", "", "x\ny", "\"q\"", "-3", "abc"};
  const int rows = Pick(rng, 1, 4), cols = Pick(rng, 1, 4);
  std::string s;
  for (int r = 0; r < rows; ++r) {
    if (r) s += "\r\n";
    for (int c = 0; c < cols; ++c) {
      if (c) s += "\t";
      const std::string cell = kCells[Pick(rng, 0, 7)];
      s += cell.find('\n') != std::string::npos ? "\"" + cell + "\"" : cell;
    }
  }
  return Chance(rng, 20) ? s + "\r\n" : s;
}

CallKind ClipboardCall() {
  CallKind k;
  k.name = "clipboard keys";
  k.weight = 6;
  k.make = [](Rng& rng, const ReferenceModel&) {
    static const int16_t kKeys[][2] = {{67, 2}, {67, 3}, {88, 2}, {46, 0}, {86, 2}, {86, 2}};
    Call c;
    const int i = Pick(rng, 0, 5);
    c.a = kKeys[i][0];
    c.b = kKeys[i][1];
    c.c = Chance(rng, 50);  // through HostKeyDown
    if (Chance(rng, 70)) c.s = ClipboardText(rng);
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    if (!c.s.empty())
      if (auto* headless = dynamic_cast<HeadlessPlatform*>(&g.GetPlatform()))
        headless->SetClipboardTextFromOtherProgram(c.s);
    const auto key = static_cast<int16_t>(c.a), shift = static_cast<int16_t>(c.b);
    c.c ? g.HostKeyDown(key, shift) : g.DoKeyboardCommand(key, shift);
    // Rows a paste added get tags, so that the model can follow them.
    for (int32_t r = 1, next = c.d; r <= g.RowCount(); ++r)
      if (g.RowTag(r).Type() != vbLong) g.SetRowTag(r, next++);
    return 0;
  };
  k.expect = [](const ReferenceModel&, const Call&) { return 0; };
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    // Cells that may change: the selected ones (cut, Delete, a paste into the selection), and a
    // paste block from the current cell or the selection's top left corner, rows going down
    // through hidden rows and columns across hidden ones, in the order the columns are shown.
    // Columns keep their positions through a paste (added ones come last), so the positions
    // read after it place the block.
    const std::vector<int32_t>& colPos = after.colPos;
    auto pos = [&colPos](int32_t col) {
      return col >= 1 && col <= static_cast<int32_t>(colPos.size())
                 ? colPos[static_cast<size_t>(col) - 1]
                 : col;
    };
    // The block starts at the current cell, or at the top left of the selection when that is
    // one rectangle: either origin is accepted.
    struct Origin {
      int32_t top = 0, left = 0;
    };
    Origin current{m.RowOfId(m.curId), m.curCol ? pos(m.curCol) : 0}, selected;
    for (int32_t r = m.RowCount(); r >= 1; --r)
      for (size_t col = 0; col < m.Row(r).selected.size(); ++col)
        if (m.Row(r).selected[col]) {
          const int32_t p = pos(static_cast<int32_t>(col) + 1);
          selected.top = selected.top ? std::min(selected.top, r) : r;
          selected.left = selected.left ? std::min(selected.left, p) : p;
        }
    int32_t lines = 1, width = 1;
    for (size_t i = 0, w = 1; i < c.s.size(); ++i) {
      if (c.s[i] == '\n' && i > 0 && c.s[i - 1] == '\r') ++lines, w = 1;
      if (c.s[i] == '\t') width = std::max(width, static_cast<int32_t>(++w));
    }
    const bool paste = c.a == 86;
    Allowed allowed;
    const ReferenceModel before = m;
    // With no new text the clipboard still holds an earlier one, perhaps the grid's own copied
    // block, whose shape the call does not know: any cell may take part then.
    const bool blockUnknown = paste && c.s.empty();
    allowed.cell = [&before, &pos, current, selected, lines, width, paste, blockUnknown](
                       int32_t r, int32_t col) {
      if (blockUnknown || before.Row(r).selected[static_cast<size_t>(col) - 1]) return true;
      const int32_t p = pos(col);
      auto inBlockFrom = [&](Origin o) {
        return o.top && r >= o.top && p >= std::max(1, o.left) &&
               p < std::max(1, o.left) + width + 4 && r < o.top + lines + 64;
      };
      return paste && (inBlockFrom(current) || inBlockFrom(selected));
    };
    allowed.rowsAndColsAdded = paste;
    return AdoptUserAction(m, after, allowed);
  };
  k.show = [](const Call& c) {
    std::string text;
    for (char ch : c.s)
      text += ch == '\t' ? "\\t" : ch == '\r' ? "\\r" : ch == '\n' ? "\\n" : std::string(1, ch);
    return std::string(c.c ? "HostKeyDown(" : "DoKeyboardCommand(") + to_string(c.a) + ", " +
           to_string(c.b) + ") with clipboard \"" + text + "\"";
  };
  return k;
}

}  // namespace

void AddExchangeCalls(RandomCallTable& t) {
  t.Add(GroupCall());
  t.Add(LayoutCall());
  t.Add(ColumnLayoutCall());
  t.Add(DefaultCellCall());
  t.Add(ColCellsPropCall());
  t.Add(PropertyCall());
  t.Add(ClipboardCall());
}

}  // namespace quilta::testkit

// Random calls of the grid's interactive side: the current cell and the selection, keys and key
// search, in-cell editing with host handlers that refuse, correct or throw, and the mouse. Where
// the grid's answer is its own choice (the cell a key moves to, the selection after a click),
// the calls check invariants and take the grid's state into the model.
#include <algorithm>
#include <set>
#include <string>

#include "consistency_checker.hpp"
#include "random_calls_support.hpp"

namespace quilta::testkit {
namespace {

using std::to_string;

constexpr int16_t kShift = 1, kCtrl = 2, kAlt = 4;

std::string Flag(int32_t b) { return b ? "true" : "false"; }

// Shown rows: neither hidden nor inside a collapsed node.
bool Shown(const Quilta& g, int32_t r) { return g.RowVisible(r) && g.RowVisibleAsChild(r); }

void Complain(const std::string& what) { throw Complaint{what}; }

std::string AdoptNavigation(ReferenceModel& m, const GridSnapshot& after, const Call&) {
  return AdoptUserAction(m, after, {});
}

std::string AdoptKeyOrMouse(ReferenceModel& m, const GridSnapshot& after, const Call&) {
  Allowed allowed;
  allowed.tree = allowed.editedCell = true;
  return AdoptUserAction(m, after, allowed);
}

// ---- Current cell and selection -----------------------------------------------------------------

CallKind SetCurCellCall() {
  CallKind k;
  k.name = "SetCurCell";
  k.weight = 6;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    c.v = RowRef(rng, m);
    c.w = ColRef(rng, m);
    return c;
  };
  k.run = [](Quilta& g, const Call& c) { return g.SetCurCell(c.v, c.w), 0; };
  k.expect = [](const ReferenceModel& m, const Call& c) {
    try {
      m.ResolveRow(c.v);
      m.ResolveCol(c.w);
    } catch (const ExpectedError& e) {
      return e.code;
    }
    return 0;
  };
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    const int32_t row = m.ResolveRow(c.v), col = m.ResolveCol(c.w);
    if (after.curRow != row || after.curCol != col)
      return "the current cell is (" + to_string(after.curRow) + ", " + to_string(after.curCol) +
             "), not (" + to_string(row) + ", " + to_string(col) + ")";
    return AdoptUserAction(m, after, {});
  };
  k.show = [](const Call& c) { return "SetCurCell(" + ShowRef(c.v) + ", " + ShowRef(c.w) + ")"; };
  return k;
}

CallKind SetCellSelectedCall() {
  CallKind k;
  k.name = "SetCellSelected";
  k.weight = 6;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    c.v = RowRef(rng, m);
    c.w = ColRef(rng, m);
    c.a = Chance(rng, 70);
    return c;
  };
  k.run = [](Quilta& g, const Call& c) { return g.SetCellSelected(c.v, c.w, c.a != 0), 0; };
  k.expect = [](const ReferenceModel& m, const Call& c) {
    try {
      m.ResolveRow(c.v);
      m.ResolveCol(c.w);
    } catch (const ExpectedError& e) {
      return e.code;
    }
    return 0;
  };
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    const int32_t row = m.ResolveRow(c.v), col = m.ResolveCol(c.w);
    const bool now =
        after.rows[static_cast<size_t>(row) - 1].selected[static_cast<size_t>(col) - 1];
    // Every cell is selectable here, so in multiselection cell mode the bit is what was asked.
    if (m.multiSelect && !m.rowMode && now != (c.a != 0))
      return "CellSelected(" + to_string(row) + ", " + to_string(col) + ") reads " + Flag(now) +
             " after it was set to " + Flag(c.a);
    // (A grid without columns keeps its selection where it is, so a cell can stay selected
    // away from the current one; selecting it again then changes nothing.)
    const bool already = m.Row(row).selected[static_cast<size_t>(col) - 1];
    if (!m.multiSelect && c.a && !already && m.ColCount() > 0 &&
        (after.curRow != row || (!m.rowMode && after.curCol != col)))
      return std::string("selecting a cell in single selection did not make it current");
    return AdoptUserAction(m, after, {});
  };
  k.show = [](const Call& c) {
    return "SetCellSelected(" + ShowRef(c.v) + ", " + ShowRef(c.w) + ", " + Flag(c.a) + ")";
  };
  return k;
}

// The selected bits of the shown rows in the visible columns, read before and after a call.
std::vector<std::vector<bool>> Bits(const Quilta& g) {
  std::vector<std::vector<bool>> bits(static_cast<size_t>(g.RowCount()));
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    for (int32_t c = 1; c <= g.ColCount(); ++c) bits[r - 1].push_back(g.CellSelected(r, c));
  return bits;
}

CallKind SelectAllCall() {
  CallKind k;
  k.name = "SelectAll";
  k.weight = 2;
  k.make = [](Rng&, const ReferenceModel&) { return Call{}; };
  k.run = [](Quilta& g, const Call&) {
    // A selection whose item count says "everything" is taken as complete and left alone.
    const int64_t all = g.RowMode() ? g.RowCount() : int64_t{g.RowCount()} * g.ColCount();
    const bool countSaysAll = g.SelItems().Count() == all;
    g.SelectAll();
    if (countSaysAll) return 0;
    for (int32_t r = 1; r <= g.RowCount(); ++r)
      for (int32_t c = 1; c <= g.ColCount() && Shown(g, r); ++c)
        if (g.ColVisible(c) && !g.CellSelected(r, c))
          Complain("SelectAll left cell (" + to_string(r) + ", " + to_string(c) + ") unselected");
    return 0;
  };
  k.expect = [](const ReferenceModel& m, const Call&) { return m.multiSelect ? 0 : 522; };
  k.adopt = AdoptNavigation;
  k.show = [](const Call&) { return std::string("SelectAll()"); };
  return k;
}

CallKind InvertSelectionCall() {
  CallKind k;
  k.name = "InvertSelection";
  k.weight = 2;
  k.make = [](Rng&, const ReferenceModel&) { return Call{}; };
  k.run = [](Quilta& g, const Call&) {
    const auto before = Bits(g);
    g.InvertSelection();
    const auto after = Bits(g);
    if (g.RowMode()) return 0;
    for (int32_t r = 1; r <= g.RowCount(); ++r)
      for (int32_t c = 1; c <= g.ColCount(); ++c) {
        const bool inverted = after[r - 1][c - 1] != before[r - 1][c - 1];
        if (inverted != (Shown(g, r) && g.ColVisible(c)))
          Complain("InvertSelection " + std::string(inverted ? "inverted" : "kept") + " cell (" +
                   to_string(r) + ", " + to_string(c) + ")");
      }
    return 0;
  };
  k.expect = [](const ReferenceModel& m, const Call&) { return m.multiSelect ? 0 : 522; };
  k.adopt = AdoptNavigation;
  k.show = [](const Call&) { return std::string("InvertSelection()"); };
  return k;
}

CallKind ClearSelectionCall() {
  CallKind k;
  k.name = "ClearSelection";
  k.weight = 2;
  k.make = [](Rng&, const ReferenceModel&) { return Call{}; };
  k.run = [](Quilta& g, const Call&) { return g.ClearSelection(), 0; };
  k.expect = [](const ReferenceModel&, const Call&) { return 0; };
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call&) {
    if (after.selCount != 0) return std::string("ClearSelection left items in SelItems");
    for (const RowState& row : after.rows)
      for (bool on : row.selected)
        if (on) return "ClearSelection left row id " + to_string(row.id) + " selected";
    return AdoptUserAction(m, after, {});
  };
  k.show = [](const Call&) { return std::string("ClearSelection()"); };
  return k;
}

CallKind SelectionModeCall() {
  CallKind k;
  k.name = "SetMultiSelect/SetRowMode";
  k.weight = 3;
  k.make = [](Rng& rng, const ReferenceModel&) {
    Call c;
    c.a = Pick(rng, 0, 1);  // 0 MultiSelect, 1 RowMode
    c.b = Chance(rng, 60);
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    c.a ? g.SetRowMode(c.b != 0) : g.SetMultiSelect(c.b != 0);
    return 0;
  };
  k.expect = [](const ReferenceModel&, const Call&) { return 0; };
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    if ((c.a ? after.rowMode : after.multiSelect) != (c.b != 0))
      return std::string("the selection mode was not set");
    return AdoptUserAction(m, after, {});
  };
  k.show = [](const Call& c) {
    return std::string(c.a ? "SetRowMode(" : "SetMultiSelect(") + Flag(c.b) + ")";
  };
  return k;
}

// SelItems read every way it can be: Count, GetArray sorted and unsorted, with bounds, GetString.
CallKind SelItemsReadCall() {
  CallKind k;
  k.name = "SelItems reads";
  k.weight = 2;
  k.make = [](Rng&, const ReferenceModel&) { return Call{}; };
  k.run = [](Quilta& g, const Call&) {
    SelItemsObject& items = g.SelItems();
    int32_t minRow = 0, maxRow = 0, minCol = 0, maxCol = 0;
    const std::vector<TSelItemInfo> sorted = items.GetArray(minRow, maxRow, minCol, maxCol);
    std::string text;
    for (const TSelItemInfo& i : sorted) {
      if (!g.CellSelected(i.Row, g.RowMode() ? 1 : i.Col) && !g.RowMode())
        Complain("listed item (" + to_string(i.Row) + ", " + to_string(i.Col) + ") unselected");
      text += ";(" + to_string(i.Row) + "," + to_string(i.Col) + ")";
      if (i.Row < minRow || i.Row > maxRow || i.Col < minCol || i.Col > maxCol)
        Complain("GetArray bounds do not hold its items");
    }
    if (!text.empty()) text.erase(0, 1);
    if (items.GetString() != text) Complain("GetString \"" + items.GetString() + "\" vs " + text);
    if (sorted.empty() && (minRow != 2147483647 || maxRow != 0))
      Complain("empty GetArray bounds " + to_string(minRow) + ".." + to_string(maxRow));
    items.SetSorted(false);
    std::vector<TSelItemInfo> raw = items.GetArray();
    items.SetSorted(true);
    std::sort(raw.begin(), raw.end(), [](const TSelItemInfo& a, const TSelItemInfo& b) {
      return a.Row != b.Row ? a.Row < b.Row : a.Col < b.Col;
    });
    if (raw != sorted) Complain("unsorted GetArray holds other items than the sorted one");
    return 0;
  };
  k.predict = [](ReferenceModel&, const Call&) { return 0; };
  k.show = [](const Call&) { return std::string("SelItems reads"); };
  return k;
}

// ---- Keys ---------------------------------------------------------------------------------------

const int16_t kKeys[] = {38, 40,  37,  39,  36, 35, 33,  34, 9,  13, 27, 113, 115,
                         32, 107, 109, 106, 65, 93, 121, 8,  38, 40, 40, 39,  37};

int16_t Modifiers(Rng& rng) {
  const int roll = Pick(rng, 1, 100);
  if (roll <= 50) return 0;
  if (roll <= 70) return kShift;
  if (roll <= 85) return kCtrl;
  if (roll <= 95) return kShift | kCtrl;
  return kAlt;
}

CallKind KeyCall() {
  CallKind k;
  k.name = "DoKeyboardCommand/HostKeyDown";
  k.weight = 14;
  k.make = [](Rng& rng, const ReferenceModel&) {
    Call c;
    c.a = kKeys[Pick(rng, 0, static_cast<int>(std::size(kKeys)) - 1)];
    c.b = Modifiers(rng);
    c.c = Chance(rng, 50);  // through HostKeyDown
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    const auto key = static_cast<int16_t>(c.a), shift = static_cast<int16_t>(c.b);
    c.c ? g.HostKeyDown(key, shift) : g.DoKeyboardCommand(key, shift);
    return 0;
  };
  k.expect = [](const ReferenceModel&, const Call&) { return 0; };
  k.adopt = AdoptKeyOrMouse;
  k.show = [](const Call& c) {
    return std::string(c.c ? "HostKeyDown(" : "DoKeyboardCommand(") + to_string(c.a) + ", " +
           to_string(c.b) + ")";
  };
  return k;
}

// Characters that match the values the random calls write ("t3", 12, 2.5) and some that don't.
CallKind KeyPressCall() {
  CallKind k;
  k.name = "HostKeyPress";
  k.weight = 5;
  k.make = [](Rng& rng, const ReferenceModel&) {
    static const char kChars[] = "t1230.5 xT-";
    Call c;
    c.a = kChars[Pick(rng, 0, static_cast<int>(sizeof kChars) - 2)];
    if (Chance(rng, 5)) c.a = Chance(rng, 50) ? 8 : 13;
    return c;
  };
  k.run = [](Quilta& g, const Call& c) { return g.HostKeyPress(static_cast<int16_t>(c.a)), 0; };
  k.expect = [](const ReferenceModel&, const Call&) { return 0; };
  k.adopt = AdoptKeyOrMouse;
  k.show = [](const Call& c) { return "HostKeyPress(" + to_string(c.a) + ")"; };
  return k;
}

// What a typed character does, and the column key search reads.
CallKind KeyPressBehaviourCall() {
  CallKind k;
  k.name = "SetKeyPressBehaviour/SetKeySearchCol";
  k.weight = 2;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    c.a = Pick(rng, 0, 1);
    c.b = c.a ? Pick(rng, -1, m.ColCount() + 2) : Pick(rng, Chance(rng, 5) ? -1 : 0, 4);
    c.c = Chance(rng, 30);  // KeySearchLoop
    c.e = Chance(rng, 30);  // KeySearchFromCurRow
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    g.SetKeySearchLoop(c.c != 0);
    g.SetKeySearchFromCurRow(c.e != 0);
    if (c.a)
      g.SetKeySearchCol(c.b);
    else
      g.SetKeyPressBehaviour(static_cast<EKeyPressBehaviour>(c.b));
    return 0;
  };
  k.expect = [](const ReferenceModel& m, const Call& c) {
    if (c.a) return c.b < 0 || c.b > m.ColCount() + 1 ? 513 : 0;
    return c.b < 0 || c.b > 4 ? kAnyOutcome : 0;
  };
  k.adopt = AdoptNavigation;
  k.show = [](const Call& c) {
    return std::string(c.a ? "SetKeySearchCol(" : "SetKeyPressBehaviour(") + to_string(c.b) +
           "), loop " + to_string(c.c) + ", from current row " + to_string(c.e);
  };
  return k;
}

// ---- Editing ------------------------------------------------------------------------------------

enum EditSinkMode { kPlain, kVetoRequest, kThrowRequest, kCancelCommit, kCorrect, kThrowCommit };

struct EditSink : QuiltaEvents {
  int mode = kPlain;
  void RequestEdit(int32_t, int32_t, int32_t, bool& bCancel, std::string&, int32_t&,
                   ETextEditFlags&) override {
    if (mode == kThrowRequest) throw HostHandlerFailure{};
    bCancel = mode == kVetoRequest;
  }
  void BeforeCommitEdit(int32_t, int32_t, EEditResults& eResult, const std::string&,
                        Variant& vNewValue, int32_t, bool, int32_t&) override {
    if (mode == kThrowCommit) throw HostHandlerFailure{};
    if (mode == kCancelCommit) eResult = quEditResCancel;
    if (mode == kCorrect) vNewValue = 4711;
  }
};

HeadlessTextBox* TextBoxOf(Quilta& g) {
  auto* headless = dynamic_cast<HeadlessPlatform*>(&g.GetPlatform());
  return headless ? headless->ActiveTextBox() : nullptr;
}

// Starts an edit of the current cell, types into the text box, then commits or cancels it (or
// leaves it open), with a host that refuses, corrects or throws.
int32_t RunEdit(Quilta& g, const Call& c) {
  EditSink sink;
  sink.mode = c.a;
  const bool wasEditing = g.IsEditing();
  const int32_t row = g.CurRow(), col = g.CurCol();
  const Variant before = row && col ? g.CellValue(row, col) : Variant();
  g.SetEventSink(&sink);
  struct Detach {
    Quilta& g;
    ~Detach() { g.SetEventSink(nullptr); }
  } detach{g};
  g.RequestEditCurCell(c.b, false);
  const bool opened = !wasEditing && g.IsEditing();
  if (c.a == kVetoRequest && opened) Complain("an edit refused in RequestEdit started");
  if (HeadlessTextBox* box = TextBoxOf(g); box && g.IsEditing()) {
    if (c.e & 1) box->SetSelection(0, static_cast<int32_t>(box->Text().size()));
    box->Type(c.s);
  }
  if (c.c == 2) return 0;  // left open
  if (c.c == 1) return g.CancelEditCurCell(), 0;
  try {
    g.CommitEditCurCell();
  } catch (const HostHandlerFailure&) {
    if (!g.IsEditing()) Complain("a commit whose BeforeCommitEdit threw ended the edit");
    g.SetEventSink(nullptr);
    if (opened) g.CancelEditCurCell();
    throw;
  }
  if (!opened || g.IsEditing()) return 0;
  const Variant now = g.CellValue(row, col);
  if (c.a == kCorrect && !(now == Variant(4711)))
    Complain("the corrected value 4711 was not stored in (" + to_string(row) + ", " +
             to_string(col) + "): " + Show(now));
  if (c.a == kCancelCommit && !(now == before))
    Complain("an edit cancelled in BeforeCommitEdit changed the cell");
  return 0;
}

CallKind EditCall() {
  CallKind k;
  k.name = "edit the current cell";
  k.weight = 8;
  k.make = [](Rng& rng, const ReferenceModel&) {
    static const char* const kTexts[] = {"", "7", "12", "2.5", "t3", "abc", "-4", "1e3", "x y"};
    Call c;
    c.a = Pick(rng, kPlain, kThrowCommit);
    c.b = Chance(rng, 70) ? 0 : Chance(rng, 50) ? 13 : 't';
    c.c = Chance(rng, 65) ? 0 : Chance(rng, 60) ? 1 : 2;  // commit, cancel, leave open
    c.e = Pick(rng, 0, 1);
    c.s = kTexts[Pick(rng, 0, static_cast<int>(std::size(kTexts)) - 1)];
    return c;
  };
  k.run = RunEdit;
  k.expect = [](const ReferenceModel&, const Call& c) {
    return c.a == kThrowRequest || c.a == kThrowCommit ? kAnyOutcome : 0;
  };
  k.adopt = AdoptKeyOrMouse;
  k.show = [](const Call& c) {
    static const char* const kModes[] = {"plain",
                                         "RequestEdit refuses",
                                         "RequestEdit throws",
                                         "BeforeCommitEdit cancels",
                                         "BeforeCommitEdit corrects to 4711",
                                         "BeforeCommitEdit throws"};
    static const char* const kEnds[] = {"commit", "cancel", "leave open"};
    return "RequestEditCurCell(" + to_string(c.b) + "), type \"" + c.s + "\"" +
           (c.e ? " over the text" : "") + ", " + kEnds[c.c] + "; host: " + kModes[c.a];
  };
  return k;
}

// ---- The mouse ----------------------------------------------------------------------------------

enum Target { kInCell, kTreeButton, kHeader, kOutside };

// The point of a mouse call, from the cell the model chose and the grid's layout now.
void PointOf(const Quilta& g, const Call& c, int32_t& x, int32_t& y) {
  const int32_t row = std::min(c.v.LongValue(), g.RowCount());
  const int32_t col = std::min(c.w.LongValue(), g.RowTextCol());
  int32_t left = 0, top = 0, width = 0, height = 0;
  const bool cell = row >= 1 && col >= 1;
  if (cell) g.CellBoundary(row, col, left, top, width, height);
  switch (cell || c.a == kHeader ? c.a : kOutside) {
    case kInCell:
      x = left + width * c.b / 100, y = top + height * c.c / 100;
      break;
    case kTreeButton:
      x = left + 2 + g.LevelIndent() * g.RowLevel(row) + c.b % 12, y = top + height / 2;
      break;
    case kHeader:
      x = c.b * 4, y = c.c % std::max(1, g.Header().Height());
      break;
    default:
      x = c.b % 2 ? -3 : 790 + c.b, y = c.c % 2 ? 5000 : c.c * 6;
  }
}

CallKind MouseCall() {
  CallKind k;
  k.name = "mouse";
  k.weight = 12;
  k.make = [](Rng& rng, const ReferenceModel& m) {
    Call c;
    const int roll = Pick(rng, 1, 100);
    c.a = roll <= 70 ? kInCell : roll <= 82 ? kTreeButton : roll <= 92 ? kHeader : kOutside;
    c.v = Pick(rng, 1, std::max(1, m.RowCount()));
    c.w = Pick(rng, 1, m.ColCount() + 1);
    c.b = Pick(rng, 0, 99);
    c.c = Pick(rng, 0, 99);
    c.e = Chance(rng, 85) ? 1 : Chance(rng, 60) ? 2 : 4;  // button
    c.x = Modifiers(rng);
    c.d = 0;
    c.s = std::string(1, "dcmbk"[Pick(rng, 0, 4)]);  // down, click, move, drag, double click
    return c;
  };
  k.run = [](Quilta& g, const Call& c) {
    int32_t x = 0, y = 0;
    PointOf(g, c, x, y);
    const auto button = static_cast<int16_t>(c.e);
    const auto shift = static_cast<int16_t>(c.x.LongValue());
    switch (c.s[0]) {
      case 'd':
        g.HostMouseDown(button, shift, x, y);
        break;
      case 'c':
        g.HostMouseDown(button, shift, x, y);
        g.HostMouseUp(button, shift, x, y);
        break;
      case 'm':
        g.HostMouseMove(0, shift, x, y);
        break;
      case 'b':
        g.HostMouseDown(button, shift, x, y);
        g.HostMouseMove(button, shift, x + 7, y + 40);
        g.HostMouseUp(button, shift, x + 7, y + 40);
        break;
      default:
        g.HostMouseDown(button, shift, x, y);
        g.HostMouseUp(button, shift, x, y);
        g.HostDblClick(button, shift, x, y);
        g.HostMouseUp(button, shift, x, y);
    }
    return 0;
  };
  k.expect = [](const ReferenceModel&, const Call&) { return 0; };
  // A click on the header sorts by its column.
  k.adopt = [](ReferenceModel& m, const GridSnapshot& after, const Call& c) {
    // (A cell scrolled out of view may put the point on the header too.)
    if (c.a != kOutside)
      if (std::string complaint = AdoptOrder(m, after); !complaint.empty()) return complaint;
    return AdoptKeyOrMouse(m, after, c);
  };
  k.show = [](const Call& c) {
    static const char* const kTargets[] = {"in cell", "on the tree button of", "on the header",
                                           "outside"};
    static const std::string kWhat = "dcmbk";
    static const char* const kNames[] = {"press", "click", "move", "drag", "double click"};
    return std::string(kNames[kWhat.find(c.s[0])]) + " " + kTargets[c.a] + " (" +
           to_string(c.v.LongValue()) + ", " + to_string(c.w.LongValue()) + ") at " +
           to_string(c.b) + "%/" + to_string(c.c) + "%, button " + to_string(c.e) + ", shift " +
           to_string(c.x.LongValue());
  };
  return k;
}

}  // namespace

void AddInteractionCalls(RandomCallTable& t) {
  t.Add(SetCurCellCall());
  t.Add(SetCellSelectedCall());
  t.Add(SelectAllCall());
  t.Add(InvertSelectionCall());
  t.Add(ClearSelectionCall());
  t.Add(SelectionModeCall());
  t.Add(SelItemsReadCall());
  t.Add(KeyCall());
  t.Add(KeyPressCall());
  t.Add(KeyPressBehaviourCall());
  t.Add(EditCall());
  t.Add(MouseCall());
}

}  // namespace quilta::testkit

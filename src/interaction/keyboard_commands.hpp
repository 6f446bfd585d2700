// What a key does outside the in-cell editor: DoKeyboardCommand and its key table.
//
// Stepping rules:
// - A cell can take the focus when its column is shown (visible, width at least 1) and, with
//   SkipNonSelectableCells, it is selectable. In a group row only the row-text cell takes it; in
//   other rows the row-text column never does.
// - Left and Right walk the shown columns in display order, frozen and scrolled columns alike, so
//   every column is reachable by the keyboard whether or not BrowseAllNonFrozenCols is set (that
//   property only concerns how far scrolling follows). A step does not wrap to the next or
//   previous row, and a step at the grid's edge does nothing at all (no event).
// - Up and Down walk the rows that are visible (not hidden, not inside a collapsed node). Leaving
//   a group row for an ordinary row goes back to the column the focus had before.
// - With no current cell, the arrows go to the first focusable cell of the first row.
#pragma once

#include <cstdint>

#include "interaction/key_search.hpp"
#include "interaction/selection.hpp"
#include "interaction/sites.hpp"
#include "model/control_properties.hpp"
#include "model/grid_store.hpp"

namespace quilta::interaction {

enum KeyCode : int32_t {
  kKeyBack = 8,
  kKeyTab = 9,
  kKeyEnter = 13,
  kKeyEsc = 27,
  kKeySpace = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyDelete = 46,
  kKeyA = 65,
  kKeyC = 67,
  kKeyV = 86,
  kKeyX = 88,
  kKeyApps = 93,
  kKeyMultiply = 106,
  kKeyAdd = 107,
  kKeySubtract = 109,
  kKeyF2 = 113,
  kKeyF4 = 115,
  kKeyF10 = 121,
};

class KeyboardCommands {
 public:
  KeyboardCommands(model::GridStore& store, const model::ControlProperties& props,
                   Selection& selection, KeySearch& search, ViewSite& view, CommandSite& commands,
                   SelectionSite& site)
      : store_(store),
        props_(props),
        sel_(selection),
        search_(search),
        view_(view),
        commands_(commands),
        site_(site) {}

  void DoKeyboardCommand(int32_t key, int32_t shift);
  // Set by the commands that change rows, check boxes or the selection; the character of the
  // same key is then not typed.
  bool ActionDone() const { return actionDone_; }
  void ResetActionDone() { actionDone_ = false; }

 private:
  bool Prop(model::Prop p) const { return props_.Bool(p); }
  bool HasCurrent() const;
  bool RowTakesPart(int32_t row) const;
  bool CanFocus(int32_t row, int32_t col) const;
  // The next focusable column from a display slot in a direction (the slot itself first when
  // `inclusive`); 0 when none.
  int32_t FocusableColFrom(int32_t row, int32_t slot, int step, bool inclusive) const;
  int32_t NextRow(int32_t from, int step) const;
  // The column to take on arriving at a row from the current column.
  int32_t ColumnOnArrival(int32_t row, int32_t col) const;
  bool FirstCell(int32_t& row, int32_t& col) const;
  bool Dispatch(int32_t key, int32_t shift);
  bool Horizontal(int step, int32_t& row, int32_t& col);
  bool Vertical(int step, int32_t& row, int32_t& col);
  bool HomeEnd(bool home, int32_t shift, int32_t& row, int32_t& col);
  bool Page(int step, int32_t& row, int32_t& col);
  void CollapseExpand(bool expand);
  void ExpandAll();
  void ScrollDisabled(int32_t key);
  void Move(int32_t row, int32_t col, int32_t shift);

  model::GridStore& store_;
  const model::ControlProperties& props_;
  Selection& sel_;
  KeySearch& search_;
  ViewSite& view_;
  CommandSite& commands_;
  SelectionSite& site_;
  bool actionDone_ = false;
  int32_t dataCol_ = 0;  // the column the focus left its last ordinary row from
};

}  // namespace quilta::interaction

// QuiltaEvents: the control's event interface. Override only what you handle; every member has an
// empty default body. Events are raised synchronously on the caller's thread.
//
// Handlers that throw. A handler may throw any C++ exception. The grid does not catch it: it
// reaches the caller of the public member that raised the event, unchanged. The grid is left
// consistent, and the operation happened either completely or not at all:
// - an event raised before the operation changes anything (the Before... events, QuitCustomEdit,
//   ColHeaderClick) stops it: nothing has changed;
// - an event raised while the operation works (CustomSort, CustomGroupValue, the dynamic content
//   events during a sort) undoes what was done so far: a sort puts the rows and the sort
//   criteria back as they were;
// - an event raised once the operation is complete (the After... events, AfterContentsSorted)
//   leaves it complete;
// - RequestRow and RequestRowData add rows one at a time: the rows already added stay, each
//   complete (a row whose RequestRowData threw stays with the cells it has).
// Events added later follow the same rule.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/enums.hpp>
#include <quilta/font.hpp>
#include <quilta/platform/painter.hpp>
#include <quilta/variant.hpp>
#include <string>

namespace quilta {

class QuiltaEvents {
 public:
  virtual ~QuiltaEvents() = default;

  // Selection and current cell.
  virtual void BeforeSelectionChange() {}
  virtual void CellSelectionChange(int32_t /*lRow*/, int32_t /*lCol*/, bool /*bSelected*/) {}
  virtual void AfterSelectionChange(bool /*bSelContentsChanged*/) {}
  virtual void CurCellChange(int32_t /*lNewRow*/, int32_t /*lNewCol*/, int32_t /*lOldRow*/,
                             int32_t /*lOldCol*/) {}
  virtual void CurRowChange(int32_t /*lNewRow*/, int32_t /*lOldRow*/) {}
  virtual void CurColChange(int32_t /*lNewCol*/, int32_t /*lOldCol*/) {}

  // Keys routed to the grid (not raised while a cell is being edited). KeyDown may change the key
  // and the modifiers that DoKeyboardCommand then gets, or clear bDoDefault to stop it; KeyPress
  // may change the character, 0 dropping it.
  virtual void KeyDown(int16_t& /*KeyCode*/, int16_t& /*Shift*/, bool& /*bDoDefault*/) {}
  virtual void KeyPress(int16_t& /*KeyAscii*/) {}

  // The mouse in the cells area (the header strip raises its own ColHeader* events). Button: 1
  // left, 2 right, 4 middle; Shift: the modifier mask; x, y in client pixels. Clearing
  // bDoDefault in MouseDown leaves the press to the host: no selection, current cell, tree,
  // combo or check box change. Click follows MouseUp of a press made in the cells area; DblClick
  // then starts editing the current cell.
  virtual void MouseDown(int16_t /*Button*/, int16_t /*Shift*/, int32_t /*x*/, int32_t /*y*/,
                         bool& /*bDoDefault*/) {}
  virtual void MouseMove(int16_t /*Button*/, int16_t /*Shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void MouseUp(int16_t /*Button*/, int16_t /*Shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void Click() {}
  virtual void DblClick() {}

  // Virtual mode.
  virtual void RequestRow(int32_t /*lRow*/, bool& /*bNoMoreRows*/) {}
  virtual void RequestRowData(int32_t /*lRow*/) {}

  // Dynamic content.
  virtual void CellDynamicFormatting(int32_t /*lRow*/, int32_t /*lCol*/, const Variant& /*vValue*/,
                                     Color& /*oForeColor*/, Color& /*oBackColor*/,
                                     std::shared_ptr<Font>& /*oFont*/) {}
  virtual void RowDynamicFormatting(int32_t /*lRow*/, Color& /*oForeColor*/, Color& /*oBackColor*/,
                                    std::shared_ptr<Font>& /*oFont*/) {}
  virtual void CellDynamicIcons(int32_t /*lRow*/, int32_t /*lCol*/, const Variant& /*vValue*/,
                                int16_t& /*iIcon*/, int16_t& /*iExtraIcon*/) {}
  virtual void CellDynamicText(int32_t /*lRow*/, int32_t /*lCol*/, const Variant& /*vValue*/,
                               std::string& /*sText*/) {}

  // Custom drawing of cells whose CellType is quCellCustomDraw. For each such cell the grid
  // raises CustomDrawCellBackground, then CustomDrawCellForeground, with the painter clipped to
  // the cell's rectangle (client pixels; right and bottom exclusive). bSelected tells whether the
  // cell is drawn highlighted. Leaving bDoDefault True lets the grid draw that layer itself
  // afterwards (the background colour and hatching; the check box and icons); grid lines, the
  // selection layer and the focus rectangle are drawn by the grid in any case.
  virtual void CustomDrawCellBackground(int32_t /*lRow*/, int32_t /*lCol*/, Painter& /*oPainter*/,
                                        int32_t /*lLeft*/, int32_t /*lTop*/, int32_t /*lRight*/,
                                        int32_t /*lBottom*/, bool /*bSelected*/,
                                        bool& /*bDoDefault*/) {}
  virtual void CustomDrawCellForeground(int32_t /*lRow*/, int32_t /*lCol*/, Painter& /*oPainter*/,
                                        int32_t /*lLeft*/, int32_t /*lTop*/, int32_t /*lRight*/,
                                        int32_t /*lBottom*/, bool /*bSelected*/,
                                        bool& /*bDoDefault*/) {}

  // Editing. The TextEdit* events are forwarded from the in-cell text box with the edited
  // cell's row and column; a handler may set KeyCode or KeyAscii to 0 to eat the key.
  virtual void QuitCustomEdit() {}
  virtual void RequestEdit(int32_t /*lRow*/, int32_t /*lCol*/, int32_t /*lCharCode*/,
                           bool& /*bCancel*/, std::string& /*sText*/, int32_t& /*lMaxLength*/,
                           ETextEditFlags& /*eTextEditOpt*/) {}
  virtual void TextEditStarted() {}
  virtual void TextEditChange(int32_t /*lRow*/, int32_t /*lCol*/) {}
  virtual void TextEditKeyDown(int32_t /*lRow*/, int32_t /*lCol*/, int16_t& /*KeyCode*/,
                               int16_t /*Shift*/) {}
  virtual void TextEditKeyPress(int32_t /*lRow*/, int32_t /*lCol*/, int16_t& /*KeyAscii*/) {}
  virtual void TextEditKeyUp(int32_t /*lRow*/, int32_t /*lCol*/, int16_t& /*KeyCode*/,
                             int16_t /*Shift*/) {}
  virtual void TextEditMouseDown(int32_t /*lRow*/, int32_t /*lCol*/, int16_t /*Button*/,
                                 int16_t /*Shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void TextEditMouseMove(int32_t /*lRow*/, int32_t /*lCol*/, int16_t /*Button*/,
                                 int16_t /*Shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void TextEditMouseUp(int32_t /*lRow*/, int32_t /*lCol*/, int16_t /*Button*/,
                               int16_t /*Shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void TextEditDblClick(int32_t /*lRow*/, int32_t /*lCol*/) {}
  virtual void BeforeCommitEdit(int32_t /*lRow*/, int32_t /*lCol*/, EEditResults& /*eResult*/,
                                const std::string& /*sNewText*/, Variant& /*vNewValue*/,
                                int32_t /*lConvErr*/, bool /*bCanProceedEditing*/,
                                int32_t& /*lComboListIndex*/) {}
  virtual void AfterCommitEdit(int32_t /*lRow*/, int32_t /*lCol*/, const Variant& /*vOldValue*/) {}
  virtual void CancelEdit(int32_t /*lRow*/, int32_t /*lCol*/) {}
  virtual void InputValidationError(int32_t /*lConvErr*/, std::string& /*sErrDescr*/) {}
  virtual void BeforeCellCheckChange(int32_t /*lRow*/, int32_t /*lCol*/,
                                     ECellCheckState& /*eNewCheckState*/, bool& /*bCancel*/) {}
  virtual void AfterCellCheckChange(int32_t /*lRow*/, int32_t /*lCol*/,
                                    ECellCheckState /*eOldCheckState*/) {}

  // The clipboard. Clearing bDoDefault in BeforeCopy or BeforeCut leaves the command to the
  // host. BeforePaste reports the columns and rows missing for the whole block; the host may let
  // the grid add them and may silence the warning shown when data would be dropped.
  virtual void BeforeCopy(bool /*bWithHeaders*/, bool& /*bDoDefault*/) {}
  virtual void AfterCopy(bool /*bWithHeaders*/) {}
  virtual void BeforeCut(bool& /*bDoDefault*/) {}
  virtual void AfterCut() {}
  virtual void BeforePaste(bool& /*bDoDefault*/, int32_t /*lColsToAdd*/, int32_t /*lRowsToAdd*/,
                           bool& /*bAddCols*/, bool& /*bAddRows*/, bool& /*bShowWarning*/) {}
  virtual void AfterPaste(int32_t /*lColsAdded*/, int32_t /*lRowsAdded*/) {}

  // Sorting and grouping.
  virtual void BeforeContentsSorted() {}
  virtual void AfterContentsSorted() {}
  virtual void CustomSort(int32_t /*lCol*/, int32_t /*lRow1*/, int32_t /*lRow2*/,
                          const Variant& /*v1*/, const Variant& /*v2*/,
                          int32_t& /*lCompareResult*/) {}
  virtual void CustomGroupValue(int32_t /*lRow*/, int32_t /*lCol*/, Variant& /*vGroupValue*/,
                                std::string& /*sGroupText*/) {}
  virtual void ColHeaderClick(int32_t /*lCol*/, int16_t /*Shift*/, bool& /*bDoDefault*/) {}

  // Column header (raised for what the user does with the mouse, not for the host's own calls).
  // A mouse button went down or up in the header strip over a column's item (lCol 0 over the
  // blank rest). Clearing bDoDefault leaves the press to the host: no sorting, sizing or moving.
  virtual void ColHeaderMouseDown(int32_t /*lCol*/, int16_t /*Button*/, int16_t /*Shift*/,
                                  int32_t /*x*/, int32_t /*y*/, bool& /*bDoDefault*/) {}
  virtual void ColHeaderMouseUp(int32_t /*lCol*/, int16_t /*Button*/, int16_t /*Shift*/,
                                int32_t /*x*/, int32_t /*y*/) {}
  // The pointer entered or left a header item.
  virtual void ColHeaderMouseEnter(int32_t /*lCol*/) {}
  virtual void ColHeaderMouseLeave(int32_t /*lCol*/) {}
  // A double click on a header item; the second press then clicks like the first.
  virtual void ColHeaderDblClick(int32_t /*lCol*/, int16_t /*Shift*/) {}
  // A double click on the divider right of a column: the column is sized to its contents unless
  // bDoDefault is cleared.
  virtual void ColDividerDblClick(int32_t /*lCol*/, bool& /*bDoDefault*/) {}
  // Dragging a divider: the start (bCancel refuses the drag), every new width (lNewWidth may be
  // changed; it is kept within the column's limits afterwards) and the end with the final width.
  virtual void ColWidthStartChange(int32_t /*lCol*/, bool& /*bCancel*/) {}
  virtual void ColWidthChanging(int32_t /*lCol*/, int32_t& /*lNewWidth*/) {}
  virtual void ColWidthEndChange(int32_t /*lCol*/, int32_t /*lWidth*/) {}
  // Dragging a header item to another display position: the start (bCancel keeps it a click),
  // the drop (bCancel leaves the order as it is) and the move done.
  virtual void ColHeaderStartDrag(int32_t /*lCol*/, bool& /*bCancel*/) {}
  virtual void BeforeColMove(int32_t /*lCol*/, int32_t /*lNewColPos*/, bool& /*bCancel*/) {}
  virtual void AfterColMove(int32_t /*lCol*/, int32_t /*lNewColPos*/, int32_t /*lOldColPos*/) {}

  // The group-by band (GroupByBoxVisible): a header item dropped on it, or one of its boxes
  // dragged within it, out of it or clicked, changes the grouping of column lCol. Levels are
  // 1-based positions among the grouped columns, outermost first; 0 means "not grouped": a
  // header dropped on the band has lOldLevel 0, a box dragged out has lNewLevel 0, and a click on
  // a box, which reverses that level's order, has lNewLevel equal to lOldLevel. bCancel leaves
  // the grouping as it is; AfterGroupByChange follows the regrouping.
  virtual void BeforeGroupByChange(int32_t /*lCol*/, int32_t /*lNewLevel*/, bool& /*bCancel*/) {}
  virtual void AfterGroupByChange(int32_t /*lCol*/, int32_t /*lNewLevel*/, int32_t /*lOldLevel*/) {}

  // Row hierarchy.
  virtual void BeforeRowCollapseExpand(int32_t /*lRowIfAny*/, bool /*bNowExpanded*/,
                                       bool& /*bDoDefault*/) {}
  virtual void AfterRowCollapseExpand(int32_t /*lRowIfAny*/, bool /*bNowExpanded*/) {}
};

}  // namespace quilta

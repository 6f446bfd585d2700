// Quilta: an embeddable data-grid control. This header brings in the whole public object model.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/aggr_funcs_object.hpp>
#include <quilta/cell_object.hpp>
#include <quilta/combos.hpp>
#include <quilta/dispatch.hpp>
#include <quilta/enums.hpp>
#include <quilta/error.hpp>
#include <quilta/events.hpp>
#include <quilta/font.hpp>
#include <quilta/header_object.hpp>
#include <quilta/host.hpp>
#include <quilta/platform/platform.hpp>
#include <quilta/scroll_bar_object.hpp>
#include <quilta/sel_items_object.hpp>
#include <quilta/sort_group_object.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>

namespace quilta {

namespace control {
struct Control;
struct InternalsAccess;
}  // namespace control

struct AddColArgs {
  std::string sKey{};
  std::string sHeader{};
  int32_t lWidth = -1;
  EHAlignment eHeaderAlignH = quAlignHLeft;
  EVAlignment eHeaderAlignV = quAlignVTop;
  ETextFormatFlags eHeaderTextFlags = quTextEndEllipsis;
  int16_t iHeaderIcon = 0;
  bool bVisible = true;
  Variant vColBefore = Variant::Missing();
  ESortTypes eSortType = quSortByValueGeneral;
  ESortOrders eSortOrderDefault = quSortAsc;
  int16_t lMinWidth = -1;
  int16_t lMaxWidth = -1;
  bool bAllowSizing = true;
  Variant vTag = Variant::Missing();
  int32_t lCount = 1;
};

struct AddRowArgs {
  std::string sKey{};
  Variant vRowBefore = Variant::Missing();
  bool bVisible = true;
  int32_t lHeight = -1;
  int32_t lNormalCellHeight = -1;
  bool bGroupRow = false;
  Variant vRowParent = Variant::Missing();
  bool bExpanded = true;
  uint8_t btLevel = 0;
  ERowTreeButton eTreeButton = quRowTreeButtonAbsent;
  bool bVisibleAsChild = true;
  Variant vTag = Variant::Missing();
  int32_t lCount = 1;
};

class Quilta {
 public:
  // A control on the headless platform.
  Quilta();
  // A control drawing through the host's platform (not owned; it must outlive the control).
  explicit Quilta(Platform& platform);
  ~Quilta();
  Quilta(const Quilta&) = delete;
  Quilta& operator=(const Quilta&) = delete;
  Quilta(Quilta&&) noexcept;
  Quilta& operator=(Quilta&&) noexcept;

  void SetEventSink(QuiltaEvents* sink);
  void SetHostSite(HostSite* site);
  Platform& GetPlatform() const;

  // ---- Columns and rows -------------------------------------------------------------------
  std::shared_ptr<CellObject> AddCol(const AddColArgs& args = {});
  void RemoveCol(const Variant& vCol, int32_t lCount = 1);
  int32_t ColIndex(std::string_view sKey) const;
  int32_t ColPos(const Variant& vCol) const;
  std::string ColKey(int32_t lCol) const;
  void SetColKey(int32_t lCol, std::string_view sKey);
  Variant ColTag(const Variant& vCol) const;
  void SetColTag(const Variant& vCol, const Variant& vTag);
  int32_t ColCount() const;
  void SetColCount(int32_t lCount);
  int32_t RowTextCol() const;

  int32_t AddRow(const AddRowArgs& args = {});
  void RemoveRow(const Variant& vRow, int32_t lCount = 1);
  int32_t RowIndex(std::string_view sKey) const;
  std::string RowKey(int32_t lRow) const;
  void SetRowKey(int32_t lRow, std::string_view sKey);
  Variant RowTag(const Variant& vRow) const;
  void SetRowTag(const Variant& vRow, const Variant& vTag);
  int32_t RowCount() const;
  void SetRowCount(int32_t lCount);
  void Clear(bool bRemoveCols = false);

  int32_t MemMngWantFreeRows() const;
  void SetMemMngWantFreeRows(int32_t lRows);
  EStoreInitRowNumbersPlace StoreInitRowNumbers() const;
  void SetStoreInitRowNumbers(EStoreInitRowNumbersPlace ePlace);
  bool Virtual() const;
  void SetVirtual(bool bVirtual);

  int32_t Sys(ESystemParameters eParam) const;
  bool Supports(ESupportFeatures eFeature) const;

  // ---- Update suspension ------------------------------------------------------------------
  void BeginUpdate();
  void EndUpdate();
  int32_t BeginUpdateCount() const;
  bool BeginUpdateRecalcRowParms() const;
  void SetBeginUpdateRecalcRowParms(bool b);

  // ---- Persistence ------------------------------------------------------------------------
  void ReadProperties(PropertyBag& bag);
  void WriteProperties(PropertyBag& bag) const;

  // ---- Control properties -----------------------------------------------------------------
  bool AllowGrouping() const;
  void SetAllowGrouping(bool b);
  bool AllowGroupRowEditing() const;
  void SetAllowGroupRowEditing(bool b);
  bool AllowSorting() const;
  void SetAllowSorting(bool b);
  std::string AutoColHeaderTextTemplate() const;
  void SetAutoColHeaderTextTemplate(std::string_view s);
  int32_t AutoWidthColMaxRows() const;
  void SetAutoWidthColMaxRows(int32_t l);
  bool AutoWidthColWithHeader() const;
  void SetAutoWidthColWithHeader(bool b);
  Color BackColor() const;
  void SetBackColor(Color c);
  Color BackColorOddRows() const;
  void SetBackColorOddRows(Color c);
  Color BackColorEvenRows() const;
  void SetBackColorEvenRows(Color c);
  EBorderType BorderType() const;
  void SetBorderType(EBorderType e);
  bool BrowseAllNonFrozenCols() const;
  void SetBrowseAllNonFrozenCols(bool b);
  bool BuiltinContextMenus() const;
  void SetBuiltinContextMenus(bool b);
  int32_t CellCheckGap() const;
  void SetCellCheckGap(int32_t l);
  int32_t CellIconGap() const;
  void SetCellIconGap(int32_t l);
  bool ChangeColorsWhenDisabled() const;
  void SetChangeColorsWhenDisabled(bool b);
  bool CopyPasteEnabled() const;
  void SetCopyPasteEnabled(bool b);
  bool DefaultAutoGroupRowExpanded() const;
  void SetDefaultAutoGroupRowExpanded(bool b);
  bool DisableIcons() const;
  void SetDisableIcons(bool b);
  bool DragSelect() const;
  void SetDragSelect(bool b);
  bool DrawRowText() const;
  void SetDrawRowText(bool b);
  bool Editable() const;
  void SetEditable(bool b);
  bool Enabled() const;
  void SetEnabled(bool b);
  bool EnsureVisibleAutoHScroll() const;
  void SetEnsureVisibleAutoHScroll(bool b);
  bool EnsureVisibleAutoVScroll() const;
  void SetEnsureVisibleAutoVScroll(bool b);
  bool FlatCellControls() const;
  void SetFlatCellControls(bool b);
  bool FocusRect() const;
  void SetFocusRect(bool b);
  Color FocusRectColor1() const;
  void SetFocusRectColor1(Color c);
  Color FocusRectColor2() const;
  void SetFocusRectColor2(Color c);
  bool FocusRectNoFocus() const;
  void SetFocusRectNoFocus(bool b);
  Color FocusRectNoFocusColor1() const;
  void SetFocusRectNoFocusColor1(Color c);
  Color FocusRectNoFocusColor2() const;
  void SetFocusRectNoFocusColor2(Color c);
  // Property "Font": returns a copy; assign it back to change the grid's font.
  std::shared_ptr<quilta::Font> Font() const;
  void SetFont(const std::shared_ptr<quilta::Font>& font);
  Color ForeColor() const;
  void SetForeColor(Color c);
  int32_t FrozenCols() const;
  void SetFrozenCols(int32_t l);
  Color FrozenColsEdgeColor() const;
  void SetFrozenColsEdgeColor(Color c);
  bool FrozenColsEdgeDrawAlways() const;
  void SetFrozenColsEdgeDrawAlways(bool b);
  int32_t FrozenColsEdgeWidth() const;
  void SetFrozenColsEdgeWidth(int32_t l);
  bool FullRowSelect() const;
  void SetFullRowSelect(bool b);
  Color GridLineColor() const;
  void SetGridLineColor(Color c);
  EGridLines GridLines() const;
  void SetGridLines(EGridLines e);
  EGridLinesExtendModes GridLinesExtend() const;
  void SetGridLinesExtend(EGridLinesExtendModes e);
  int32_t GridLineThicknessH() const;
  void SetGridLineThicknessH(int32_t l);
  int32_t GridLineThicknessV() const;
  void SetGridLineThicknessV(int32_t l);
  // The group-by band above the column header (drop headers on it to group, drag its boxes to
  // reorder or remove levels, click one to reverse its order) and its prompt while nothing is
  // grouped.
  std::string GroupByBoxText() const;
  void SetGroupByBoxText(std::string_view s);
  bool GroupByBoxVisible() const;
  void SetGroupByBoxVisible(bool b);
  bool HideSelection() const;
  void SetHideSelection(bool b);
  Color HighlightBackColor() const;
  void SetHighlightBackColor(Color c);
  Color HighlightBackColorNoFocus() const;
  void SetHighlightBackColorNoFocus(Color c);
  Color HighlightForeColor() const;
  void SetHighlightForeColor(Color c);
  Color HighlightForeColorNoFocus() const;
  void SetHighlightForeColorNoFocus(Color c);
  bool HighlightSelIcons() const;
  void SetHighlightSelIcons(bool b);
  bool HighlightSelCells() const;
  void SetHighlightSelCells(bool b);
  EKeyPressBehaviour KeyPressBehaviour() const;
  void SetKeyPressBehaviour(EKeyPressBehaviour e);
  bool KeySearchFromCurRow() const;
  void SetKeySearchFromCurRow(bool b);
  bool KeySearchLoop() const;
  void SetKeySearchLoop(bool b);
  int32_t LevelIndent() const;
  void SetLevelIndent(int32_t l);
  int16_t OLEDropMode() const;
  void SetOLEDropMode(int16_t i);
  bool OpaqueTextInHatchedCells() const;
  void SetOpaqueTextInHatchedCells(bool b);
  bool PrefixGroupValues() const;
  void SetPrefixGroupValues(bool b);
  EScrollBarStyles ScrollBarStyle() const;
  void SetScrollBarStyle(EScrollBarStyles e);
  uint8_t SelectionAlphaBlend() const;
  void SetSelectionAlphaBlend(uint8_t bt);
  bool ShowControlsInAllCells() const;
  void SetShowControlsInAllCells(bool b);
  bool SilentValidation() const;
  void SetSilentValidation(bool b);
  bool SkipNonSelectableCells() const;
  void SetSkipNonSelectableCells(bool b);
  bool SortScrollToCurRow() const;
  void SetSortScrollToCurRow(bool b);
  Color TreeButtonBackColor() const;
  void SetTreeButtonBackColor(Color c);
  Color TreeButtonBorderColor() const;
  void SetTreeButtonBorderColor(Color c);
  Color TreeButtonForeColor() const;
  void SetTreeButtonForeColor(Color c);
  int32_t TreeButtonSize() const;
  void SetTreeButtonSize(int32_t l);
  int32_t TreeCol() const;
  void SetTreeCol(int32_t l);
  ETreeLines TreeLines() const;
  void SetTreeLines(ETreeLines e);
  Color TreeLinesColor() const;
  void SetTreeLinesColor(Color c);
  bool TreeRootLines() const;
  void SetTreeRootLines(bool b);
  int32_t ToolTipDelayTime() const;
  void SetToolTipDelayTime(int32_t l);
  int32_t ToolTipVisibleTime() const;
  void SetToolTipVisibleTime(int32_t l);
  bool UseTabKey() const;
  void SetUseTabKey(bool b);
  bool UseXPStyles() const;
  void SetUseXPStyles(bool b);

  // ---- Cells, cell properties and cell text ------------------------------------------------
  Variant CellValue(const Variant& vRow, const Variant& vCol) const;
  void SetCellValue(const Variant& vRow, const Variant& vCol, const Variant& vValue);
  ECellTypes CellType(const Variant& vRow, const Variant& vCol) const;
  void SetCellType(const Variant& vRow, const Variant& vCol, ECellTypes eType);
  ECellTypeFlags CellTypeFlags(const Variant& vRow, const Variant& vCol) const;
  void SetCellTypeFlags(const Variant& vRow, const Variant& vCol, ECellTypeFlags eFlags);
  ETextFormatFlags CellTextFlags(const Variant& vRow, const Variant& vCol) const;
  void SetCellTextFlags(const Variant& vRow, const Variant& vCol, ETextFormatFlags eFlags);
  EHAlignment CellAlignH(const Variant& vRow, const Variant& vCol) const;
  void SetCellAlignH(const Variant& vRow, const Variant& vCol, EHAlignment eAlign);
  EVAlignment CellAlignV(const Variant& vRow, const Variant& vCol) const;
  void SetCellAlignV(const Variant& vRow, const Variant& vCol, EVAlignment eAlign);
  ECellIconToText CellIconToText(const Variant& vRow, const Variant& vCol) const;
  void SetCellIconToText(const Variant& vRow, const Variant& vCol, ECellIconToText ePos);
  uint8_t CellIndentLeft(const Variant& vRow, const Variant& vCol) const;
  void SetCellIndentLeft(const Variant& vRow, const Variant& vCol, uint8_t btIndent);
  uint8_t CellIndentRight(const Variant& vRow, const Variant& vCol) const;
  void SetCellIndentRight(const Variant& vRow, const Variant& vCol, uint8_t btIndent);
  uint8_t CellIndentTop(const Variant& vRow, const Variant& vCol) const;
  void SetCellIndentTop(const Variant& vRow, const Variant& vCol, uint8_t btIndent);
  uint8_t CellIndentBottom(const Variant& vRow, const Variant& vCol) const;
  void SetCellIndentBottom(const Variant& vRow, const Variant& vCol, uint8_t btIndent);
  Color CellBackColor(const Variant& vRow, const Variant& vCol) const;
  void SetCellBackColor(const Variant& vRow, const Variant& vCol, Color oColor);
  Color CellForeColor(const Variant& vRow, const Variant& vCol) const;
  void SetCellForeColor(const Variant& vRow, const Variant& vCol, Color oColor);
  // The cell's font (its own, or a copy of the grid's Font); nullptr resets it to the default.
  std::shared_ptr<quilta::Font> CellFont(const Variant& vRow, const Variant& vCol) const;
  void SetCellFont(const Variant& vRow, const Variant& vCol,
                   const std::shared_ptr<quilta::Font>& oFont);
  uint8_t CellImageList(const Variant& vRow, const Variant& vCol) const;
  void SetCellImageList(const Variant& vRow, const Variant& vCol, uint8_t btList);
  uint8_t CellExtraImageList(const Variant& vRow, const Variant& vCol) const;
  void SetCellExtraImageList(const Variant& vRow, const Variant& vCol, uint8_t btList);
  int16_t CellIcon(const Variant& vRow, const Variant& vCol) const;
  void SetCellIcon(const Variant& vRow, const Variant& vCol, int16_t iIcon);
  int16_t CellExtraIcon(const Variant& vRow, const Variant& vCol) const;
  void SetCellExtraIcon(const Variant& vRow, const Variant& vCol, int16_t iIcon);
  EHatchStyles CellHatch(const Variant& vRow, const Variant& vCol) const;
  void SetCellHatch(const Variant& vRow, const Variant& vCol, EHatchStyles eHatch);
  bool CellSelectable(const Variant& vRow, const Variant& vCol) const;
  void SetCellSelectable(const Variant& vRow, const Variant& vCol, bool bSelectable);
  bool CellSelected(const Variant& vRow, const Variant& vCol) const;
  void SetCellSelected(const Variant& vRow, const Variant& vCol, bool bSelected);
  bool CellCheckVisible(const Variant& vRow, const Variant& vCol) const;
  void SetCellCheckVisible(const Variant& vRow, const Variant& vCol, bool bVisible);
  ECellCheckState CellCheckState(const Variant& vRow, const Variant& vCol) const;
  void SetCellCheckState(const Variant& vRow, const Variant& vCol, ECellCheckState eState);
  ECellCheckPos CellCheckPos(const Variant& vRow, const Variant& vCol) const;
  void SetCellCheckPos(const Variant& vRow, const Variant& vCol, ECellCheckPos ePos);
  int32_t CellExtraData(const Variant& vRow, const Variant& vCol) const;
  void SetCellExtraData(const Variant& vRow, const Variant& vCol, int32_t lData);
  int32_t CellComboListIndex(const Variant& vRow, const Variant& vCol) const;
  void SetCellComboListIndex(const Variant& vRow, const Variant& vCol, int32_t lIndex);
  std::string CellCtrlKey(const Variant& vRow, const Variant& vCol) const;
  void SetCellCtrlKey(const Variant& vRow, const Variant& vCol, std::string_view sKey);
  std::string CellFmtString(const Variant& vRow, const Variant& vCol) const;
  void SetCellFmtString(const Variant& vRow, const Variant& vCol, std::string_view sFormat);

  void CellDefaultForeColor(const Variant& vRow, const Variant& vCol);
  void CellDefaultBackColor(const Variant& vRow, const Variant& vCol);
  void CellDefaultFont(const Variant& vRow, const Variant& vCol);
  Color CellEffectiveForeColor(const Variant& vRow, const Variant& vCol) const;
  Color CellEffectiveBackColor(const Variant& vRow, const Variant& vCol) const;
  std::string CellText(const Variant& vRow, const Variant& vCol) const;

  std::shared_ptr<CellObject> ColDefaultCell(const Variant& vCol) const;
  void SetColCellsProp(const Variant& vCol, ECellProperty eProperty, const Variant& vValue,
                       const Variant& vStartRow = Variant::Missing(),
                       const Variant& vEndRow = Variant::Missing());
  EDynamicContentEvents DynamicContentEvents() const;
  void SetDynamicContentEvents(EDynamicContentEvents eEvents);
  CombosObject& Combos();
  // (cells section end)

  // ---- Geometry ----------------------------------------------------------------------------
  // Widths are clamped into a column's limits (-1 = no limit) rather than refused.
  int32_t ColWidth(const Variant& vCol) const;
  void SetColWidth(const Variant& vCol, int32_t lWidth);
  int32_t ColMinWidth(const Variant& vCol) const;
  void SetColMinWidth(const Variant& vCol, int32_t lMinWidth);
  int32_t ColMaxWidth(const Variant& vCol) const;
  void SetColMaxWidth(const Variant& vCol, int32_t lMaxWidth);
  // The range is in column indexes (not display positions); missing ends mean first and last.
  void SetColWidths(int16_t lWidth, const Variant& vStartCol = Variant::Missing(),
                    const Variant& vEndCol = Variant::Missing());
  void ResizeColToFillSpace(const Variant& vCol);
  void SetColPos(const Variant& vCol, int32_t lColPos);
  int32_t ColFromPos(int32_t lColPos) const;
  int32_t ColStartX(const Variant& vCol) const;
  int32_t ColVisibleIndex(const Variant& vCol) const;
  bool ColVisible(const Variant& vCol) const;
  void SetColVisible(const Variant& vCol, bool bVisible);

  int32_t RowHeight(const Variant& vRow) const;
  void SetRowHeight(const Variant& vRow, int32_t lHeight);
  // Missing ends mean the first and the last row; height 0 hides the rows.
  void SetRowHeights(int32_t lHeight, const Variant& vStartRow = Variant::Missing(),
                     const Variant& vEndRow = Variant::Missing());
  int32_t RowNormalCellHeight(const Variant& vRow) const;
  void SetRowNormalCellHeight(const Variant& vRow, int32_t lHeight);
  int32_t RowStartY(const Variant& vRow) const;
  int32_t RowVisibleIndex(const Variant& vRow) const;
  bool RowVisible(const Variant& vRow) const;
  void SetRowVisible(const Variant& vRow, bool bVisible);
  int32_t RowTextStartCol() const;
  void SetRowTextStartCol(int32_t lCol);
  int32_t DefaultRowHeight() const;
  void SetDefaultRowHeight(int32_t lHeight);
  int32_t DefaultRowNormalCellHeight() const;
  void SetDefaultRowNormalCellHeight(int32_t lHeight);
  // (geometry section end)

  // ---- Hit testing and visibility -----------------------------------------------------------
  // Points are client pixels of the control (the header strip included); rectangles come back
  // in client pixels as left, top, width and height. The cells area maps points as drawing
  // places cells: frozen columns stand still and cover the scrolled columns beneath them; a
  // group row answers its row text cell (RowTextCol) across its whole width; with DrawRowText,
  // the part of a row below its normal cell height, from the row text's start column on,
  // answers RowTextCol too, while cells to the left of the row text reach down to the row's
  // bottom. Points on the header, outside the columns or below the last row answer no cell.
  // With GroupByBoxVisible the group-by band lies above the header and the header and cells
  // start below it; ECellParts names parts of cells only, so HitTest answers quCellPartNone on
  // the band as on the header.
  // Each of these members first brings the layout up to date (view rectangles from the client
  // size, scroll ranges, row positions left pending by BeginUpdate), so it never sees stale
  // positions; frozen columns never scroll horizontally.
  //
  // The part of a cell under a point. With lRow and lCol both given (not 0), the point is
  // tested against that cell's parts wherever it lies; otherwise the cell is the one under the
  // point. A custom-drawn cell reports its check box, combo button and tree button but never an
  // icon or its text.
  ECellParts HitTest(int32_t xPixels, int32_t yPixels, int32_t lRow = 0, int32_t lCol = 0) const;
  // The cell under a point; lRow and lCol are both 0 when there is none.
  void CellFromPoint(int32_t xPixels, int32_t yPixels, int32_t& lRow, int32_t& lCol) const;
  // A cell's rectangle: a group row spans every shown column whatever column is asked; the row
  // text cell lies below the normal cell height from the row text's start column to the last
  // shown column. Rows scrolled out of view give rectangles outside the cells area.
  void CellBoundary(const Variant& vRow, const Variant& vCol, int32_t& lLeft, int32_t& lTop,
                    int32_t& lWidth, int32_t& lHeight) const;
  // The rectangle the cell's text is drawn in: the cell less its tree indent, combo button,
  // indents, check box and icons.
  void CellTextBoundary(const Variant& vRow, const Variant& vCol, int32_t& lLeft, int32_t& lTop,
                        int32_t& lWidth, int32_t& lHeight) const;
  // Whether the cell's text, in its font and text flags, needs more room than its text
  // rectangle (wider, or, when broken into lines, taller); an empty text is never clipped.
  bool IsCellTextClipped(const Variant& vRow, const Variant& vCol) const;
  // Scrolls a row into view (nothing while EnsureVisibleAutoVScroll is off or for a row that is
  // not shown). An out-of-range mode fails with 514.
  void EnsureVisibleRow(const Variant& vRow, EEnsureVisibleRowMode eMode = quEnsVisRowAuto,
                        int32_t lGap = 8);
  // Scrolls a column into view (nothing while EnsureVisibleAutoHScroll is off or for a hidden
  // column). Fails with 522 whenever FrozenCols is above 0, before anything else is checked; an
  // out-of-range mode fails with 514.
  void EnsureVisibleCol(const Variant& vCol, EEnsureVisibleColMode eMode = quEnsVisColAuto,
                        int32_t lGap = 8);
  // Scrolls a cell into view in the automatic modes with the default gap: its row vertically,
  // its column horizontally. Unlike EnsureVisibleCol it works with frozen columns: a frozen
  // column (and the row text column) needs no horizontal scrolling, a scrollable one is brought
  // next to the frozen edge or the right edge.
  void EnsureVisibleCell(const Variant& vRow, const Variant& vCol);
  // Sizes a column to the widest of its cells' contents (and its header item with
  // AutoWidthColWithHeader) among the rows AutoWidthColMaxRows allows that pass the filter.
  // Limits apply in this order: the column's minimum, lMinimumWidth, the column's maximum,
  // lMaximumWidth (each when >= 0), so a given maximum wins over everything. Both given with the
  // minimum above the maximum, an out-of-range filter, or the row text column fail with 514.
  void AutoWidthCol(const Variant& vCol, int32_t lMinimumWidth = -1, int32_t lMaximumWidth = -1,
                    ECellVisibilityFilter eCellVisibility = quCellVisCurrentlyVisible);
  // AutoWidthCol on every column whose index lies in vStartCol..vEndCol (column indexes, not
  // display positions, as SetColWidths; missing ends mean the first and the last column),
  // hidden ones included, with one redraw.
  void AutoWidthCols(const Variant& vStartCol = Variant::Missing(),
                     const Variant& vEndCol = Variant::Missing(), int32_t lMinimumWidth = -1,
                     int32_t lMaximumWidth = -1,
                     ECellVisibilityFilter eCellVisibility = quCellVisCurrentlyVisible);
  // The width of a cell's text alone (its longest line) in the cell's font.
  int32_t EvaluateTextWidth(const Variant& vRow, const Variant& vCol) const;
  // The height of a cell's text in the cell's font, broken into lines no wider than lWidth when
  // the cell's text flags ask for word breaks; lWidth -1 means the width of the cell's text
  // rectangle as laid out now. A negative width other than -1 fails with 514.
  int32_t EvaluateTextHeight(const Variant& vRow, const Variant& vCol, int32_t lWidth = -1) const;
  // The horizontal (quScrollBarH) or vertical (quScrollBarV) scroll bar; any other value fails
  // with 514.
  ScrollBarObject& ScrollBar(EScrollBar eBar);
  // (visibility section end)

  // ---- Row hierarchy -----------------------------------------------------------------------
  uint8_t RowLevel(const Variant& vRow) const;
  void SetRowLevel(const Variant& vRow, uint8_t btLevel);
  int32_t RowParent(const Variant& vRow) const;  // 0 for none
  int32_t RowLastNested(const Variant& vRow) const;
  int32_t RowChildCount(const Variant& vRow) const;
  bool RowHasChildren(const Variant& vRow) const;
  bool RowExpanded(const Variant& vRow) const;
  void SetRowExpanded(const Variant& vRow, bool bExpanded);
  bool RowVisibleAsChild(const Variant& vRow) const;
  void SetRowVisibleAsChild(const Variant& vRow, bool bVisibleAsChild);
  ERowTreeButton RowTreeButton(const Variant& vRow) const;
  void SetRowTreeButton(const Variant& vRow, ERowTreeButton eTreeButton);
  bool AddRowAutoTreeButton() const;
  void SetAddRowAutoTreeButton(bool bAuto);
  // Before/AfterRowCollapseExpand report the row (0 for the whole grid) and the state asked for.
  void CollapseAllChildRows(const Variant& vRow);
  void ExpandAllChildRows(const Variant& vRow);
  void CollapseAllRows();
  void ExpandAllRows();
  // Moves vRow and the lCount - 1 siblings after it, each with its subtree: before vRowNewPos, or
  // after its subtree, as its siblings (levels shift to its level), or as its last children.
  // 524 when vRowNewPos lies in the moved rows or a level would pass 255.
  void MoveRow(const Variant& vRow, const Variant& vRowNewPos, int32_t lCount = 1,
               EMoveRowMode eMode = quMoveRowBefore);
  // (hierarchy section end)

  // ---- Sorting -----------------------------------------------------------------------------
  SortGroupObject& SortObject();
  const SortGroupObject& SortObject() const;
  SortGroupObject& GroupObject();
  const SortGroupObject& GroupObject() const;
  // vCols: one column reference or a one-dimensional array of them; missing = SortObject as is.
  void Sort(const Variant& vCols = Variant::Missing(),
            const Variant& vRowStart = Variant::Missing(),
            const Variant& vRowEnd = Variant::Missing());
  // What a header click does; eSortOrder -1 flips the column's order.
  void DoDefaultSort(const Variant& vCol, int16_t iShift = 0,
                     ESortOrders eSortOrder = static_cast<ESortOrders>(-1),
                     const Variant& vRowStart = Variant::Missing(),
                     const Variant& vRowEnd = Variant::Missing());
  void SortRowChildNodes(const Variant& vRow);
  ESortTypes ColSortType(const Variant& vCol) const;
  void SetColSortType(const Variant& vCol, ESortTypes eSortType);
  ESortOrders ColSortOrderDefault(const Variant& vCol) const;
  void SetColSortOrderDefault(const Variant& vCol, ESortOrders eSortOrder);
  ESortOrders ColSortOrder(const Variant& vCol) const;
  void SetColSortOrder(const Variant& vCol, ESortOrders eSortOrder);
  int32_t ColSortKey(const Variant& vCol) const;
  void SetColSortKey(const Variant& vCol, int32_t lSortKey);
  // (sorting section end)

  // ---- Editing ---------------------------------------------------------------------------------
  // lCharCode: the character that started the edit (0 none, 13 Enter, 8 Backspace, else a
  // printable character). Refused edits do nothing and raise nothing.
  void RequestEditCurCell(int32_t lCharCode = 0, bool bShowCombo = false);
  void CommitEditCurCell();
  void CancelEditCurCell();
  bool IsEditing() const;
  // The in-cell text box while editing: empty or 0 when there is none; setting them while no
  // text box is open fails with 522.
  std::string TextEditText() const;
  void SetTextEditText(std::string_view sText);
  int32_t TextEditSelStart() const;
  void SetTextEditSelStart(int32_t lStart);
  int32_t TextEditSelLength() const;
  void SetTextEditSelLength(int32_t lLength);
  std::string TextEditSelText() const;
  void SetTextEditSelText(std::string_view sText);
  intptr_t TextEditHwnd() const;

  // ---- Host integration ----------------------------------------------------------------------
  // A host routes its window's paint, input and focus here; everything the control does in
  // answer (events, selection, scrolling, invalidation) follows from these calls. Points are
  // client pixels; Button is 1 left, 2 right, 4 middle; Shift the modifier mask (1 Shift,
  // 2 Ctrl, 4 Alt).
  // Paints the part of the control inside clip (the header and the cells) through painter.
  void Paint(Painter& painter, const Rect& clip);
  void HostMouseDown(int16_t Button, int16_t Shift, int32_t x, int32_t y);
  void HostMouseMove(int16_t Button, int16_t Shift, int32_t x, int32_t y);
  void HostMouseUp(int16_t Button, int16_t Shift, int32_t x, int32_t y);
  void HostDblClick(int16_t Button, int16_t Shift, int32_t x, int32_t y);
  void HostMouseLeave();
  // Wheel turns in 1/120 notches, positive away from the user.
  void HostMouseWheel(int32_t lDelta, int16_t Shift);
  // The user moved a scroll bar to a position.
  void HostScroll(EScrollBar eBar, int32_t lPos);
  // The client area changed size or resolution.
  void HostResize();
  void HostFocusChanged(bool bFocused);

  // ---- Image lists ---------------------------------------------------------------------------
  // Lists 1 to 15, named by CellImageList, CellExtraImageList and header icons. vImageList holds
  // a std::shared_ptr<quilta::ImageList> (Variant::Object) or is Empty/Nothing to remove the list;
  // anything else fails with 518, a number outside 1..15 with 514.
  Variant ImageList(uint8_t btList) const;
  void SetImageList(uint8_t btList, const Variant& vImageList);
  // ---- Data exchange -----------------------------------------------------------------------
  // The column layout (widths, positions, visibility) and the sort state as text. Reading a
  // damaged string stops silently; reading LayoutSort sorts the grid again.
  std::string LayoutCol() const;
  void SetLayoutCol(std::string_view sLayout);
  std::string LayoutSort() const;
  void SetLayoutSort(std::string_view sLayout);
  // Raw values between existing cells and a 1-D or 2-D array (Variant::Array); cut at the
  // grid's edge, never growing the grid nor resizing the array.
  void LoadFromArray(const Variant& vStartRow, const Variant& vStartCol, const Variant& vArray,
                     bool bColMajorOrder = false);
  void LoadIntoArray(const Variant& vStartRow, const Variant& vStartCol, Variant& vArray,
                     bool bColMajorOrder = false) const;
  // Columns and rows from a late-bound record set. quFillRSRecreateColsOnly: the grid is
  // cleared and gets one column per field, no rows. quFillRSColsIfEmptyAndRows: columns are
  // created only when the grid has none, and the rows are replaced by one row per record.
  // quFillRSAddToExistingRows: records are appended as new rows. Fields fill the columns keyed
  // by their names (or, when no key matches, the columns in order). vRowKeyField (a field name
  // or 0-based ordinal) makes that field's values the row keys. Nothing changes on failure.
  void FillFromRS(const std::shared_ptr<Dispatch>& RS,
                  EFillFromRSMode eMode = quFillRSColsIfEmptyAndRows,
                  const Variant& vRowKeyField = Variant::Missing());
  // The base column and table names a record set reported for a column it filled.
  std::string ColDataField(const Variant& vCol) const;
  std::string ColDataTable(const Variant& vCol) const;
  // (exchange section end)
  // ---- Grouping ----------------------------------------------------------------------------
  // Groups the rows by GroupObject: with AllowSorting on, the rows are first sorted by the group
  // criteria followed by the sort criteria (SortObject then holds both, group criteria first);
  // then a group row (level = grouping depth, tree button visible, expanded per
  // DefaultAutoGroupRowExpanded) is inserted above each run of equal group values, per level,
  // and the data rows move one level below the innermost groups. vCols, when given (one column
  // or a one-dimensional array), first refills GroupObject as Sort refills SortObject. Regrouping
  // removes the old group rows first; an empty GroupObject ungroups. AllowGrouping off: 522; a
  // criterion naming no column: 513; both before anything changes.
  void Group(const Variant& vCols = Variant::Missing());
  // Removes the group rows; the data rows stay in their order, back at their own levels.
  void Ungroup();
  // The criteria the grid is currently grouped by (empty when it is not grouped).
  const SortGroupObject& GroupedBy() const;
  // The aggregates shown in the group rows after the group text.
  AggrFuncsObject& AggrFuncs();
  const AggrFuncsObject& AggrFuncs() const;
  // Whether the row is a group row made by grouping. The members below take such a row; any
  // other row raises 514 (an unresolvable reference 513).
  bool RowIsGroupRow(const Variant& vRow) const;
  // The column, and the value shared by the group's data rows (what CustomGroupValue returned
  // for quSortByValueCustomGroups criteria).
  int32_t GroupRowCol(const Variant& vRow) const;
  Variant GroupRowValue(const Variant& vRow) const;
  // The number of data rows under the group row, nested groups included.
  int32_t GroupRowDataCount(const Variant& vRow) const;
  // "<column header>: " (with PrefixGroupValues), the group value in the column's format (or the
  // sGroupText of CustomGroupValue), and the data-row count: "Country: France (12)". The row's
  // RowTextCol cell shows this text followed by ", <function> of <header>: <result>" per aggregate.
  std::string GroupRowText(const Variant& vRow) const;
  // An aggregate's result for the group (lAggrIndex 1-based; 514 outside). A Sum or Avg over a
  // text that is not a number raises 13 (Type mismatch), and its text is "#Error".
  Variant GroupRowAggrValue(const Variant& vRow, int32_t lAggrIndex) const;
  // The result as shown: in the aggregate's format, else the column's (counts plainly).
  std::string GroupRowAggrText(const Variant& vRow, int32_t lAggrIndex) const;
  // (grouping section end)

  // ---- Column header -----------------------------------------------------------------------
  HeaderObject& Header();
  const HeaderObject& Header() const;
  // A column's header item. Setters refuse the row text column (it has no header item) and
  // out-of-range alignments or unknown text flags with 514.
  std::string ColHeaderText(const Variant& vCol) const;
  void SetColHeaderText(const Variant& vCol, std::string_view sText);
  int16_t ColHeaderIcon(const Variant& vCol) const;
  void SetColHeaderIcon(const Variant& vCol, int16_t iIcon);
  EHAlignment ColHeaderAlignH(const Variant& vCol) const;
  void SetColHeaderAlignH(const Variant& vCol, EHAlignment eAlign);
  EVAlignment ColHeaderAlignV(const Variant& vCol) const;
  void SetColHeaderAlignV(const Variant& vCol, EVAlignment eAlign);
  ETextFormatFlags ColHeaderTextFlags(const Variant& vCol) const;
  void SetColHeaderTextFlags(const Variant& vCol, ETextFormatFlags eFlags);
  // Whether the user may drag the column's divider.
  bool ColAllowSizing(const Variant& vCol) const;
  void SetColAllowSizing(const Variant& vCol, bool bAllow);

  // ---- Current cell and selection ---------------------------------------------------------
  // 0 means no current row (column). Setting moves the current cell as a click would, with the
  // selection following it; CurRow 0 is accepted, CurCol takes 0..ColCount.
  int32_t CurRow() const;
  void SetCurRow(int32_t lRow);
  int32_t CurCol() const;
  void SetCurCol(int32_t lCol);
  // Moves the current cell, or only scrolls it into view when it is current already.
  void SetCurCell(const Variant& vRow, const Variant& vCol);
  bool MultiSelect() const;
  void SetMultiSelect(bool b);
  bool RowMode() const;
  void SetRowMode(bool b);
  void ClearSelection();
  // Both fail with 522 unless MultiSelect is on.
  void SelectAll();
  void InvertSelection();
  SelItemsObject& SelItems();
  const SelItemsObject& SelItems() const;

  // ---- Keyboard and key search --------------------------------------------------------------
  // What a key does (KeyCode a virtual-key code, Shift 1 Shift, 2 Ctrl, 4 Alt); hosts call it to
  // simulate a key. Keys never raise errors.
  void DoKeyboardCommand(int16_t KeyCode, int16_t Shift = 0);
  // The host routes its key messages here: a key going down (raises KeyDown, then
  // DoKeyboardCommand unless the handler clears bDoDefault) and the character it produces
  // (raises KeyPress, then key search or the start of an edit, as KeyPressBehaviour says).
  void HostKeyDown(int16_t KeyCode, int16_t Shift);
  void HostKeyPress(int16_t KeyAscii);
  std::string SearchString() const;
  void SetSearchString(std::string_view sText);
  // The column searched under quKeyPressSearchDefCol (0: none); 0..RowTextCol, else 513.
  int32_t KeySearchCol() const;
  void SetKeySearchCol(int32_t lCol);
  // The first row from vStartRow (row 1 when missing) whose cell text in vSearchCol matches, or 0.
  int32_t FindSearchMatchRow(const Variant& vSearchCol, std::string_view sSearchString,
                             const Variant& vStartRow = Variant::Missing(), bool bLoop = false,
                             ESearchMatchMode eMatchMode = quSearchMatchStartsWith,
                             bool bMatchCase = false,
                             ECellVisibilityFilter eCellVisibility = quCellVisCurrentlyVisible);

 private:
  friend struct control::InternalsAccess;  // the grid's own tests and benchmarks
  std::unique_ptr<control::Control> c_;
};

}  // namespace quilta

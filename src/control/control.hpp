// The state behind one Quilta control: every store and subsystem, and the glue that passes the
// stores' notices to the subsystems that own the affected state.
#pragma once

#include <memory>
#include <quilta/quilta.hpp>

#include "edit/editor.hpp"
#include "exchange/clipboard/context_menu.hpp"
#include "exchange/exchange_site.hpp"
#include "header/group_by_band.hpp"
#include "header/header_strip.hpp"
#include "interaction/key_search.hpp"
#include "interaction/keyboard_commands.hpp"
#include "interaction/mouse_handler.hpp"
#include "interaction/selection.hpp"
#include "interaction/tool_tips.hpp"
#include "layout/cell_parts.hpp"
#include "layout/column_sizing.hpp"
#include "layout/geometry.hpp"
#include "layout/row_sizing.hpp"
#include "layout/view.hpp"
#include "model/cell_object_access.hpp"
#include "model/cell_resources.hpp"
#include "model/control_properties.hpp"
#include "model/grid_store.hpp"
#include "model/store_listener.hpp"
#include "ops/grouping/grouper.hpp"
#include "ops/sorting/sort_group_access.hpp"
#include "render/tree_line_scans.hpp"

namespace quilta::control {

// Suspension of recalculation and drawing (BeginUpdate / EndUpdate).
struct UpdateState {
  int32_t count = 0;
  int32_t pendingRow = 0;  // lowest row whose positions must be recomputed; 0 = none
};

enum class MouseAction { Down, Move, Up, DblClick, Leave };
// The header strip and the group-by band take the same mouse actions in their own terms.
header::HeaderMouse HeaderMouseOf(MouseAction action);

struct Control final : model::StoreListener, model::CellObjectOwner {
  explicit Control(Platform* hostPlatform);
  ~Control() override;

  // ---- StoreListener
  void MarkLayoutDirty(model::LayoutChange kind) override { geometry.RecordChange(kind); }
  void RecalcRowsFrom(int32_t row) override;
  void RecalcColumns() override;
  void RequestRedraw() override;
  void ColumnsInserted(int32_t index, int32_t count) override;
  void ColumnsRemoved(int32_t index, int32_t count) override;
  void RowsInserted(int32_t row, int32_t count) override;
  void RowsRemoved(int32_t row, int32_t count) override;
  void RowsTruncated(int32_t row, int32_t count) override;
  void RowsCleared(bool columnsToo) override;
  bool RequestRow(int32_t row) override;
  void RequestRowData(int32_t row) override;

  // ---- CellObjectOwner
  void DefaultCellChanged(const CellObject& obj) override;
  std::shared_ptr<Font> DefaultFont() const override;

  // ---- Properties
  Variant PropertyValue(model::Prop p) const;
  // Applies a normalized value (see ControlProperties::Normalize) with its side effects.
  void ApplyProperty(model::Prop p, const Variant& normalized);
  // Normalizes, applies and tells the host that the property changed.
  void SetProperty(model::Prop p, const Variant& raw);
  void NotifyPropertyChanged(model::Prop p);

  // ---- Update suspension
  void BeginUpdate();
  void EndUpdate();
  void SetRecalcRowParms(bool on);
  // Runs the row position pass from a row now and clears what was pending.
  void RunRowPass(int32_t from);
  void PendingPassFrom(int32_t row);

  // ---- Current cell and selection: renumbered silently when rows or columns move, cleared
  // when they go. A reorder (sorting, MoveRow) keeps the selected items on their data rows:
  // RememberSelection before, RestoreSelection after.
  void SetCurrentCell(int32_t row, int32_t col) { selection.PlaceCurrent(row, col); }
  int32_t CurRow() const { return selection.CurRow(); }
  int32_t CurCol() const { return selection.CurCol(); }
  void RememberSelection() {
    selection.BeforeReorder();
    editor.BeforeReorder();
  }
  void RestoreSelection() {
    selection.AfterReorder();
    editor.AfterReorder();
  }
  // Where a printable character goes when no edit is open: key search or the editor.
  void CharacterTyped(int32_t charCode);

  // ---- Cells: one property of one cell (resolved row and column index).
  Variant CellProperty(int32_t row, int32_t colIndex, ECellProperty p) const;
  // The value needs no conversion: the hot path of loading a grid cell by cell.
  void SetCellValue(int32_t row, int32_t colIndex, const Variant& value);
  void SetCellProperty(int32_t row, int32_t colIndex, ECellProperty p, const Variant& raw);
  void SetColumnCellsProperty(int32_t colIndex, ECellProperty p, const Variant& raw,
                              int32_t firstRow, int32_t lastRow);
  // The colour drawing uses, after the dynamic formatting events, the cell's own colour, the
  // alternating row colours and the grid's colour, translated to RGB.
  Color EffectiveColor(int32_t row, int32_t colIndex, bool back);
  Color TranslateColor(Color c) const;
  std::shared_ptr<Font> FontOf(uint16_t number) const;

  // ---- Cell text: what drawing, sorting, searching and copying show for a cell.
  std::string CellText(int32_t row, int32_t colIndex);

  // ---- Editing: ends an in-cell edit before geometry or order changes (raises QuitCustomEdit,
  // then closes an open editor without storing, as Esc does).
  void EndEditing();
  // Scrolls a cell into view before it is edited.
  void EnsureCellVisible(int32_t row, int32_t colIndex);
  struct EditSiteImpl final : edit::EditSite {
    explicit EditSiteImpl(Control& control) : c(control) {}
    QuiltaEvents* Events() override { return c.events; }
    Platform& GetPlatform() override { return *c.platform; }
    int32_t CurRow() const override { return c.CurRow(); }
    int32_t CurCol() const override { return c.CurCol(); }
    std::string CellText(int32_t row, int32_t colIndex) override;
    void EnsureCellVisible(int32_t row, int32_t colIndex) override;
    Rect EditRect(int32_t row, int32_t colIndex) override;
    Rect CellsArea() override;
    const ComboObject* ComboListOf(int32_t row, int32_t colIndex) override;
    void ClearSearchString() override;
    void KeySearchCharacter(int32_t charCode) override;
    void StoreValue(int32_t row, int32_t colIndex, const Variant& value) override;
    void StoreComboListIndex(int32_t row, int32_t colIndex, int32_t index) override;
    void StoreCheckState(int32_t row, int32_t colIndex, ECellCheckState state) override;
    void RedrawCell(int32_t row, int32_t colIndex) override;
    Control& c;
  };

  // ---- Geometry: size changes carried to editing, the header, scrolling and drawing.
  struct GeometrySite final : layout::GeometrySite {
    explicit GeometrySite(Control& control) : c(control) {}
    void EndEditing() override { c.EndEditing(); }
    void RecalcRowsFrom(int32_t row) override { c.RecalcRowsFrom(row); }
    void RecalcColumns() override { c.RecalcColumns(); }
    void RequestRedraw() override { c.RequestRedraw(); }
    Control& c;
  };
  layout::ColumnSizing ColumnSizer() { return {store.Cols(), geometry, geometrySite}; }
  layout::RowSizing RowSizer() { return {store, geometry, geometrySite}; }
  // Brings row positions left pending by BeginUpdate up to date now, for operations that need
  // exact positions inside an update block (with layout::ForcedLayout for what they change).
  void SyncRowPositions();
  // LevelIndent in device pixels at the platform's current resolution.
  int32_t LevelIndentPixels();
  // ---- Row hierarchy and sorting
  // Invalidates every derived position and runs both position passes (TreeCol, RowLevel).
  void RelayoutAll();
  // The sort marks that the column headers show changed (ColSortKey, ColSortOrder).
  void SortMarksChanged();
  // After a sort, with SortScrollToCurRow: brings the current row into view.
  void ScrollCurRowIntoView();
  // Whether drawing raises CellDynamicIcons (DynamicContentEvents); icon sorts then compare the
  // icons it returns.
  bool CellDynamicIconsEnabled() const;
  // Rebuilds the group rows for GroupObject (after a grouped column's header flips its order).
  void Regroup();
  // Rows changed places (a sort, a move, a level change).
  void RowsRearranged();

  // ---- View: the layout pass (view rectangles, scroll ranges) runs before painting, hit
  // testing and scrolling; it is cheap, so it runs every time it is asked for.
  void EnsureLayout();
  // The header strip's height: the host's (headerHeight >= 0) or one line of the grid's font.
  int32_t HeaderHeightPixels() const;
  // A cell's rectangle in client pixels (resolved row; a column index, RowTextCol for the row
  // text cell).
  Rect CellRect(int32_t row, int32_t colIndex);
  // What the one cell part layout needs for a cell of a shown row (resolved row and column
  // index) inside its rectangle. With dynamicIcons, CellDynamicIcons is raised when enabled,
  // as drawing does, so that what is hit and measured is what is drawn.
  // shownIcons, when given, receives the icon and extra icon the cell shows.
  layout::CellPartsInput CellPartsFor(int32_t row, int32_t colIndex, const Rect& cell,
                                      bool dynamicIcons, int16_t* shownIcons = nullptr);
  // The image list a cell or header names (1-15), or nullptr.
  const ImageList* ImageListAt(uint8_t number) const;
  // Sets a scroll position (clamped) and redraws when it moved.
  bool ScrollTo(EScrollBar bar, int32_t pos);

  // ---- Visibility: bring a row (resolved index) or a scrollable column (slot) into view by an
  // ensure-visible mode (0-4) and gap; each returns whether its scroll position changed. They do
  // nothing while EnsureVisibleAutoVScroll / EnsureVisibleAutoHScroll is off, for rows that are
  // not shown, columns without a header item and frozen columns (those never scroll). With
  // endEditing (the public members), an open edit ends before the grid scrolls.
  bool EnsureRowVisible(int32_t row, int32_t mode, int32_t gap, bool endEditing = false);
  bool EnsureColVisible(int32_t slot, int32_t mode, int32_t gap, bool endEditing = false);
  // A cell's parts laid out in its client rectangle, as drawing lays them out.
  layout::CellParts CellPartsAt(int32_t row, int32_t colIndex);
  // Whether a cell's text needs more room than its text part has (IsCellTextClipped).
  bool CellTextClipped(int32_t row, int32_t colIndex);
  // The size a cell's text takes in its own font and text flags (broken into lines no wider
  // than maxWidth when the flags ask for word breaks; maxWidth <= 0: no limit).
  Size CellTextSize(int32_t row, int32_t colIndex, int32_t maxWidth);
  // AutoWidthCol on a column slot, its arguments checked. A header divider's double-click sizes
  // its column with this, no limits given and the rows shown now (quCellVisCurrentlyVisible).
  void AutoWidthColumn(int32_t slot, int32_t minWidth, int32_t maxWidth,
                       ECellVisibilityFilter filter);

  // ---- Drawing: the cells area and the header strip, each inside a clip rectangle.
  void PaintCells(Painter& painter, const Rect& clip);
  void PaintHeader(Painter& painter, const Rect& clip);
  // Asks the platform to repaint what a change touched: a cell's rectangle (nothing when it is
  // out of view), a row's band, a column's strip of the cells area.
  void InvalidateCell(int32_t row, int32_t colIndex);
  void InvalidateRowBand(int32_t row);
  void InvalidateColumnStrip(int32_t colIndex);
  // Characters of a cell's text matched by the key search in progress; 0 when none (drawn as
  // the key-search highlight).
  int32_t KeySearchHighlight(int32_t row, int32_t colIndex);

  // The width a column's header item needs to show its caption, icon and sort mark unclipped
  // (auto-width with AutoWidthColWithHeader).
  int32_t HeaderItemWidthNeeded(int32_t slot);

  // ---- Mouse: the header strip answers presses in it and any drag it started; the cells area
  // gets the rest. Each returns whether it took the message.
  bool HeaderMouse(MouseAction action, int16_t button, int16_t shift, Point at);
  void CellsMouse(MouseAction action, int16_t button, int16_t shift, Point at);
  // ---- Data exchange: layout strings, arrays and record sets.
  struct ExchangeSite final : exchange::ExchangeSite {
    explicit ExchangeSite(Control& control) : c(control) {}
    int32_t Dpi() const override { return c.platform->Dpi(); }
    void EndEditing() override { c.EndEditing(); }
    void ColumnTableReplaced() override;
    void SortMarksChanged() override { c.SortMarksChanged(); }
    void SortGrid() override;
    void CellValuesWritten(int32_t firstRow) override;
    void BeginUpdate() override { c.BeginUpdate(); }
    void EndUpdate() override { c.EndUpdate(); }
    Control& c;
  };

  // ---- Grouping: what selection, keyboard, editing and drawing ask about group rows. A group
  // row spans the grid's width; its content is its RowTextCol cell, which holds the group text
  // followed by the aggregate results (grouping keeps it up to date), and the tree operations
  // expand and collapse it like any node. grouping.IsGroupingRow tells the group rows grouping
  // made from those a host added with bGroupRow.
  bool IsGroupRow(int32_t row) const { return store.Rows().At(row).GroupRow(); }
  // Group rows take edits only with AllowGroupRowEditing on.
  bool RowEditable(int32_t row) const {
    return !IsGroupRow(row) || props.Bool(model::Prop::AllowGroupRowEditing);
  }

  // ---- Grouping: what it asks of the control.
  struct GroupingSite final : ops::GroupingSite {
    explicit GroupingSite(Control& control) : c(control) {}
    void EndEditing() override { c.EndEditing(); }
    void SortForGrouping(const ops::Criteria& criteria) override;
    void SortCriteriaChanged() override;
    void CustomGroupValue(int32_t row, int32_t col, Variant& value, std::string& text) override;
    std::string CellText(int32_t row, int32_t col) override { return c.CellText(row, col); }
    int32_t CurrentRowPhys() override;
    void SetCurrentRowPhys(int32_t phys) override;
    void RememberSelection() override { c.RememberSelection(); }
    void RestoreSelection() override { c.RestoreSelection(); }
    void RowsRelaidOut() override { c.RelayoutAll(); }
    void RequestRedraw() override { c.RequestRedraw(); }
    Control& c;
  };

  // ---- Header strip: what it asks of the control.
  struct HeaderSite final : header::HeaderSite {
    explicit HeaderSite(Control& control) : c(control) {}
    const model::ColumnStore& Columns() const override { return c.store.Cols(); }
    const layout::View& GetView() const override { return c.view; }
    int32_t FrozenCols() const override;
    header::HeaderLook Look() const override;
    Platform& GetPlatform() const override { return *c.platform; }
    QuiltaEvents* Events() const override { return c.events; }
    void HeaderClicked(int32_t colIndex, int16_t shift) override;
    void ResizeColumn(int32_t slot, int32_t width) override;
    bool MoveColumn(int32_t slot, int32_t toSlot) override;
    // A divider double-click sizes the column to what its visible cells (and, with
    // AutoWidthColWithHeader, its header item) need.
    void AutoSizeColumn(int32_t slot) override {
      c.AutoWidthColumn(slot, -1, -1, quCellVisCurrentlyVisible);
    }
    void InvalidateHeader(const Rect& r) override;
    void ScrollColumnsBy(int32_t dx) override {
      c.ScrollTo(quScrollBarH, c.view.Scroll(quScrollBarH).pos + dx);
    }
    Control& c;
  };
  // The header strip must be painted again (not while updates are suspended: EndUpdate
  // repaints everything).
  void InvalidateHeader();

  // ---- Group-by band: what it asks of the control.
  struct GroupBySite final : header::GroupBySite {
    explicit GroupBySite(Control& control) : c(control) {}
    const model::ColumnStore& Columns() const override { return c.store.Cols(); }
    const layout::View& GetView() const override { return c.view; }
    header::HeaderLook Look() const override { return c.headerSite.Look(); }
    Platform& GetPlatform() const override { return *c.platform; }
    QuiltaEvents* Events() const override { return c.events; }
    std::vector<header::GroupLevel> GroupedBy() const override;
    int32_t LevelCount() const override {
      return static_cast<int32_t>(c.grouping.GroupedBy().size());
    }
    bool GroupingAllowed() const override;
    int32_t LineHeight() const override;
    std::string PromptText() const override;
    void Regroup(const std::vector<header::GroupLevel>& levels) override;
    void InvalidateBand(const Rect& r) override { c.headerSite.InvalidateHeader(r); }
    Control& c;
  };
  // The band's height when GroupByBoxVisible is on, else 0.
  int32_t GroupByHeightPixels() const;
  void PaintGroupBy(Painter& painter, const Rect& clip) { groupByBand.Paint(painter, clip); }
  // The band takes presses in it and any drag it started; returns whether it took the message.
  bool GroupByMouse(MouseAction action, int16_t button, int16_t shift, Point at);

  // ---- Interaction: the sites the selection, the keyboard and key search reach out through.
  struct SelectionSite final : interaction::SelectionSite {
    explicit SelectionSite(Control& control) : c(control) {}
    QuiltaEvents* Events() override { return c.events; }
    void EndEditing() override { c.EndEditing(); }
    void Redraw() override { c.RequestRedraw(); }
    void CurrentCellMoved(int32_t oldRow, int32_t oldCol, int32_t newRow, int32_t newCol) override;
    Control& c;
  };
  // Scrolling into view and the view's extent belong to hit testing and visibility, which is not
  // built yet. Until it is, this placeholder keeps a top row and measures the view with the row
  // heights and the cells area; it scrolls vertically only.
  struct ViewSiteImpl final : interaction::ViewSite {
    explicit ViewSiteImpl(Control& control) : c(control) {}
    bool EnsureCellVisible(int32_t row, int32_t col) override;
    bool EnsureRowVisible(int32_t row, int32_t gap) override;
    int32_t ViewHeight() override;
    int32_t FirstFullyVisibleRow() override;
    int32_t LastFullyVisibleRow() override;
    void ScrollLines(int32_t columns, int32_t rows) override;
    void ScrollPages(int32_t pages) override;
    Control& c;
  };
  struct CommandSiteImpl final : interaction::CommandSite {
    explicit CommandSiteImpl(Control& control) : c(control) {}
    bool IsEditing() override { return c.editor.IsEditing(); }
    interaction::EditKind EditKindOf(int32_t row, int32_t col) override;
    void RequestEditCurCell(int32_t charCode, bool showCombo) override {
      c.editor.RequestEdit(charCode, showCombo);
    }
    bool CommitEdit() override { return !c.editor.Commit(true); }
    void CancelEdit() override { c.editor.Cancel(); }
    bool ToggleCheckBox(int32_t row, int32_t col) override;
    void Copy(bool withHeaders) override { c.clipboard.Copy(withHeaders); }
    void Cut() override { c.clipboard.Cut(); }
    void Paste() override { c.clipboard.Paste(); }
    void ClearSelectedCells() override { c.clipboard.ClearSelected(); }
    void ShowContextMenu(int32_t row, int32_t col) override { c.contextMenu.ShowForCell(row, col); }
    void ShowContextMenuAt(int32_t, int32_t col, int32_t x, int32_t y) override {
      c.contextMenu.Show(col, {x, y});
    }
    void SetRowExpanded(int32_t row, bool expanded) override;
    void ExpandSubtree(int32_t row) override;
    bool EnsureVirtualRows(int32_t row) override { return c.store.EnsureVirtualRows(row); }
    Control& c;
  };

  // ---- Clipboard and the built-in context menu: what they ask of the control.
  struct ClipboardSiteImpl final : exchange::ClipboardSite {
    explicit ClipboardSiteImpl(Control& control) : c(control) {}
    QuiltaEvents* Events() override { return c.events; }
    Platform& GetPlatform() override { return *c.platform; }
    std::string CellText(int32_t row, int32_t colIndex) override {
      return c.CellText(row, colIndex);
    }
    void EndEditing() override { c.EndEditing(); }
    void BeginUpdate() override { c.BeginUpdate(); }
    void EndUpdate() override { c.EndUpdate(); }
    void StoreValue(int32_t row, int32_t colIndex, const Variant& value) override {
      c.SetCellValue(row, colIndex, value);
    }
    const ComboObject* ComboListOf(int32_t row, int32_t colIndex) override {
      return c.editSite.ComboListOf(row, colIndex);
    }
    void StoreComboListIndex(int32_t row, int32_t colIndex, int32_t index) override {
      c.editSite.StoreComboListIndex(row, colIndex, index);
    }
    void AddColumns(int32_t count) override;
    void AddRows(int32_t count) override;
    void SortByColumn(int32_t colIndex, ESortOrders order) override;
    Rect CellRect(int32_t row, int32_t colIndex) override;
    Control& c;
  };

  // ---- Mouse in the cells area: hit testing, the cells area and the platform's timer.
  struct MouseSiteImpl final : interaction::MouseSite {
    explicit MouseSiteImpl(Control& control) : c(control) {}
    Hit HitAt(Point at) override;
    Rect CellsArea() override;
    void ClearSearchString() override;
    bool StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) override {
      return c.platform->StartTimer(id, intervalMs, sink);
    }
    void StopTimer(int32_t id) override { c.platform->StopTimer(id); }
    Control& c;
  };

  // ---- Tooltips: the cell under the pointer, its clipped text, the platform's tooltip.
  struct ToolTipSiteImpl final : interaction::ToolTipSite {
    explicit ToolTipSiteImpl(Control& control) : c(control) {}
    CellAt CellUnder(Point at) override;
    std::string ClippedText(int32_t row, int32_t col, Rect& cell) override;
    void ShowToolTip(const std::string& text, const Rect& near) override {
      c.platform->ShowToolTip(text, near);
    }
    void HideToolTip() override { c.platform->HideToolTip(); }
    bool StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) override {
      return c.platform->StartTimer(id, intervalMs, sink);
    }
    void StopTimer(int32_t id) override { c.platform->StopTimer(id); }
    Control& c;
  };

  // (subsystem hooks end)

  std::unique_ptr<HeadlessPlatform> ownedPlatform;
  Platform* platform;
  QuiltaEvents* events = nullptr;
  HostSite* host = nullptr;
  bool loadingProperties = false;

  model::ControlProperties props;
  UpdateState updates;
  layout::Geometry geometry;
  std::shared_ptr<model::CellResources> resources;
  model::GridStore store;
  CombosObject combos;
  int32_t dynamicContentEvents = quDCEventNone;
  GeometrySite geometrySite{*this};
  layout::View view;
  EditSiteImpl editSite{*this};
  edit::Editor editor{store, props, editSite};
  int32_t headerHeight = -1;                  // -1: automatic
  std::shared_ptr<ImageList> imageLists[16];  // [0] unused: 0 names no list
  ScrollBarInfo shownScrollBars[2];
  ExchangeSite exchangeSite{*this};
  ScrollBarObject hScrollBar{*this, quScrollBarH};
  ScrollBarObject vScrollBar{*this, quScrollBarV};
  // Sorting and grouping criteria; grouping keeps the criteria the grid is currently grouped by.
  SortGroupObject sortObject;
  SortGroupObject groupObject;
  // A removed column took sort criteria with it: ColSortKey is renumbered once it is gone.
  bool sortMarksPending = false;
  GroupingSite groupingSite{*this};
  ops::Grouper grouping{store, props, *resources, groupObject, sortObject, groupingSite};
  HeaderSite headerSite{*this};
  GroupBySite groupBySite{*this};
  header::GroupByBand groupByBand{groupBySite};
  header::HeaderStrip headerStrip{headerSite, groupByBand};
  HeaderObject headerObject{*this};
  // Grid painting's answers about tree lines, kept while the rows stay as they are.
  render::TreeLineScans treeLineScans;
  SelectionSite selectionSite{*this};
  ViewSiteImpl viewSite{*this};
  CommandSiteImpl commandSite{*this};
  interaction::Selection selection{store, props, selectionSite, viewSite};
  SelItemsObject selItemsObject{selection.Items()};
  int32_t keySearchCol = 0;
  interaction::KeySearch keySearch{
      store,         props,        selection,
      selectionSite, keySearchCol, [this](int32_t r, int32_t c) { return CellText(r, c); }};
  interaction::KeyboardCommands keyboard{store,    props,       selection,    keySearch,
                                         viewSite, commandSite, selectionSite};
  ClipboardSiteImpl clipboardSite{*this};
  exchange::ClipboardCommands clipboard{store, props, selection, clipboardSite};
  exchange::BuiltinContextMenu contextMenu{store, props, clipboard, clipboardSite};
  MouseSiteImpl mouseSite{*this};
  interaction::MouseHandler mouse{store,    props,       selection, selectionSite,
                                  viewSite, commandSite, mouseSite};
  ToolTipSiteImpl toolTipSite{*this};
  interaction::ToolTips toolTips{props, toolTipSite};
  // (subsystem state end)
};

}  // namespace quilta::control

// The state behind one Quilta control: every store and subsystem, and the glue that passes the
// stores' notices to the subsystems that own the affected state.
#pragma once

#include <memory>
#include <quilta/quilta.hpp>

#include "layout/column_sizing.hpp"
#include "layout/geometry.hpp"
#include "layout/row_sizing.hpp"
#include "model/cell_object_access.hpp"
#include "model/cell_resources.hpp"
#include "model/control_properties.hpp"
#include "model/grid_store.hpp"
#include "model/store_listener.hpp"
#include "ops/sorting/sort_group_access.hpp"

namespace quilta::control {

// Suspension of recalculation and drawing (BeginUpdate / EndUpdate).
struct UpdateState {
  int32_t count = 0;
  int32_t pendingRow = 0;  // lowest row whose positions must be recomputed; 0 = none
};

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

  // ---- Current cell: renumbered silently when rows or columns move, cleared when they go.
  void SetCurrentCell(int32_t row, int32_t col);

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

  // ---- Editing: ends an in-cell edit before geometry or order changes (raises QuitCustomEdit).
  void EndEditing();

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
  int32_t curRow = 0;
  int32_t curCol = 0;
  CombosObject combos;
  int32_t dynamicContentEvents = quDCEventNone;
  GeometrySite geometrySite{*this};
  // Sorting and grouping criteria. groupedBy holds the criteria the grid is currently grouped by;
  // grouping does not build group rows yet, so it stays empty and the grid is never grouped.
  SortGroupObject sortObject;
  SortGroupObject groupObject;
  ops::Criteria groupedBy;
  // (subsystem state end)
};

}  // namespace quilta::control

// Column widths, width limits, display order and visibility. Every width the grid stores goes
// through SetWidth, the single writer, so the layout mark, an open editor and the header strip
// always hear of it. Operations take slots (display positions); resolving the host's column
// references is the caller's job.
#pragma once

#include <cstdint>

#include "layout/geometry.hpp"
#include "layout/geometry_site.hpp"
#include "model/column_store.hpp"

namespace quilta::layout {

// A width brought into a column's limits: up to a minimum, then down to a maximum (so the
// maximum wins if they ever disagree). A negative limit means none.
int32_t ClampWidth(const model::Column& c, int32_t width);

class ColumnSizing {
 public:
  ColumnSizing(model::ColumnStore& cols, Geometry& geometry, GeometrySite& site)
      : cols_(cols), geometry_(geometry), site_(site) {}

  // The single writer of a column width. The caller recomputes positions and redraws.
  void SetWidth(int32_t slot, int32_t width);

  // ColWidth: a negative width fails with 514; otherwise it is clamped, never refused.
  void SetColWidth(int32_t slot, int32_t width);
  // Every column whose index lies in first..last, in one pass and one redraw.
  void SetColWidths(int32_t width, int32_t firstIndex, int32_t lastIndex);
  void SetMinWidth(int32_t slot, int32_t minWidth);
  void SetMaxWidth(int32_t slot, int32_t maxWidth);
  // Gives the column what the cells area leaves over after the other header-item columns.
  void ResizeToFillSpace(int32_t slot, int32_t areaWidth);
  void Move(int32_t slot, int32_t to);
  void SetVisible(int32_t slot, bool visible);

  // The header item of the column at a slot: the number of header-item columns before it.
  int32_t HeaderItemOf(int32_t slot) const;

 private:
  bool IsRowText(int32_t slot) const { return slot > cols_.ColCount(); }
  void RefuseRowText(int32_t slot) const;
  void StoreWidth(int32_t slot, int32_t width);
  bool MoveLeavesAPartEmpty(int32_t slot) const;
  void Relayout();

  model::ColumnStore& cols_;
  Geometry& geometry_;
  GeometrySite& site_;
};

}  // namespace quilta::layout

// Row heights, row visibility and the normal cell height. Each change keeps the store's totals
// of shown rows right from the row's state before and after, and runs the row position pass
// only from the first changed row down (through the site, so BeginUpdate can defer it).
// Operations take row indexes; resolving the host's row references is the caller's job.
#pragma once

#include <cstdint>

#include "layout/geometry.hpp"
#include "layout/geometry_site.hpp"
#include "model/grid_store.hpp"

namespace quilta::layout {

class RowSizing {
 public:
  RowSizing(model::GridStore& store, Geometry& geometry, GeometrySite& site)
      : store_(store), geometry_(geometry), site_(site) {}

  void SetHeight(int32_t row, int32_t height);
  // Rows first..last, then one pass from the first and one redraw. Height 0 hides them.
  void SetHeights(int32_t height, int32_t first, int32_t last);
  void SetVisible(int32_t row, bool visible);
  void SetNormalCellHeight(int32_t row, int32_t height);

 private:
  // Starts a change of row geometry: the mark, the editor and the position caches.
  void BeginRowChange();
  void StoreHeight(int32_t row, int32_t height);
  void Refresh(int32_t from);

  model::GridStore& store_;
  Geometry& geometry_;
  GeometrySite& site_;
};

}  // namespace quilta::layout

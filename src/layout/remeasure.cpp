#include "layout/remeasure.hpp"

#include "model/grid_store.hpp"

namespace quilta::layout {

void RemeasureMarks::MarkRow(model::GridStore& store, int32_t row) {
  int32_t phys = store.Rows().At(row).phys;
  bool anyUniform = false;
  for (int32_t index = 1; index <= store.Cols().RowTextCol(); ++index) {
    if (store.Cells().Column(index).IsTemplate(phys)) {
      anyUniform = true;
      continue;
    }
    store.MutableCell(row, index).state |= model::Cell::kRemeasure;
  }
  if (!anyUniform) return;
  if (rows_.size() < static_cast<size_t>(phys)) rows_.resize(phys, false);
  rows_[phys - 1] = true;
}

bool RemeasureMarks::CellNeedsRemeasure(const model::GridStore& store, int32_t row,
                                        int32_t colIndex) const {
  if (store.CellAt(row, colIndex).state & model::Cell::kRemeasure) return true;
  return PhysMarked(store.Rows().At(row).phys);
}

void RemeasureMarks::RowMeasured(model::GridStore& store, int32_t row) {
  int32_t phys = store.Rows().At(row).phys;
  if (PhysMarked(phys)) rows_[phys - 1] = false;
  for (int32_t index = 1; index <= store.Cols().RowTextCol(); ++index) {
    if (store.Cells().Column(index).IsTemplate(phys)) {
      if (!(store.CellAt(row, index).state & model::Cell::kRemeasure)) continue;
    }
    store.MutableCell(row, index).state &= static_cast<uint8_t>(~model::Cell::kRemeasure);
  }
}

}  // namespace quilta::layout

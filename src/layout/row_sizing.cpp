#include "layout/row_sizing.hpp"

#include <quilta/error.hpp>

#include "model/store_listener.hpp"

namespace quilta::layout {
namespace {

[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }

}  // namespace

void RowSizing::BeginRowChange() {
  site_.EndEditing();
  geometry_.RecordChange(model::kLayoutRows);
  site_.RowPositionsInvalidated();
}

void RowSizing::StoreHeight(int32_t row, int32_t height) {
  store_.BeforeRowShapeChange(row);
  store_.Rows().At(row).height = height;
  store_.AfterRowShapeChange(row);
}

void RowSizing::Refresh(int32_t from) {
  site_.RecalcRowsFrom(from);
  site_.ScrollRangesChanged();
  site_.RequestRedraw();
}

void RowSizing::SetHeight(int32_t row, int32_t height) {
  if (height < 0) Raise(quErrInvalidArgument);
  if (height == store_.Rows().At(row).height) return;
  BeginRowChange();
  StoreHeight(row, height);
  Refresh(row);
}

void RowSizing::SetHeights(int32_t height, int32_t first, int32_t last) {
  if (height < 0) Raise(quErrInvalidArgument);
  BeginRowChange();
  for (int32_t row = first; row <= last; ++row) StoreHeight(row, height);
  Refresh(first);
}

void RowSizing::SetVisible(int32_t row, bool visible) {
  model::RowRecord& rec = store_.Rows().At(row);
  if (rec.Visible() == visible) return;
  BeginRowChange();
  store_.BeforeRowShapeChange(row);
  rec.flags ^= model::RowRecord::kVisible;
  store_.AfterRowShapeChange(row);
  Refresh(row);
}

void RowSizing::SetNormalCellHeight(int32_t row, int32_t height) {
  if (height < 0) Raise(quErrInvalidArgument);
  site_.EndEditing();
  store_.Rows().At(row).normalCellHeight = height;
  geometry_.Remeasure().MarkRow(store_, row);
  site_.RequestRedraw();
}

}  // namespace quilta::layout

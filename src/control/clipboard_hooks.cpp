// What the clipboard commands and the built-in context menu ask of the control.
#include "control/control.hpp"
#include "ops/sorting/sorter.hpp"

namespace quilta::control {

void Control::ClipboardSiteImpl::AddColumns(int32_t count) {
  c.store.SetColCount(c.store.ColCount() + count,
                      c.props.Get(model::Prop::AutoColHeaderTextTemplate).StringView());
}

void Control::ClipboardSiteImpl::AddRows(int32_t count) {
  AddRowArgs args;
  args.lCount = count;
  c.store.AddRows(args);
}

void Control::ClipboardSiteImpl::SortByColumn(int32_t colIndex, ESortOrders order) {
  ops::Sorter(c).DoDefaultSort(colIndex, 1, order, Variant::Missing(), Variant::Missing());
}

Rect Control::ClipboardSiteImpl::CellRect(int32_t row, int32_t colIndex) {
  c.EnsureLayout();
  return c.CellRect(row, colIndex);
}

}  // namespace quilta::control

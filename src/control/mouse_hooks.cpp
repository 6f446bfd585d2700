// The mouse in the cells area: the handler's view of hit testing and the cells area.
#include "control/control.hpp"
#include "layout/hit_test.hpp"

namespace quilta::control {

// A disabled grid takes no mouse input in its cells, as disabled windows get none.
void Control::CellsMouse(MouseAction action, int16_t button, int16_t shift, Point at) {
  if (action == MouseAction::Move && props.Bool(model::Prop::Enabled)) {
    toolTips.PointerMoved(at, button != 0);
  } else {
    toolTips.Hide();
  }
  if (!props.Bool(model::Prop::Enabled)) return;
  switch (action) {
    case MouseAction::Down:
      mouse.Down(button, shift, at);
      break;
    case MouseAction::Move:
      mouse.Move(button, shift, at);
      break;
    case MouseAction::Up:
      mouse.Up(button, shift, at);
      break;
    case MouseAction::DblClick:
      mouse.DblClick(button, shift, at);
      break;
    case MouseAction::Leave:
      mouse.Leave();
      break;
  }
}

interaction::MouseSite::Hit Control::MouseSiteImpl::HitAt(Point at) {
  c.SyncRowPositions();
  c.EnsureLayout();
  if (!c.view.CellsArea().Contains(at)) return {};
  const model::ColumnStore& cols = c.store.Cols();
  layout::RowTextLayout rowText;
  rowText.frozenCols = c.props.Long(model::Prop::FrozenCols);
  rowText.rowTextSlot = std::max(1, cols.SlotOfIndex(c.geometry.RowTextStartCol()));
  rowText.drawRowText = c.props.Bool(model::Prop::DrawRowText);
  const layout::CellRef cell =
      layout::CellUnderPoint(c.view, cols, c.geometry.Columns(), c.store.Rows(), rowText, at);
  if (cell.row < 1 || cell.colIndex < 1) return {};
  const layout::CellPartsInput in =
      c.CellPartsFor(cell.row, cell.colIndex, c.CellRect(cell.row, cell.colIndex), true);
  const model::Cell& data = c.store.CellAt(cell.row, cell.colIndex);
  const layout::CellHitInfo info{in.treeButton, data.CheckVisible(), data.Type()};
  return {cell.row, cell.colIndex, layout::PartUnderPoint(layout::LayoutCellParts(in), info, at)};
}

Rect Control::MouseSiteImpl::CellsArea() {
  c.EnsureLayout();
  return c.view.CellsArea();
}

void Control::MouseSiteImpl::ClearSearchString() { c.keySearch.Clear(); }

}  // namespace quilta::control

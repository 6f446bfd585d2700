// Painting the cells area through render::GridPainter, the events painting raises, and the
// invalidation of what a change touched.
#include "control/control.hpp"
#include "render/grid_painter.hpp"

namespace quilta::control {
namespace {

// The control's side of grid painting: events and the per-cell answers it asks for.
class PaintSite final : public render::RenderSite {
 public:
  explicit PaintSite(Control& c) : c_(c) {}

  render::DynamicLook CellFormatting(int32_t row, int32_t colIndex, const Font& preset) override {
    render::DynamicLook look;
    if (!c_.events) return look;
    auto font = std::make_shared<Font>(preset);
    const std::shared_ptr<Font> given = font;
    const Variant value = c_.store.CellAt(row, colIndex).value;
    c_.events->CellDynamicFormatting(row, colIndex, value, look.fore, look.back, font);
    if (font && (font != given || *font != preset)) look.font = std::move(font);
    return look;
  }

  render::DynamicLook RowFormatting(int32_t row, const Font& preset) override {
    render::DynamicLook look;
    if (!c_.events) return look;
    auto font = std::make_shared<Font>(preset);
    const std::shared_ptr<Font> given = font;
    c_.events->RowDynamicFormatting(row, look.fore, look.back, font);
    if (font && (font != given || *font != preset)) look.font = std::move(font);
    return look;
  }

  std::string CellText(int32_t row, int32_t colIndex) override {
    return c_.CellText(row, colIndex);
  }

  layout::CellPartsInput CellParts(int32_t row, int32_t colIndex, const Rect& cell,
                                   int16_t icons[2]) override {
    return c_.CellPartsFor(row, colIndex, cell, true, icons);
  }

  bool CustomDrawBackground(int32_t row, int32_t colIndex, Painter& painter, const Rect& r,
                            bool selected) override {
    bool doDefault = true;
    if (c_.events) {
      c_.events->CustomDrawCellBackground(row, colIndex, painter, r.left, r.top, r.right, r.bottom,
                                          selected, doDefault);
    }
    return doDefault;
  }

  bool CustomDrawForeground(int32_t row, int32_t colIndex, Painter& painter, const Rect& r,
                            bool selected) override {
    bool doDefault = true;
    if (c_.events) {
      c_.events->CustomDrawCellForeground(row, colIndex, painter, r.left, r.top, r.right, r.bottom,
                                          selected, doDefault);
    }
    return doDefault;
  }

  int32_t KeySearchHighlight(int32_t row, int32_t colIndex) override {
    return c_.KeySearchHighlight(row, colIndex);
  }

 private:
  Control& c_;
};

}  // namespace

void Control::PaintCells(Painter& painter, const Rect& clip) {
  PaintSite site(*this);
  const render::PaintStyle style = render::PaintStyle::From(
      props, *platform, platform->HasFocus(), dynamicContentEvents, LevelIndentPixels());
  // Every change of row order, levels or count runs a row position pass.
  treeLineScans.Sync(static_cast<uint64_t>(geometry.RowPasses()) << 32 ^
                     static_cast<uint32_t>(store.RowCount()));
  const render::PaintSource source{store,      *resources,    props.FontValue(), *platform,
                                   imageLists, treeLineScans, CurRow(),          CurCol()};
  const model::ColumnStore& cols = store.Cols();
  const int32_t rowTextSlot = std::max(1, cols.SlotOfIndex(geometry.RowTextStartCol()));
  const render::GridLayout layout{view, geometry.Columns(), rowTextSlot};
  render::GridPainter(source, style, layout, site, painter).Paint(clip);
}

void Control::InvalidateCell(int32_t row, int32_t colIndex) {
  if (updates.count > 0) return;  // EndUpdate repaints everything
  if (!view.LaidOut()) return platform->Invalidate();
  const model::RowRecord& rec = store.Rows().At(row);
  if (!rec.Shown()) return;
  // Rows out of view need nothing repainted: test that before working out the rectangle.
  const int32_t top = view.ClientY(rec);
  const Rect& area = view.CellsArea();
  if (top >= area.bottom || top + rec.height <= area.top) return;
  const Rect r =
      rec.GroupRow() ? CellRect(row, store.Cols().RowTextCol()) : CellRect(row, colIndex);
  const Rect shown = r.Intersection(area);
  if (!shown.IsEmpty()) platform->InvalidateRect(shown);
}

void Control::InvalidateRowBand(int32_t row) {
  if (updates.count > 0) return;
  if (!view.LaidOut()) return platform->Invalidate();
  const model::RowRecord& rec = store.Rows().At(row);
  if (!rec.Shown()) return;
  const Rect& area = view.CellsArea();
  const int32_t top = view.ClientY(rec);
  const Rect shown = Rect{area.left, top, area.right, top + rec.height}.Intersection(area);
  if (!shown.IsEmpty()) platform->InvalidateRect(shown);
}

void Control::InvalidateColumnStrip(int32_t colIndex) {
  if (updates.count > 0) return;
  const model::ColumnStore& cols = store.Cols();
  const int32_t slot = cols.SlotOfIndex(colIndex);
  if (!view.LaidOut() || colIndex == cols.RowTextCol() || slot == 0) return platform->Invalidate();
  const model::Column& c = cols.AtSlot(slot);
  const Rect& area = view.CellsArea();
  const int32_t left = view.ClientX(c, slot, props.Long(model::Prop::FrozenCols));
  Rect shown = Rect{left, area.top, left + c.width, area.bottom}.Intersection(area);
  // A scrolled column partly under the frozen ones shows only right of them.
  if (slot > props.Long(model::Prop::FrozenCols)) shown = shown.Intersection(view.ScrollableArea());
  if (!shown.IsEmpty()) platform->InvalidateRect(shown);
}

}  // namespace quilta::control

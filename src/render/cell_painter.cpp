#include "render/cell_painter.hpp"

#include <algorithm>

namespace quilta::render {

int32_t CellDrawFlags(const model::Cell& cell) {
  int32_t flags = cell.textFlags;
  if (cell.AlignH() == quAlignHCenter) flags |= quTextCenter;
  if (cell.AlignH() == quAlignHRight) flags |= quTextRight;
  if (cell.AlignV() == quAlignVCenter) flags |= quTextVCenter;
  if (cell.AlignV() == quAlignVBottom) flags |= quTextBottom;
  return flags;
}

namespace {

// Bytes taken by the first n code points of UTF-8 text.
size_t PrefixBytes(std::string_view text, int32_t n) {
  size_t i = 0;
  for (int32_t seen = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80 && seen++ == n) break;
  }
  return i;
}

}  // namespace

RowPaintState CellPainter::RowState(int32_t row) {
  RowPaintState state;
  state.row = row;
  if (style_.highlight && style_.fullRowSelect) {
    const int32_t count = src_.store.ColCount();
    for (int32_t col = 1; col <= count && !state.rowHighlighted; ++col) {
      state.rowHighlighted = src_.store.CellAt(row, col).Selected();
    }
  }
  if (style_.dynamicEvents & quDCEventRowDynamicFormatting) {
    state.hasDynamic = true;
    state.dynamic = site_.RowFormatting(row, src_.defaultFont);
  }
  return state;
}

Color CellPainter::AlternatingBack(const model::RowRecord& rec) const {
  const Color alternating = rec.visibleIndex % 2 == 0 ? style_.evenRowsBack : style_.oddRowsBack;
  return alternating != -1 ? alternating : style_.back;
}

// The same precedence as the effective colours: the cell's dynamic formatting, the row's, the
// cell's own colours, then the alternating row colours and the grid's colours.
CellPainter::Look CellPainter::LookOf(const RowPaintState& row, int32_t colIndex,
                                      const model::Cell& cell, std::shared_ptr<Font>& keep) {
  Look look{-1, -1, cell.font ? &src_.resources.fonts.At(cell.font) : &src_.defaultFont};
  if (style_.dynamicEvents & quDCEventCellDynamicFormatting) {
    DynamicLook d = site_.CellFormatting(row.row, colIndex, *look.font);
    look.back = d.back;
    look.fore = d.fore;
    if (d.font) keep = std::move(d.font), look.font = keep.get();
  }
  if (row.hasDynamic) {
    if (look.back == -1) look.back = row.dynamic.back;
    if (look.fore == -1) look.fore = row.dynamic.fore;
    if (!keep && row.dynamic.font) look.font = row.dynamic.font.get();
  }
  if (look.back == -1) look.back = cell.backColor;
  if (look.fore == -1) look.fore = cell.foreColor;
  look.back = look.back != -1 ? ToRgb(look.back, src_.platform)
                              : AlternatingBack(src_.store.Rows().At(row.row));
  look.fore = look.fore != -1 ? ToRgb(look.fore, src_.platform) : style_.fore;
  if (style_.disabledLook) look.back = style_.disabledBack, look.fore = style_.disabledFore;
  return look;
}

bool CellPainter::Paint(const RowPaintState& row, int32_t colIndex, const Rect& rect) {
  const model::Cell& cell = src_.store.CellAt(row.row, colIndex);
  const bool selected = style_.highlight && (cell.Selected() || row.rowHighlighted);
  std::shared_ptr<Font> keep;
  Look look = LookOf(row, colIndex, cell, keep);
  if (selected && style_.alpha == 255) {
    look.back = style_.highlightBack;
    look.fore = style_.highlightFore;
  }
  const bool custom = cell.Type() == quCellCustomDraw;
  if (custom) p_.PushClip(rect);
  if (!custom || site_.CustomDrawBackground(row.row, colIndex, p_, rect, selected)) {
    p_.FillRect(rect, look.back);
    if (cell.Hatch() != quHatchNone) p_.FillHatch(rect, cell.Hatch(), look.fore);
  }
  if (!custom || site_.CustomDrawForeground(row.row, colIndex, p_, rect, selected)) {
    PaintContents(row.row, colIndex, cell, rect, look, selected);
  }
  if (custom) p_.PopClip();
  return selected;
}

void CellPainter::PaintSelectionLayer(const Rect& rect) {
  p_.FillRectAlpha(rect, style_.highlightBack, style_.alpha);
}

void CellPainter::PaintContents(int32_t row, int32_t colIndex, const model::Cell& cell,
                                const Rect& rect, const Look& look, bool selected) {
  int16_t icons[2] = {0, 0};
  const layout::CellPartsInput in = site_.CellParts(row, colIndex, rect, icons);
  const layout::CellParts parts = layout::LayoutCellParts(in);
  const bool onlyText = in.treeSlots == 0 && parts.checkBox.IsEmpty() && parts.icon.IsEmpty() &&
                        parts.extraIcon.IsEmpty() && parts.comboButton.IsEmpty();
  if (!onlyText) p_.PushClip(rect);
  if (in.treeSlots > 0 && style_.treeLines != quTreeLinesNone) PaintTreeLines(row, in, rect);
  if (!parts.treeButton.IsEmpty()) {
    p_.DrawTreeButton(parts.treeButton, src_.store.Rows().At(row).Expanded(),
                      style_.treeButtonBorder, style_.treeButtonBack, style_.treeButtonFore);
  }
  if (!parts.checkBox.IsEmpty()) {
    p_.DrawCheckBox(parts.checkBox, cell.CheckState(), style_.cellControlsLook, style_.enabled);
  }
  const Color blend = selected && style_.highlightIcons ? style_.highlightBack : -1;
  const uint8_t lists[2] = {cell.ImageList(), cell.ExtraImageList()};
  const Rect* places[2] = {&parts.icon, &parts.extraIcon};
  for (int i = 0; i < 2; ++i) {
    if (places[i]->IsEmpty()) continue;
    p_.DrawImage(*src_.imageLists[lists[i]], icons[i], {places[i]->left, places[i]->top}, blend,
                 style_.dimIcons);
  }
  if (!parts.comboButton.IsEmpty()) {
    p_.DrawComboButton(parts.comboButton, false, style_.cellControlsLook, style_.enabled);
  }
  if (!parts.text.IsEmpty()) {
    PaintText(row, colIndex, cell, parts.text, look,
              cell.Hatch() != quHatchNone && style_.opaqueTextInHatch);
  }
  if (!onlyText) p_.PopClip();
}

Rect CellPainter::TextExtent(const Rect& r, std::string_view text, const Font& font,
                             int32_t flags) const {
  const Size s =
      src_.platform.MeasureText(text, font, flags, (flags & quTextWordBreak) ? r.Width() : 0);
  const int32_t w = std::min(s.cx, r.Width());
  const int32_t h = std::min(s.cy, r.Height());
  const int32_t left = (flags & quTextRight)    ? r.right - w
                       : (flags & quTextCenter) ? r.left + (r.Width() - w) / 2
                                                : r.left;
  const int32_t top = (flags & quTextBottom)    ? r.bottom - h
                      : (flags & quTextVCenter) ? r.top + (r.Height() - h) / 2
                                                : r.top;
  return {left, top, left + w, top + h};
}

void CellPainter::PaintText(int32_t row, int32_t colIndex, const model::Cell& cell,
                            const Rect& textRect, const Look& look, bool opaque) {
  const std::string text = site_.CellText(row, colIndex);
  if (text.empty()) return;
  const int32_t flags = CellDrawFlags(cell);
  const Font& font = *look.font;
  // In a hatched cell the text stands on a patch of the cell's background, so it stays legible.
  if (opaque) p_.FillRect(TextExtent(textRect, text, font, flags), look.back);
  const int32_t matched = site_.KeySearchHighlight(row, colIndex);
  Rect match;
  if (matched > 0) {
    const int32_t firstLine = flags | quTextSingleLine;
    const Rect extent = TextExtent(textRect, text, font, firstLine);
    const std::string_view prefix(text.data(), PrefixBytes(text, matched));
    const int32_t width = src_.platform.MeasureText(prefix, font, quTextSingleLine, 0).cx;
    match = {extent.left, extent.top, std::min(extent.left + width, textRect.right), extent.bottom};
    p_.FillRect(match, style_.keySearchBack);
  }
  p_.DrawText(textRect, text, font, look.fore, flags);
  if (matched > 0) {
    // The matched characters again, in the highlight's text colour, clipped to the match.
    p_.PushClip(match);
    p_.DrawText(textRect, text, font, style_.keySearchFore, flags);
    p_.PopClip();
  }
}

}  // namespace quilta::render

namespace quilta::render {

// One slot per level: the row's own slot holds its connector (up from the top, across to the
// slot's right, down when a sibling follows); each ancestor's slot holds a through line when that
// ancestor has a sibling further down.
void CellPainter::PaintTreeLines(int32_t row, const layout::CellPartsInput& in, const Rect& rect) {
  const model::RowRecord& rec = src_.store.Rows().At(row);
  const int32_t own = in.treeSlots - 1;
  const int32_t midY = rect.top + rect.Height() / 2;
  const int32_t bottom = rect.bottom - 1;
  auto line = [&](Point a, Point b) {
    if (style_.treeLines == quTreeLinesDotted) {
      p_.DottedLine(a, b, style_.treeLinesColor);
    } else {
      p_.Line(a, b, style_.treeLinesColor, 1);
    }
  };
  for (int32_t slot = 0; slot <= own; ++slot) {
    const int32_t level = rec.level - (own - slot);
    if (level < 0) continue;
    const int32_t slotLeft = in.cell.left + slot * in.levelIndent;
    const int32_t x = slotLeft + in.levelIndent / 2;
    const bool below =
        src_.treeLines.ContinuesBelow(src_.store.Rows(), row, static_cast<uint8_t>(level));
    if (slot < own) {
      if (below) line({x, rect.top}, {x, bottom});
      continue;
    }
    if (row > 1) line({x, rect.top}, {x, midY});
    line({x, midY}, {slotLeft + in.levelIndent - 1, midY});
    if (below) line({x, midY}, {x, bottom});
  }
}

}  // namespace quilta::render

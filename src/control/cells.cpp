// Cell properties, effective colours and cell text.
#include "control/control.hpp"
#include "model/cell_properties.hpp"

namespace quilta::control {
namespace {

// Properties whose change can change the height the cell's text needs.
bool AffectsTextSize(ECellProperty p) {
  switch (p) {
    case quPropCellValue:
    case quPropCellFont:
    case quPropCellFmtString:
    case quPropCellTextFlags:
    case quPropCellType:
    case quPropCellIndentTop:
    case quPropCellIndentBottom:
    case quPropCellIndentLeft:
    case quPropCellIndentRight:
    case quPropCellIcon:
    case quPropCellExtraIcon:
    case quPropCellCheckVisible:
      return true;
    default:
      return false;
  }
}

}  // namespace

Variant Control::CellProperty(int32_t row, int32_t colIndex, ECellProperty p) const {
  return model::ReadCellProperty(store.CellAt(row, colIndex), p, *resources);
}

void Control::SetCellProperty(int32_t row, int32_t colIndex, ECellProperty p, const Variant& raw) {
  Variant value = model::NormalizeCellProperty(p, raw, *resources);
  if (p == quPropCellValue) return SetCellValue(row, colIndex, value);
  model::Cell& cell = store.MutableCell(row, colIndex);
  model::WriteCellProperty(cell, p, value);
  if (AffectsTextSize(p)) {
    cell.state |= model::Cell::kRemeasure;
    geometry.RecordChange(model::kLayoutRows);
  }
  InvalidateCell(row, colIndex);
}

void Control::SetCellValue(int32_t row, int32_t colIndex, const Variant& value) {
  model::Cell& cell = store.MutableCell(row, colIndex);
  if (grouping.Watches(colIndex)) {
    Variant before = cell.value;
    cell.value = value;
    store.Cells().Column(colIndex).NoteRefs(cell);
    grouping.CellValueChanged(store.Rows().At(row).phys, colIndex, before, cell.value);
  } else {
    cell.value = value;
    store.Cells().Column(colIndex).NoteRefs(cell);
  }
  cell.state |= model::Cell::kRemeasure;
  geometry.RecordChange(model::kLayoutRows);
  InvalidateCell(row, colIndex);
}

// One conversion and check, then one pass writing the field of every cell in the row range.
void Control::SetColumnCellsProperty(int32_t colIndex, ECellProperty p, const Variant& raw,
                                     int32_t firstRow, int32_t lastRow) {
  Variant value = model::NormalizeCellProperty(p, raw, *resources);
  if (p == quPropCellSelected && value.BoolValue() && lastRow > firstRow &&
      !props.Bool(model::Prop::MultiSelect))
    throw Error::FromCode(quErrInvalidArgument);
  if (p == quPropCellSelected) {
    selection.SetRangeSelected(colIndex, firstRow, lastRow, value.BoolValue());
    return;
  }
  model::CellColumn& column = store.Cells().Column(colIndex);
  model::RowStore& rows = store.Rows();
  bool watched = p == quPropCellValue && grouping.Watches(colIndex);
  for (int32_t r = firstRow; r <= lastRow; ++r) {
    model::Cell& cell = store.Cells().Mutable(colIndex, rows.At(r).phys);
    if (watched) {
      Variant before = cell.value;
      model::WriteCellProperty(cell, p, value);
      grouping.CellValueChanged(rows.At(r).phys, colIndex, before, cell.value, false);
      continue;
    }
    model::WriteCellProperty(cell, p, value);
    if (AffectsTextSize(p)) cell.state |= model::Cell::kRemeasure;
  }
  if (p == quPropCellValue && firstRow <= lastRow)
    column.NoteRefs(store.CellAt(firstRow, colIndex));
  if (watched) grouping.RefreshTexts();
  if (AffectsTextSize(p)) geometry.RecordChange(model::kLayoutRows);
  InvalidateColumnStrip(colIndex);
}

Color Control::TranslateColor(Color c) const {
  if ((static_cast<uint32_t>(c) & 0xFF000000u) == 0x80000000u)
    return platform->SystemColor(c & 0xFF);
  return c;
}

std::shared_ptr<Font> Control::FontOf(uint16_t number) const {
  return number ? std::make_shared<Font>(resources->fonts.At(number)) : DefaultFont();
}

Color Control::EffectiveColor(int32_t row, int32_t colIndex, bool back) {
  const model::Cell& cell = store.CellAt(row, colIndex);
  if (events && (dynamicContentEvents & quDCEventCellDynamicFormatting)) {
    Color fore = -1, bk = -1;
    std::shared_ptr<Font> font = FontOf(cell.font);
    Variant value = cell.value;
    events->CellDynamicFormatting(row, colIndex, value, fore, bk, font);
    if ((back ? bk : fore) != -1) return TranslateColor(back ? bk : fore);
  }
  if (events && (dynamicContentEvents & quDCEventRowDynamicFormatting)) {
    Color fore = -1, bk = -1;
    std::shared_ptr<Font> font = DefaultFont();
    events->RowDynamicFormatting(row, fore, bk, font);
    if ((back ? bk : fore) != -1) return TranslateColor(back ? bk : fore);
  }
  const model::Cell& current = store.CellAt(row, colIndex);  // a handler may have changed it
  Color own = back ? current.backColor : current.foreColor;
  if (own != -1) return TranslateColor(own);
  if (!back) return TranslateColor(props.Long(model::Prop::ForeColor));
  bool even = store.Rows().At(row).visibleIndex % 2 == 0;
  Color alternating =
      props.Long(even ? model::Prop::BackColorEvenRows : model::Prop::BackColorOddRows);
  return TranslateColor(alternating != -1 ? alternating : props.Long(model::Prop::BackColor));
}

std::string Control::CellText(int32_t row, int32_t colIndex) {
  const model::Cell& cell = store.CellAt(row, colIndex);
  switch (cell.Type()) {
    case quCellCombo: {
      const ComboObject* list = combos.Find(resources->controlKeys.Text(cell.ctrlKey));
      int32_t item = list ? list->FindItemByValue(cell.value) : -1;
      return item >= 0 ? list->ItemText(item) : std::string();
    }
    case quCellCustomDraw:
      return std::string();
    default:
      break;
  }
  std::string text;
  if (cell.fmtString) {
    resources->formats.Compiled(cell.fmtString).AppendTo(cell.value, text);
  } else if (!cell.value.IsObject() && !cell.value.IsArray() && !cell.value.IsMissing()) {
    static const fmt::CompiledFormat kPlain;
    kPlain.AppendTo(cell.value, text);  // plain conversion; Null gives no text
  }
  if (events && (dynamicContentEvents & quDCEventCellDynamicText)) {
    Variant value = cell.value;
    events->CellDynamicText(row, colIndex, value, text);
  }
  return text;
}

}  // namespace quilta::control

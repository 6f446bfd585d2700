#include "model/cell_properties.hpp"

#include <quilta/error.hpp>
#include <quilta/font.hpp>

namespace quilta::model {
namespace {

int32_t InRange(int32_t v, int32_t low, int32_t high) {
  if (v < low || v > high) throw Error::FromCode(quErrInvalidArgument);
  return v;
}

int32_t Hatch(int32_t v) {
  if (v == quHatchNone) return v;
  return InRange(v, quHatchHorizontal, quHatchDiagCross);
}

int32_t TypeFlags(int32_t v) {
  if (v & ~(quCheckBox3State | quTextBoxVScrollBar | quTextBoxHScrollBar))
    throw Error::FromCode(quErrInvalidArgument);
  return v;
}

Variant FontNumber(const Variant& raw, CellResources& res) {
  if (raw.IsObject() && !raw.ObjectRef()) return Variant(0);  // Nothing: back to the default
  auto font = raw.ObjectAs<Font>();
  if (!font) throw Error::Runtime(vbErrTypeMismatch);
  return Variant(static_cast<int32_t>(res.fonts.Intern(*font)));
}

}  // namespace

Variant NormalizeCellProperty(ECellProperty p, const Variant& raw, CellResources& res) {
  switch (p) {
    case quPropCellAlignH:
      return InRange(CLng(raw), quAlignHLeft, quAlignHRight);
    case quPropCellAlignV:
      return InRange(CLng(raw), quAlignVTop, quAlignVBottom);
    case quPropCellIconToText:
      return InRange(CLng(raw), quCellIconToTextLeft, quCellIconToTextBottom);
    case quPropCellCheckPos:
      return InRange(CLng(raw), quCheckPosLeft, quCheckPosCenter);
    case quPropCellCheckState:
      return InRange(CLng(raw), quCheckStateUnchecked, quCheckStateGrayed);
    case quPropCellType:
      return InRange(CLng(raw), quCellText, quCellCustomDraw);
    case quPropCellHatch:
      return Hatch(CLng(raw));
    case quPropCellTypeFlags:
      return TypeFlags(CLng(raw));
    case quPropCellImageList:
    case quPropCellExtraImageList:
      return InRange(CByte(raw), 0, 15);
    case quPropCellIndentBottom:
    case quPropCellIndentLeft:
    case quPropCellIndentRight:
    case quPropCellIndentTop:
      return static_cast<int32_t>(CByte(raw));
    case quPropCellIcon:
    case quPropCellExtraIcon:
      return static_cast<int32_t>(CInt(raw));
    case quPropCellBackColor:
    case quPropCellForeColor:
    case quPropCellComboListIndex:
    case quPropCellExtraData:
    case quPropCellTextFlags:
      return CLng(raw);
    case quPropCellCheckVisible:
    case quPropCellSelectable:
    case quPropCellSelected:
      return CBool(raw);
    case quPropCellFmtString:
      return static_cast<int32_t>(res.formats.Intern(CStr(raw)));
    case quPropCellCtrlKey:
      return static_cast<int32_t>(res.controlKeys.Intern(CStr(raw)));
    case quPropCellFont:
      return FontNumber(raw, res);
    case quPropCellValue:
      return raw;
  }
  throw Error::FromCode(quErrInvalidArgument);
}

void WriteCellProperty(Cell& cell, ECellProperty p, const Variant& v) {
  switch (p) {
    case quPropCellAlignH:
      cell.SetAlignH(static_cast<EHAlignment>(v.LongValue()));
      break;
    case quPropCellAlignV:
      cell.SetAlignV(static_cast<EVAlignment>(v.LongValue()));
      break;
    case quPropCellIconToText:
      cell.SetIconToText(static_cast<ECellIconToText>(v.LongValue()));
      break;
    case quPropCellCheckPos:
      cell.SetCheckPos(static_cast<ECellCheckPos>(v.LongValue()));
      break;
    case quPropCellCheckState:
      cell.SetCheckState(static_cast<ECellCheckState>(v.LongValue()));
      break;
    case quPropCellType:
      cell.SetType(static_cast<ECellTypes>(v.LongValue()));
      break;
    case quPropCellHatch:
      cell.SetHatch(static_cast<EHatchStyles>(v.LongValue()));
      break;
    case quPropCellTypeFlags:
      cell.SetTypeFlags(v.LongValue());
      break;
    case quPropCellImageList:
      cell.SetImageList(static_cast<uint8_t>(v.LongValue()));
      break;
    case quPropCellExtraImageList:
      cell.SetExtraImageList(static_cast<uint8_t>(v.LongValue()));
      break;
    case quPropCellIndentBottom:
      cell.indentBottom = static_cast<uint8_t>(v.LongValue());
      break;
    case quPropCellIndentLeft:
      cell.indentLeft = static_cast<uint8_t>(v.LongValue());
      break;
    case quPropCellIndentRight:
      cell.indentRight = static_cast<uint8_t>(v.LongValue());
      break;
    case quPropCellIndentTop:
      cell.indentTop = static_cast<uint8_t>(v.LongValue());
      break;
    case quPropCellIcon:
      cell.SetIcon(static_cast<int16_t>(v.LongValue()));
      break;
    case quPropCellExtraIcon:
      cell.SetExtraIcon(static_cast<int16_t>(v.LongValue()));
      break;
    case quPropCellBackColor:
      cell.backColor = v.LongValue();
      break;
    case quPropCellForeColor:
      cell.foreColor = v.LongValue();
      break;
    case quPropCellComboListIndex:
      cell.comboListIndex = v.LongValue();
      break;
    case quPropCellExtraData:
      cell.extraData = v.LongValue();
      break;
    case quPropCellTextFlags:
      cell.textFlags = v.LongValue();
      break;
    case quPropCellCheckVisible:
      cell.SetCheckVisible(v.BoolValue());
      break;
    case quPropCellSelectable:
      cell.SetSelectable(v.BoolValue());
      break;
    case quPropCellSelected:
      cell.SetSelected(v.BoolValue());
      break;
    case quPropCellFmtString:
      cell.fmtString = static_cast<uint8_t>(v.LongValue());
      break;
    case quPropCellCtrlKey:
      cell.ctrlKey = static_cast<int16_t>(v.LongValue());
      break;
    case quPropCellFont:
      cell.font = static_cast<uint16_t>(v.LongValue());
      break;
    case quPropCellValue:
      cell.value = v;
      break;
  }
}

Variant ReadCellProperty(const Cell& cell, ECellProperty p, const CellResources& res) {
  switch (p) {
    case quPropCellAlignH:
      return static_cast<int32_t>(cell.AlignH());
    case quPropCellAlignV:
      return static_cast<int32_t>(cell.AlignV());
    case quPropCellIconToText:
      return static_cast<int32_t>(cell.IconToText());
    case quPropCellCheckPos:
      return static_cast<int32_t>(cell.CheckPos());
    case quPropCellCheckState:
      return static_cast<int32_t>(cell.CheckState());
    case quPropCellType:
      return static_cast<int32_t>(cell.Type());
    case quPropCellHatch:
      return static_cast<int32_t>(cell.Hatch());
    case quPropCellTypeFlags:
      return static_cast<int32_t>(cell.TypeFlags());
    case quPropCellImageList:
      return cell.ImageList();
    case quPropCellExtraImageList:
      return cell.ExtraImageList();
    case quPropCellIndentBottom:
      return cell.indentBottom;
    case quPropCellIndentLeft:
      return cell.indentLeft;
    case quPropCellIndentRight:
      return cell.indentRight;
    case quPropCellIndentTop:
      return cell.indentTop;
    case quPropCellIcon:
      return cell.Icon();
    case quPropCellExtraIcon:
      return cell.ExtraIcon();
    case quPropCellBackColor:
      return cell.backColor;
    case quPropCellForeColor:
      return cell.foreColor;
    case quPropCellComboListIndex:
      return cell.comboListIndex;
    case quPropCellExtraData:
      return cell.extraData;
    case quPropCellTextFlags:
      return cell.textFlags;
    case quPropCellCheckVisible:
      return cell.CheckVisible();
    case quPropCellSelectable:
      return cell.Selectable();
    case quPropCellSelected:
      return cell.Selected();
    case quPropCellFmtString:
      return res.formats.Text(cell.fmtString);
    case quPropCellCtrlKey:
      return res.controlKeys.Text(cell.ctrlKey);
    case quPropCellFont:
      return cell.font ? Variant::Object(std::make_shared<Font>(res.fonts.At(cell.font)))
                       : Variant::Object(std::shared_ptr<Font>());
    case quPropCellValue:
      return cell.value;
  }
  throw Error::FromCode(quErrInvalidArgument);
}

}  // namespace quilta::model

// The compact cell record: one per (column index, physical row), 56 bytes, fields bit-packed.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/variant.hpp>

namespace quilta::model {

struct Cell {
  Variant value;
  Color backColor = -1;
  Color foreColor = -1;
  int16_t icon = 0;
  int16_t extraIcon = 0;
  uint8_t imageLists = 0x11;  // bits 0-3 image list, 4-7 extra image list
  uint8_t alignment = 0;      // bits 0-1 horizontal, 2-3 vertical, 4-5 icon to text
  uint8_t indentLeft = 1;
  uint8_t indentRight = 1;
  uint8_t indentTop = 0;
  uint8_t indentBottom = 0;
  uint16_t reserved = 0;  // keeps the record free of hidden padding
  int32_t textFlags = quTextEndEllipsis;
  uint8_t state = kHatchNoneBits | kSelectable;  // type, hatch, selectable, selected, re-measure
  uint8_t check = 0;     // bits 0-1 check state, bit 2 visible, bits 3-7 type flags
  uint8_t checkPos = 0;  // bits 0-2 check position, bit 3 needs redraw
  uint8_t fmtString = 0;
  int32_t extraData = 0;
  int32_t comboListIndex = 0;
  int16_t ctrlKey = 0;
  uint16_t font = 0;  // 0 = the grid's default font

  // state byte
  static constexpr uint8_t kTypeMask = 0x03;
  static constexpr uint8_t kHatchMask = 0x1C;
  static constexpr uint8_t kHatchNoneBits = quHatchNone << 2;
  static constexpr uint8_t kSelectable = 0x20;
  static constexpr uint8_t kSelected = 0x40;
  static constexpr uint8_t kRemeasure = 0x80;
  // check byte
  static constexpr uint8_t kCheckStateMask = 0x03;
  static constexpr uint8_t kCheckVisible = 0x04;
  static constexpr uint8_t kTypeFlagsMask = 0xF8;
  // check position byte
  static constexpr uint8_t kCheckPosMask = 0x07;
  static constexpr uint8_t kNeedsRedraw = 0x08;

  friend bool operator==(const Cell&, const Cell&) = default;

  ECellTypes Type() const { return static_cast<ECellTypes>(state & kTypeMask); }
  void SetType(ECellTypes t) {
    state = static_cast<uint8_t>((state & 0x7C) | kRemeasure | (t & kTypeMask));
  }
  EHatchStyles Hatch() const { return static_cast<EHatchStyles>((state & kHatchMask) >> 2); }
  void SetHatch(EHatchStyles h) {
    state = static_cast<uint8_t>((state & 0x63) | kRemeasure | ((h << 2) & kHatchMask));
  }
  bool Selectable() const { return state & kSelectable; }
  void SetSelectable(bool b) { SetBit(state, kSelectable, b); }
  bool Selected() const { return state & kSelected; }
  void SetSelected(bool b) { SetBit(state, kSelected, b); }

  ECellCheckState CheckState() const {
    return static_cast<ECellCheckState>(check & kCheckStateMask);
  }
  void SetCheckState(ECellCheckState s) {
    check = static_cast<uint8_t>((check & ~kCheckStateMask) | (s & kCheckStateMask));
  }
  bool CheckVisible() const { return check & kCheckVisible; }
  void SetCheckVisible(bool b) { SetBit(check, kCheckVisible, b); }
  ECellTypeFlags TypeFlags() const { return static_cast<ECellTypeFlags>(check & kTypeFlagsMask); }
  void SetTypeFlags(int32_t f) {
    check = static_cast<uint8_t>((check & 0x07) | (f & kTypeFlagsMask));
  }
  ECellCheckPos CheckPos() const { return static_cast<ECellCheckPos>(checkPos & kCheckPosMask); }
  void SetCheckPos(ECellCheckPos p) {
    checkPos = static_cast<uint8_t>((checkPos & ~kCheckPosMask) | (p & kCheckPosMask));
  }

  EHAlignment AlignH() const { return static_cast<EHAlignment>(alignment & 0x03); }
  void SetAlignH(EHAlignment a) { SetField(alignment, 0, 0x03, a); }
  EVAlignment AlignV() const { return static_cast<EVAlignment>((alignment >> 2) & 0x03); }
  void SetAlignV(EVAlignment a) { SetField(alignment, 2, 0x03, a); }
  ECellIconToText IconToText() const {
    return static_cast<ECellIconToText>((alignment >> 4) & 0x03);
  }
  void SetIconToText(ECellIconToText p) { SetField(alignment, 4, 0x03, p); }
  uint8_t ImageList() const { return imageLists & 0x0F; }
  void SetImageList(uint8_t n) { SetField(imageLists, 0, 0x0F, n); }
  uint8_t ExtraImageList() const { return imageLists >> 4; }
  void SetExtraImageList(uint8_t n) { SetField(imageLists, 4, 0x0F, n); }

 private:
  static void SetBit(uint8_t& byte, uint8_t bit, bool on) {
    byte = static_cast<uint8_t>(on ? (byte | bit) : (byte & ~bit));
  }
  static void SetField(uint8_t& byte, int shift, int mask, int value) {
    byte = static_cast<uint8_t>((byte & ~(mask << shift)) | ((value & mask) << shift));
  }
};

static_assert(sizeof(Cell) == 56, "a cell record is 56 bytes");

}  // namespace quilta::model

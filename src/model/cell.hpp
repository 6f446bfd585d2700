// The compact cell record: one per (column index, physical row), 48 bytes, fields bit-packed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <quilta/enums.hpp>
#include <quilta/variant.hpp>
#include <utility>

namespace quilta::model {

// A cell's value. The variant's spare bytes hold the cell's icons, image lists and alignment;
// copying a cell value copies them, assigning a plain value keeps them.
class CellValue : public Variant {
 public:
  CellValue() = default;
  CellValue(const CellValue& other) : Variant(other) { CopySpare(other); }
  CellValue(CellValue&& other) noexcept : Variant(std::move(other)) { CopySpare(other); }
  CellValue& operator=(const CellValue& other) {
    Variant::operator=(other);
    CopySpare(other);
    return *this;
  }
  CellValue& operator=(CellValue&& other) noexcept {
    Variant::operator=(std::move(other));
    CopySpare(other);
    return *this;
  }
  using Variant::operator=;
  friend bool operator==(const CellValue& a, const CellValue& b) {
    return static_cast<const Variant&>(a) == static_cast<const Variant&>(b) &&
           std::memcmp(a.spare_, b.spare_, sizeof a.spare_) == 0;
  }

  // Spare byte layout: icon (2 bytes), extra icon (2), image lists (1), alignment (1).
  int16_t Int16At(size_t at) const {
    int16_t v;
    std::memcpy(&v, spare_ + at, sizeof v);
    return v;
  }
  void SetInt16At(size_t at, int16_t v) { std::memcpy(spare_ + at, &v, sizeof v); }
  uint8_t ByteAt(size_t at) const { return spare_[at]; }
  void SetByteAt(size_t at, uint8_t v) { spare_[at] = v; }

 private:
  void CopySpare(const CellValue& other) { std::memcpy(spare_, other.spare_, sizeof spare_); }
};

struct Cell {
  CellValue value;  // also holds icon, extra icon, image lists and alignment (see CellValue)
  Color backColor = -1;
  Color foreColor = -1;
  uint8_t indentLeft = 1;
  uint8_t indentRight = 1;
  uint8_t indentTop = 0;
  uint8_t indentBottom = 0;
  int32_t textFlags = quTextEndEllipsis;
  uint8_t state = kHatchNoneBits | kSelectable;  // type, hatch, selectable, selected, re-measure
  uint8_t check = 0;     // bits 0-1 check state, bit 2 visible, bits 3-7 type flags
  uint8_t checkPos = 0;  // bits 0-2 check position, bit 3 needs redraw
  uint8_t fmtString = 0;
  int32_t extraData = 0;
  int32_t comboListIndex = 0;
  int16_t ctrlKey = 0;
  uint16_t font = 0;  // 0 = the grid's default font

  Cell() { value.SetByteAt(kImageListsAt, 0x11); }

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

  int16_t Icon() const { return value.Int16At(kIconAt); }
  void SetIcon(int16_t i) { value.SetInt16At(kIconAt, i); }
  int16_t ExtraIcon() const { return value.Int16At(kExtraIconAt); }
  void SetExtraIcon(int16_t i) { value.SetInt16At(kExtraIconAt, i); }

  // alignment byte: bits 0-1 horizontal, 2-3 vertical, 4-5 icon to text
  EHAlignment AlignH() const { return static_cast<EHAlignment>(Alignment() & 0x03); }
  void SetAlignH(EHAlignment a) { SetAlignment(With(Alignment(), 0, 0x03, a)); }
  EVAlignment AlignV() const { return static_cast<EVAlignment>((Alignment() >> 2) & 0x03); }
  void SetAlignV(EVAlignment a) { SetAlignment(With(Alignment(), 2, 0x03, a)); }
  ECellIconToText IconToText() const {
    return static_cast<ECellIconToText>((Alignment() >> 4) & 0x03);
  }
  void SetIconToText(ECellIconToText p) { SetAlignment(With(Alignment(), 4, 0x03, p)); }
  // image lists byte: bits 0-3 image list, 4-7 extra image list
  uint8_t ImageList() const { return ImageLists() & 0x0F; }
  void SetImageList(uint8_t n) { SetImageLists(With(ImageLists(), 0, 0x0F, n)); }
  uint8_t ExtraImageList() const { return ImageLists() >> 4; }
  void SetExtraImageList(uint8_t n) { SetImageLists(With(ImageLists(), 4, 0x0F, n)); }

 private:
  static constexpr size_t kIconAt = 0;
  static constexpr size_t kExtraIconAt = 2;
  static constexpr size_t kImageListsAt = 4;
  static constexpr size_t kAlignmentAt = 5;

  uint8_t Alignment() const { return value.ByteAt(kAlignmentAt); }
  void SetAlignment(uint8_t b) { value.SetByteAt(kAlignmentAt, b); }
  uint8_t ImageLists() const { return value.ByteAt(kImageListsAt); }
  void SetImageLists(uint8_t b) { value.SetByteAt(kImageListsAt, b); }
  static uint8_t With(uint8_t byte, int shift, int mask, int v) {
    return static_cast<uint8_t>((byte & ~(mask << shift)) | ((v & mask) << shift));
  }
  static void SetBit(uint8_t& byte, uint8_t bit, bool on) {
    byte = static_cast<uint8_t>(on ? (byte | bit) : (byte & ~bit));
  }
};

static_assert(sizeof(Cell) == 48, "a cell record is 48 bytes");

}  // namespace quilta::model

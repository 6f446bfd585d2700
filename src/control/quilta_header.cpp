// The control facade: the column header strip (HeaderObject) and the header items' column
// properties.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {
namespace {

[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }

constexpr int32_t kKnownTextFlags = quTextCenter | quTextRight | quTextVCenter | quTextBottom |
                                    quTextWordBreak | quTextSingleLine | quTextExpandTabs |
                                    quTextNoClip | quTextNoPrefix | quTextPathEllipsis |
                                    quTextEndEllipsis | quTextWordEllipsis;

const model::Column& Col(const control::Control& c, const Variant& vCol) {
  return c.store.Cols().AtSlot(c.store.ResolveColSlot(vCol));
}

// The column behind a header setter: the row text column has no header item.
model::Column& HeaderCol(control::Control& c, const Variant& vCol) {
  const int32_t slot = c.store.ResolveColSlot(vCol);
  if (slot > c.store.ColCount()) Raise(quErrInvalidArgument);
  return c.store.Cols().AtSlot(slot);
}

void HeaderChanged(control::Control& c) { c.InvalidateHeader(); }

}  // namespace

HeaderObject& Quilta::Header() { return c_->headerObject; }
const HeaderObject& Quilta::Header() const { return c_->headerObject; }

std::string Quilta::ColHeaderText(const Variant& vCol) const { return Col(*c_, vCol).headerText; }
void Quilta::SetColHeaderText(const Variant& vCol, std::string_view sText) {
  HeaderCol(*c_, vCol).headerText = std::string(sText);
  HeaderChanged(*c_);
}

int16_t Quilta::ColHeaderIcon(const Variant& vCol) const { return Col(*c_, vCol).headerIcon; }
void Quilta::SetColHeaderIcon(const Variant& vCol, int16_t iIcon) {
  if (iIcon < 0) Raise(quErrInvalidArgument);
  HeaderCol(*c_, vCol).headerIcon = iIcon;
  HeaderChanged(*c_);
}

EHAlignment Quilta::ColHeaderAlignH(const Variant& vCol) const {
  return Col(*c_, vCol).headerAlignH;
}
void Quilta::SetColHeaderAlignH(const Variant& vCol, EHAlignment eAlign) {
  model::Column& col = HeaderCol(*c_, vCol);
  if (eAlign < quAlignHLeft || eAlign > quAlignHRight) Raise(quErrInvalidArgument);
  col.headerAlignH = eAlign;
  HeaderChanged(*c_);
}

EVAlignment Quilta::ColHeaderAlignV(const Variant& vCol) const {
  return Col(*c_, vCol).headerAlignV;
}
void Quilta::SetColHeaderAlignV(const Variant& vCol, EVAlignment eAlign) {
  model::Column& col = HeaderCol(*c_, vCol);
  if (eAlign < quAlignVTop || eAlign > quAlignVBottom) Raise(quErrInvalidArgument);
  col.headerAlignV = eAlign;
  HeaderChanged(*c_);
}

ETextFormatFlags Quilta::ColHeaderTextFlags(const Variant& vCol) const {
  return Col(*c_, vCol).headerTextFlags;
}
void Quilta::SetColHeaderTextFlags(const Variant& vCol, ETextFormatFlags eFlags) {
  model::Column& col = HeaderCol(*c_, vCol);
  if (eFlags & ~kKnownTextFlags) Raise(quErrInvalidArgument);
  col.headerTextFlags = eFlags;
  HeaderChanged(*c_);
}

bool Quilta::ColAllowSizing(const Variant& vCol) const { return Col(*c_, vCol).allowSizing; }
void Quilta::SetColAllowSizing(const Variant& vCol, bool bAllow) {
  HeaderCol(*c_, vCol).allowSizing = bAllow;
}

// ---- HeaderObject -------------------------------------------------------------------------------

namespace {

header::HeaderOptions& Options(control::Control& c) { return c.headerStrip.Options(); }

// A change of the strip's height or visibility moves the cells: lay out again and repaint all.
void Relayout(control::Control& c) {
  c.headerStrip.Reset();
  c.view.Invalidate();
  c.geometry.RecordChange(model::kLayoutRows);
  c.RequestRedraw();
}

}  // namespace

bool HeaderObject::Visible() const { return c_->view.HeaderVisible(); }
void HeaderObject::SetVisible(bool bVisible) {
  if (bVisible == c_->view.HeaderVisible()) return;
  c_->view.SetHeaderVisible(bVisible);
  Relayout(*c_);
}

int32_t HeaderObject::Height() const { return c_->HeaderHeightPixels(); }
void HeaderObject::SetHeight(int32_t lHeight) {
  if (lHeight < -1) Raise(quErrInvalidArgument);
  if (lHeight == c_->headerHeight) return;
  c_->headerHeight = lHeight;
  Relayout(*c_);
}
bool HeaderObject::AutoHeight() const { return c_->headerHeight < 0; }

bool HeaderObject::Flat() const { return Options(*c_).flat; }
void HeaderObject::SetFlat(bool bFlat) {
  Options(*c_).flat = bFlat;
  c_->InvalidateHeader();
}

bool HeaderObject::HotTracking() const { return Options(*c_).hotTracking; }
void HeaderObject::SetHotTracking(bool bHotTracking) {
  Options(*c_).hotTracking = bHotTracking;
  c_->InvalidateHeader();
}

bool HeaderObject::AllowColMoving() const { return Options(*c_).allowColMoving; }
void HeaderObject::SetAllowColMoving(bool bAllow) { Options(*c_).allowColMoving = bAllow; }

bool HeaderObject::AllowColSizing() const { return Options(*c_).allowColSizing; }
void HeaderObject::SetAllowColSizing(bool bAllow) { Options(*c_).allowColSizing = bAllow; }

bool HeaderObject::SortMarks() const { return Options(*c_).sortMarks; }
void HeaderObject::SetSortMarks(bool bShow) {
  Options(*c_).sortMarks = bShow;
  c_->InvalidateHeader();
}

std::shared_ptr<quilta::Font> HeaderObject::Font() const { return Options(*c_).font; }
void HeaderObject::SetFont(const std::shared_ptr<quilta::Font>& oFont) {
  Options(*c_).font = oFont ? std::make_shared<quilta::Font>(*oFont) : nullptr;
  if (c_->headerHeight < 0) {
    Relayout(*c_);  // the automatic height follows the font
  } else {
    c_->InvalidateHeader();
  }
}

Color HeaderObject::ForeColor() const { return Options(*c_).foreColor; }
void HeaderObject::SetForeColor(Color oColor) {
  if (oColor == -1) Raise(quErrInvalidArgument);
  Options(*c_).foreColor = oColor;
  c_->InvalidateHeader();
}

Color HeaderObject::BackColor() const { return Options(*c_).backColor; }
void HeaderObject::SetBackColor(Color oColor) {
  if (oColor == -1) Raise(quErrInvalidArgument);
  Options(*c_).backColor = oColor;
  c_->InvalidateHeader();
}

uint8_t HeaderObject::ImageList() const { return Options(*c_).imageList; }
void HeaderObject::SetImageList(uint8_t btList) {
  if (btList > 15) Raise(quErrInvalidArgument);
  Options(*c_).imageList = btList;
  c_->InvalidateHeader();
}

int32_t HeaderObject::ColFromPoint(int32_t x, int32_t y) const {
  c_->EnsureLayout();
  const int32_t slot = c_->headerStrip.SlotAt({x, y});
  return slot ? c_->store.Cols().AtSlot(slot).index : 0;
}

}  // namespace quilta

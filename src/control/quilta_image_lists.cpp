// The control facade: the image lists that cells and header items name by number.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {
namespace {

uint8_t CheckedListNumber(uint8_t btList) {
  if (btList < 1 || btList > 15) throw Error::FromCode(quErrInvalidArgument);
  return btList;
}

}  // namespace

Variant Quilta::ImageList(uint8_t btList) const {
  const auto& list = c_->imageLists[CheckedListNumber(btList)];
  return list ? Variant::Object(list) : Variant();
}

void Quilta::SetImageList(uint8_t btList, const Variant& vImageList) {
  const uint8_t n = CheckedListNumber(btList);
  std::shared_ptr<quilta::ImageList> list;
  if (vImageList.IsObject()) {
    list = vImageList.ObjectAs<quilta::ImageList>();
    if (!list && vImageList.ObjectRef()) throw Error::FromCode(quErrImageListExpected);
  } else if (!vImageList.IsEmpty()) {
    throw Error::FromCode(quErrImageListExpected);
  }
  c_->imageLists[n] = std::move(list);
  c_->geometry.RecordChange(model::kLayoutRows);
  c_->RequestRedraw();
}

}  // namespace quilta

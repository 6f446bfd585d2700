#include "quilta/qt/qt_image_list.hpp"

namespace quilta::qt {

QtImageList::QtImageList(QSize size) : size_(size) {}

int32_t QtImageList::Add(const QPixmap& pixmap) { return Add(QIcon(pixmap)); }

int32_t QtImageList::Add(const QIcon& icon) {
  images_.push_back(icon);
  return static_cast<int32_t>(images_.size());
}

QPixmap QtImageList::Pixmap(int32_t index, qreal devicePixelRatio, bool disabled) const {
  if (index < 1 || index > ImageCount()) return {};
  return images_[index - 1].pixmap(size_, devicePixelRatio,
                                   disabled ? QIcon::Disabled : QIcon::Normal);
}

quilta::Size QtImageList::ImageSize() const { return {size_.width(), size_.height()}; }

int32_t QtImageList::ImageCount() const { return static_cast<int32_t>(images_.size()); }

}  // namespace quilta::qt

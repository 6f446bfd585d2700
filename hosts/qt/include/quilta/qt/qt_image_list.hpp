// QtImageList: an image list for the grid built from Qt pixmaps or icons. Hand it to
// Quilta::SetImageList as a std::shared_ptr<quilta::ImageList>; cells and header items then show
// its images by 1-based index.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <memory>
#include <quilta/platform/painter.hpp>
#include <vector>

namespace quilta::qt {

class QtImageList final : public quilta::ImageList {
 public:
  // Every image is shown at this size (logical pixels).
  explicit QtImageList(QSize size);
  // Adds an image (scaled to the list's size if it differs); returns its 1-based index.
  int32_t Add(const QPixmap& pixmap);
  int32_t Add(const QIcon& icon);
  // Image `index` (1-based) for a device of this pixel ratio, greyed when disabled; a null
  // pixmap outside the list.
  QPixmap Pixmap(int32_t index, qreal devicePixelRatio = 1.0, bool disabled = false) const;

  quilta::Size ImageSize() const override;
  int32_t ImageCount() const override;

 private:
  QSize size_;
  std::vector<QIcon> images_;
};

}  // namespace quilta::qt

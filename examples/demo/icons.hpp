// The demo's icons, drawn with QPainter at start-up (no image files).
#pragma once

#include <memory>
#include <quilta/qt/qt_image_list.hpp>

namespace demo {

// The image list in the order of demo::Icon.
std::shared_ptr<quilta::qt::QtImageList> MakeIcons();

}  // namespace demo

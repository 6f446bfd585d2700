// The window and drawing services the control reaches on its platform. A headless
// implementation is the default, so a control works completely without a window.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/enums.hpp>
#include <string>
#include <string_view>

namespace quilta {

struct Rect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;
  int32_t Width() const { return right - left; }
  int32_t Height() const { return bottom - top; }
};

class Platform {
 public:
  virtual ~Platform() = default;
  // RGB value (0x00BBGGRR) of system colour index nn (as in 0x800000nn).
  virtual Color SystemColor(int32_t index) const = 0;
  // Logical screen resolution in dots per inch; 96 is 100 %.
  virtual int32_t Dpi() const = 0;
  // The client rectangle of the cells area (below the header).
  virtual Rect CellsArea() const = 0;
  // The whole grid, or part of it, must be painted again.
  virtual void Invalidate() = 0;
  // Clipboard text (UTF-8).
  virtual std::string GetClipboardText() = 0;
  virtual void SetClipboardText(std::string_view text) = 0;
  virtual uint32_t ClipboardSequenceNumber() const = 0;
};

// The default platform: a fixed palette, 96 dpi, an 800 x 600 cells area, an in-memory clipboard.
// Tests and headless hosts use it; it counts invalidations so that deferred drawing can be seen.
class HeadlessPlatform : public Platform {
 public:
  Color SystemColor(int32_t index) const override;
  int32_t Dpi() const override { return dpi_; }
  Rect CellsArea() const override { return cellsArea_; }
  void Invalidate() override { ++invalidations_; }
  std::string GetClipboardText() override { return clipboard_; }
  void SetClipboardText(std::string_view text) override;
  uint32_t ClipboardSequenceNumber() const override { return clipboardSequence_; }

  void SetDpi(int32_t dpi) { dpi_ = dpi; }
  void SetCellsArea(Rect r) { cellsArea_ = r; }
  int64_t Invalidations() const { return invalidations_; }

 private:
  int32_t dpi_ = 96;
  Rect cellsArea_{0, 0, 800, 600};
  int64_t invalidations_ = 0;
  std::string clipboard_;
  uint32_t clipboardSequence_ = 0;
};

}  // namespace quilta

// Tooltips with the full text of clipped cells.
//
// When the pointer comes to rest over a cell whose text does not fit, a delay timer starts
// (ToolTipDelayTime ms; -1 takes the platform's usual half second). When it fires and the cell's
// text is still clipped, the platform shows the whole text near the cell; a second timer hides it
// after ToolTipVisibleTime ms (-1: it stays until something else hides it). Leaving the cell,
// a press, a key, scrolling and editing hide it at once.
#pragma once

#include <cstdint>
#include <quilta/platform/platform.hpp>
#include <string>

#include "model/control_properties.hpp"

namespace quilta::interaction {

// What the tooltips ask of the control: the cell under a point, a cell's clipped text, and the
// platform's tooltip and timers.
class ToolTipSite {
 public:
  virtual ~ToolTipSite() = default;
  struct CellAt {
    int32_t row = 0;  // 0: no cell there
    int32_t col = 0;
    friend bool operator==(const CellAt&, const CellAt&) = default;
  };
  virtual CellAt CellUnder(Point at) = 0;
  // The cell's full text when it is clipped (empty otherwise), and the cell's client rectangle.
  virtual std::string ClippedText(int32_t row, int32_t col, Rect& cell) = 0;
  virtual void ShowToolTip(const std::string& text, const Rect& near) = 0;
  virtual void HideToolTip() = 0;
  virtual bool StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) = 0;
  virtual void StopTimer(int32_t id) = 0;
};

class ToolTips final : public TimerSink {
 public:
  static constexpr int32_t kDelayTimer = 0x5154;
  static constexpr int32_t kVisibleTimer = 0x5155;
  static constexpr int32_t kDefaultDelayMs = 500;

  ToolTips(const model::ControlProperties& props, ToolTipSite& site) : props_(props), site_(site) {}
  ~ToolTips() override { Reset(); }
  ToolTips(const ToolTips&) = delete;
  ToolTips& operator=(const ToolTips&) = delete;

  // The pointer moved with no button down (a drag hides the tooltip).
  void PointerMoved(Point at, bool buttonDown);
  // Hides the tooltip and forgets the cell: the next move over a cell starts a new delay.
  void Hide();
  void TimerFired(int32_t id) override;

  bool Showing() const { return showing_; }

 private:
  void Reset();
  void Show();

  const model::ControlProperties& props_;
  ToolTipSite& site_;
  ToolTipSite::CellAt cell_;
  bool waiting_ = false;  // the delay timer runs for cell_
  bool showing_ = false;
  bool visibleTimer_ = false;
};

}  // namespace quilta::interaction

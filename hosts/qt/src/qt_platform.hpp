// QtPlatform: the grid's window services over Qt, for one QuiltaWidget: the palette's colours,
// the screen's resolution, font metrics and style metrics, the widget's scroll bars and
// viewport, the in-cell QLineEdit, the drop-down popup list, message boxes, menus, tooltips,
// timers and the clipboard.
#pragma once

#include <QFontMetrics>
#include <QObject>
#include <QRawFont>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <quilta/platform/platform.hpp>

class QAbstractScrollArea;
class QTimer;
class QWidget;

namespace quilta::qt {

class QtPlatform final : public QObject, public quilta::Platform {
 public:
  explicit QtPlatform(QAbstractScrollArea& area);
  ~QtPlatform() override;

  Color SystemColor(int32_t index) const override;
  int32_t Dpi() const override;

  Size MeasureText(std::string_view text, const Font& font, int32_t textFlags,
                   int32_t maxWidth) const override;
  Size CheckBoxSize() const override;
  int32_t ComboButtonWidth() const override;
  Size ScrollBarSize() const override;

  Size ClientSize() const override;
  void SetScrollBar(EScrollBar bar, const ScrollBarInfo& info) override;
  void Invalidate() override;
  void InvalidateRect(const Rect& r) override;
  bool HasFocus() const override;
  void SetCursor(CursorShape shape) override;

  std::unique_ptr<TextBox> CreateTextBox(const TextBoxOptions& options,
                                         TextBoxEvents& events) override;
  std::unique_ptr<DropDownList> OpenDropDown(const DropDownOptions& options,
                                             DropDownEvents& events) override;
  MessageBoxResult ShowMessageBox(std::string_view text, std::string_view title,
                                  MessageBoxIcon icon, MessageBoxButtons buttons) override;
  int32_t TrackPopupMenu(const std::vector<MenuItem>& items, Point at) override;
  void ShowToolTip(std::string_view text, const Rect& near) override;
  void HideToolTip() override;

  bool StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) override;
  void StopTimer(int32_t id) override;

  std::string GetClipboardText() override;
  void SetClipboardText(std::string_view text) override;
  uint32_t ClipboardSequenceNumber() const override { return clipboardSequence_; }

  // Whether a widget is the control, one of its children or one of its popups.
  bool Owns(const QWidget* w) const { return Inside(w); }
  // The keys the in-cell text box passes on to the grid.
  void SetEditKeyHook(std::function<void(int16_t, int16_t)> hook) {
    editKeyHook_ = std::move(hook);
  }
  // True while the platform itself moves the scroll bars (their signals are not the user's).
  bool SettingScrollBars() const { return settingScrollBars_ > 0; }
  // Called when something outside the control's own calls may have changed the frame.
  void SetInvalidateHook(std::function<void()> hook) { invalidateHook_ = std::move(hook); }

 private:
  struct Timer {
    QTimer* timer = nullptr;
    TimerSink* sink = nullptr;
  };

  const QFontMetrics& MetricsOf(const Font& font) const;
  bool Inside(const QWidget* w) const;

  QAbstractScrollArea& area_;
  mutable std::optional<Font> measuredFont_;
  mutable std::optional<QFontMetrics> metrics_;
  mutable std::optional<QRawFont> rawFont_;
  mutable QList<quint32> glyphs_;
  mutable QList<QPointF> positions_;
  std::map<int32_t, Timer> timers_;
  uint32_t clipboardSequence_ = 1;
  bool settingClipboard_ = false;
  int settingScrollBars_ = 0;
  std::function<void()> invalidateHook_;
  std::function<void(int16_t, int16_t)> editKeyHook_;
};

}  // namespace quilta::qt

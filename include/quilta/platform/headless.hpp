// The headless platform: every window service in memory and deterministic, so tests and
// windowless hosts can drive and inspect the control completely.
//
// Text metrics (documented so that tests can compute expected positions):
//   em          = round(font size in points * dpi / 72)          (Segoe UI 9 at 96 dpi: 12)
//   advance     = ceil(em / 2) per character (code point), + 1 when bold        (9 pt: 6)
//   line height = em + ceil(em / 4)                                              (9 pt: 15)
// Lines break at "\n" ("\r\n" counts as one break) unless quTextSingleLine is given; with
// quTextWordBreak, words also wrap at spaces to fit the width. Frame controls at 96 dpi: check
// box 13 x 13, combo button 17 wide, scroll bars 17; all scale with the resolution.
#pragma once

#include <deque>
#include <map>
#include <quilta/platform/platform.hpp>
#include <string>
#include <vector>

namespace quilta {

class HeadlessPlatform;

class HeadlessTextBox final : public TextBox {
 public:
  HeadlessTextBox(const TextBoxOptions& options, TextBoxEvents& events, HeadlessPlatform& owner);
  ~HeadlessTextBox() override;
  std::string Text() const override { return text_; }
  void SetText(std::string_view text) override;
  int32_t SelStart() const override { return selStart_; }
  int32_t SelLength() const override { return selLength_; }
  void SetSelection(int32_t start, int32_t length) override;
  std::string SelText() const override;
  void ReplaceSelection(std::string_view text) override;
  void Move(const Rect& rect) override { options_.rect = rect; }
  void SetFocus() override { ++focusRequests_; }
  intptr_t Handle() const override { return reinterpret_cast<intptr_t>(this); }

  // ---- What a user does: typing raises KeyPress per character (a handler may eat it), then
  // inserts it at the selection, honouring the maximum length and the case and digit flags.
  void Type(std::string_view text);
  // A key press and release (virtual-key code and modifier mask), without a character.
  void PressKey(int16_t keyCode, int16_t shift = 0);
  void Click(int32_t x, int32_t y);
  void DoubleClick();

  const TextBoxOptions& Options() const { return options_; }
  int32_t FocusRequests() const { return focusRequests_; }

 private:
  void Insert(std::u32string_view chars);
  TextBoxOptions options_;
  TextBoxEvents* events_;
  HeadlessPlatform* owner_;
  std::string text_;
  int32_t selStart_ = 0;
  int32_t selLength_ = 0;
  int32_t focusRequests_ = 0;
};

class HeadlessDropDown final : public DropDownList {
 public:
  HeadlessDropDown(const DropDownOptions& options, DropDownEvents& events, HeadlessPlatform& owner);
  ~HeadlessDropDown() override;
  int32_t HighlightedIndex() const override { return highlighted_; }
  void Highlight(int32_t index) override { highlighted_ = index; }
  void Search(std::string_view typed) override;
  void Close() override { open_ = false; }

  // ---- What a user does
  void Choose(int32_t index);
  void Dismiss();

  bool IsOpen() const { return open_; }
  const DropDownOptions& Options() const { return options_; }

 private:
  DropDownOptions options_;
  DropDownEvents* events_;
  HeadlessPlatform* owner_;
  int32_t highlighted_;
  bool open_ = true;
};

// An image list of `count` images of one size, for windowless hosts and tests.
class HeadlessImageList final : public ImageList {
 public:
  HeadlessImageList(Size size, int32_t count) : size_(size), count_(count) {}
  Size ImageSize() const override { return size_; }
  int32_t ImageCount() const override { return count_; }

 private:
  Size size_;
  int32_t count_;
};

class HeadlessPlatform : public Platform {
 public:
  struct ShownMessage {
    std::string text;
    std::string title;
    MessageBoxIcon icon;
    MessageBoxButtons buttons;
  };

  Color SystemColor(int32_t index) const override;
  int32_t Dpi() const override { return dpi_; }

  Size MeasureText(std::string_view text, const Font& font, int32_t textFlags,
                   int32_t maxWidth) const override;
  Size CheckBoxSize() const override;
  int32_t ComboButtonWidth() const override;
  Size ScrollBarSize() const override;

  Size ClientSize() const override { return clientSize_; }
  void SetScrollBar(EScrollBar bar, const ScrollBarInfo& info) override;
  void Invalidate() override;
  void InvalidateRect(const Rect& r) override;
  bool HasFocus() const override { return focus_; }
  void SetCursor(CursorShape shape) override { cursor_ = shape; }

  std::unique_ptr<TextBox> CreateTextBox(const TextBoxOptions& options,
                                         TextBoxEvents& events) override;
  std::unique_ptr<DropDownList> OpenDropDown(const DropDownOptions& options,
                                             DropDownEvents& events) override;
  MessageBoxResult ShowMessageBox(std::string_view text, std::string_view title,
                                  MessageBoxIcon icon, MessageBoxButtons buttons) override;
  int32_t TrackPopupMenu(const std::vector<MenuItem>& items, Point at) override;
  void ShowToolTip(std::string_view text, const Rect& near) override;
  void HideToolTip() override { toolTip_.clear(); }

  bool StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) override;
  void StopTimer(int32_t id) override { timers_.erase(id); }

  std::string GetClipboardText() override { return clipboard_; }
  void SetClipboardText(std::string_view text) override;
  uint32_t ClipboardSequenceNumber() const override { return clipboardSequence_; }

  // ---- Settings and inspection for tests and windowless hosts
  void SetDpi(int32_t dpi) { dpi_ = dpi; }
  void SetClientSize(Size size) { clientSize_ = size; }
  void SetFocus(bool focus) { focus_ = focus; }
  const ScrollBarInfo& ScrollBar(EScrollBar bar) const { return scrollBars_[bar == quScrollBarV]; }
  CursorShape Cursor() const { return cursor_; }
  // Whole-control invalidations and invalidated rectangles since the last TakeInvalidated.
  int64_t Invalidations() const { return invalidations_; }
  std::vector<Rect> TakeInvalidatedRects();
  // The newest text box or drop-down list the control created (nullptr when it has gone).
  HeadlessTextBox* ActiveTextBox() const { return textBox_; }
  HeadlessDropDown* ActiveDropDown() const { return dropDown_; }
  // Message boxes answer with queued results, then with the first button.
  void QueueMessageBoxResult(MessageBoxResult r) { messageAnswers_.push_back(r); }
  const std::vector<ShownMessage>& Messages() const { return messages_; }
  void QueueMenuChoice(int32_t id) { menuAnswers_.push_back(id); }
  const std::vector<MenuItem>& LastMenu() const { return lastMenu_; }
  const std::string& ToolTip() const { return toolTip_; }
  // Where the newest tooltip was asked to appear near.
  const Rect& ToolTipNear() const { return toolTipNear_; }
  bool TimerRunning(int32_t id) const { return timers_.count(id) != 0; }
  int32_t TimerInterval(int32_t id) const;
  // Fires a running timer as the platform's timer would.
  void FireTimer(int32_t id);
  void SetClipboardTextFromOtherProgram(std::string_view text) { SetClipboardText(text); }

 private:
  friend class HeadlessTextBox;
  friend class HeadlessDropDown;
  int32_t Scaled(int32_t pixelsAt96) const;

  int32_t dpi_ = 96;
  Size clientSize_{800, 600};
  bool focus_ = true;
  CursorShape cursor_ = CursorShape::Arrow;
  ScrollBarInfo scrollBars_[2];
  int64_t invalidations_ = 0;
  std::vector<Rect> invalidated_;
  HeadlessTextBox* textBox_ = nullptr;
  HeadlessDropDown* dropDown_ = nullptr;
  std::deque<MessageBoxResult> messageAnswers_;
  std::vector<ShownMessage> messages_;
  std::deque<int32_t> menuAnswers_;
  std::vector<MenuItem> lastMenu_;
  std::string toolTip_;
  Rect toolTipNear_;
  std::map<int32_t, std::pair<int32_t, TimerSink*>> timers_;
  std::string clipboard_;
  uint32_t clipboardSequence_ = 0;
};

}  // namespace quilta

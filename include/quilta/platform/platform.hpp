// The window services the control reaches on its platform: measuring, the view (client size,
// scroll bars, invalidation), the in-cell text box, the drop-down list, message boxes, menus,
// tooltips, timers and the clipboard. Drawing goes through the Painter a host hands to the
// control for one paint. A headless implementation is the default, so a control works
// completely without a window.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/enums.hpp>
#include <quilta/font.hpp>
#include <quilta/platform/painter.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace quilta {

// ---- Scroll bars --------------------------------------------------------------------------

// What the control asks a scroll bar to show: positions run from min to max - page + 1.
struct ScrollBarInfo {
  int32_t min = 0;
  int32_t max = 0;
  int32_t page = 0;
  int32_t pos = 0;
  bool visible = false;
  EScrollBarStyles style = quScrollBarRegular;
  friend bool operator==(const ScrollBarInfo&, const ScrollBarInfo&) = default;
};

// ---- In-cell text box ---------------------------------------------------------------------

struct TextBoxOptions {
  Rect rect;
  std::string text;
  int32_t maxLength = 0;  // 0 = no limit
  int32_t flags = 0;      // ETextEditFlags, passed on unchanged
  Font font;
  EHAlignment alignH = quAlignHLeft;
  bool multiLine = false;
  bool vScrollBar = false;
  bool hScrollBar = false;
  Color backColor = 0xFFFFFF;
  Color foreColor = 0;
};

// What the text box reports back to the control. Key codes are virtual-key codes; Shift is the
// modifier mask (1 Shift, 2 Ctrl, 4 Alt); a handler may set a key or character to 0 to eat it.
class TextBoxEvents {
 public:
  virtual ~TextBoxEvents() = default;
  virtual void TextChanged() {}
  virtual void KeyDown(int16_t& /*keyCode*/, int16_t /*shift*/) {}
  virtual void KeyPress(int16_t& /*keyAscii*/) {}
  virtual void KeyUp(int16_t& /*keyCode*/, int16_t /*shift*/) {}
  virtual void MouseDown(int16_t /*button*/, int16_t /*shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void MouseMove(int16_t /*button*/, int16_t /*shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void MouseUp(int16_t /*button*/, int16_t /*shift*/, int32_t /*x*/, int32_t /*y*/) {}
  virtual void DblClick() {}
};

// Positions and lengths count characters (code points), not bytes.
class TextBox {
 public:
  virtual ~TextBox() = default;
  virtual std::string Text() const = 0;
  virtual void SetText(std::string_view text) = 0;
  virtual int32_t SelStart() const = 0;
  virtual int32_t SelLength() const = 0;
  virtual void SetSelection(int32_t start, int32_t length) = 0;
  virtual std::string SelText() const = 0;
  virtual void ReplaceSelection(std::string_view text) = 0;
  virtual void Move(const Rect& rect) = 0;
  virtual void SetFocus() = 0;
  virtual intptr_t Handle() const = 0;
};

// ---- Drop-down list -----------------------------------------------------------------------

struct DropDownItem {
  std::string text;
  int16_t icon = 0;
};

struct DropDownOptions {
  Rect anchor;  // the cell the list drops down from
  std::vector<DropDownItem> items;
  int32_t selected = -1;  // 0-based; -1 none
  std::shared_ptr<const ImageList> images;
  Font font;
};

class DropDownEvents {
 public:
  virtual ~DropDownEvents() = default;
  // The user chose an item (0-based); the list closes after this.
  virtual void ItemChosen(int32_t /*index*/) {}
  // The list closed without a choice.
  virtual void Dismissed() {}
};

class DropDownList {
 public:
  virtual ~DropDownList() = default;
  virtual int32_t HighlightedIndex() const = 0;
  virtual void Highlight(int32_t index) = 0;
  // List search: the typed characters so far; highlights the first item starting with them.
  virtual void Search(std::string_view typed) = 0;
  virtual void Close() = 0;
};

// ---- Message boxes, menus, timers, cursors ------------------------------------------------

enum class MessageBoxIcon : int32_t { None, Stop, Warning, Information, Question };
enum class MessageBoxButtons : int32_t { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageBoxResult : int32_t { Ok, Cancel, Yes, No };

struct MenuItem {
  int32_t id = 0;  // 0 = separator
  std::string caption;
  bool enabled = true;
  bool checked = false;
};

class TimerSink {
 public:
  virtual ~TimerSink() = default;
  virtual void TimerFired(int32_t id) = 0;
};

enum class CursorShape : int32_t { Arrow, SizeColumn, MoveColumn };

// ---- The platform -------------------------------------------------------------------------

class Platform {
 public:
  virtual ~Platform() = default;

  // RGB value (0x00BBGGRR) of system colour index nn (as in 0x800000nn).
  virtual Color SystemColor(int32_t index) const = 0;
  // Logical screen resolution in dots per inch; 96 is 100 %.
  virtual int32_t Dpi() const = 0;

  // ---- Measuring (device pixels at the current resolution)
  // The size text needs when drawn with these ETextFormatFlags; with quTextWordBreak it is
  // broken into lines no wider than maxWidth (maxWidth <= 0: no limit).
  virtual Size MeasureText(std::string_view text, const Font& font, int32_t textFlags,
                           int32_t maxWidth) const = 0;
  virtual Size CheckBoxSize() const = 0;
  virtual int32_t ComboButtonWidth() const = 0;
  // Width of a vertical scroll bar and height of a horizontal one.
  virtual Size ScrollBarSize() const = 0;

  // ---- The view
  // The control's client area, scroll bars included.
  virtual Size ClientSize() const = 0;
  virtual void SetScrollBar(EScrollBar bar, const ScrollBarInfo& info) = 0;
  // The whole control, or a rectangle of it, must be painted again.
  virtual void Invalidate() = 0;
  virtual void InvalidateRect(const Rect& r) = 0;
  virtual bool HasFocus() const = 0;
  virtual void SetCursor(CursorShape shape) = 0;

  // ---- Child windows and popups
  // nullptr when the box cannot be created.
  virtual std::unique_ptr<TextBox> CreateTextBox(const TextBoxOptions& options,
                                                 TextBoxEvents& events) = 0;
  virtual std::unique_ptr<DropDownList> OpenDropDown(const DropDownOptions& options,
                                                     DropDownEvents& events) = 0;
  virtual MessageBoxResult ShowMessageBox(std::string_view text, std::string_view title,
                                          MessageBoxIcon icon, MessageBoxButtons buttons) = 0;
  // The id of the chosen item, 0 when the menu was dismissed.
  virtual int32_t TrackPopupMenu(const std::vector<MenuItem>& items, Point at) = 0;
  virtual void ShowToolTip(std::string_view text, const Rect& near) = 0;
  virtual void HideToolTip() = 0;

  // ---- Timers: false when the timer cannot be created.
  virtual bool StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) = 0;
  virtual void StopTimer(int32_t id) = 0;

  // ---- Clipboard text (UTF-8)
  virtual std::string GetClipboardText() = 0;
  virtual void SetClipboardText(std::string_view text) = 0;
  virtual uint32_t ClipboardSequenceNumber() const = 0;
};

}  // namespace quilta

#include <quilta/platform/headless.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <quilta/platform/platform.hpp>

#include "model/text/text.hpp"

namespace quilta {
namespace {

// The fixed system palette of the headless platform (0x00BBGGRR), indexed like the desktop's
// system colours; it matches the classic default scheme.
constexpr std::array<Color, 31> kPalette = {
    0xC8D0D4,  // 0 scroll bar
    0xA56E3A,  // 1 desktop
    0x6A240A,  // 2 active caption
    0x808080,  // 3 inactive caption
    0xC8D0D4,  // 4 menu
    0xFFFFFF,  // 5 window background
    0x000000,  // 6 window frame
    0x000000,  // 7 menu text
    0x000000,  // 8 window text
    0xFFFFFF,  // 9 caption text
    0xC8D0D4,  // 10 active border
    0xC8D0D4,  // 11 inactive border
    0x808080,  // 12 application workspace
    0x6A240A,  // 13 highlight
    0xFFFFFF,  // 14 highlight text
    0xC8D0D4,  // 15 button face
    0x808080,  // 16 button shadow
    0x808080,  // 17 grey text
    0x000000,  // 18 button text
    0xC8D0D4,  // 19 inactive caption text
    0xFFFFFF,  // 20 button highlight
    0x404040,  // 21 3-D dark shadow
    0xC8D0D4,  // 22 3-D light
    0x000000,  // 23 tooltip text
    0xE1FFFF,  // 24 tooltip background
    0xB5B5B5,  // 25 (unused)
    0x800000,  // 26 hot-tracked item
    0xF0CAA6,  // 27 gradient active caption
    0xC0C0C0,  // 28 gradient inactive caption
    0x6A240A,  // 29 menu highlight
    0xC8D0D4,  // 30 menu bar
};

// Many invalidated rectangles collapse into one whole-control invalidation.
constexpr size_t kMaxInvalidatedRects = 4096;

struct TextMetrics {
  int32_t advance;
  int32_t lineHeight;
};

TextMetrics MetricsOf(const Font& font, int32_t dpi) {
  const int32_t em = static_cast<int32_t>(std::lround(font.size * dpi / 72.0));
  return {(em + 1) / 2 + (font.bold ? 1 : 0), em + (em + 3) / 4};
}

// Splits text into lines: at line breaks unless single-line, and at spaces to fit maxWidth when
// word-breaking. Returns the width of each line in characters.
std::vector<int32_t> LineLengths(std::u32string_view chars, bool singleLine, bool wordBreak,
                                 int32_t maxChars) {
  std::vector<int32_t> lines;
  std::u32string_view rest = chars;
  for (;;) {
    size_t end = singleLine ? std::u32string_view::npos : rest.find(U'\n');
    std::u32string_view line = rest.substr(0, end);
    if (!line.empty() && line.back() == U'\r' && !singleLine) line.remove_suffix(1);
    while (wordBreak && maxChars > 0 && static_cast<int32_t>(line.size()) > maxChars) {
      size_t cut = line.substr(0, maxChars + 1).rfind(U' ');
      if (cut == std::u32string_view::npos || cut == 0) cut = maxChars;
      lines.push_back(static_cast<int32_t>(cut));
      line.remove_prefix(std::min(line.size(), cut + (line[cut] == U' ' ? 1 : 0)));
    }
    lines.push_back(static_cast<int32_t>(line.size()));
    if (end == std::u32string_view::npos) break;
    rest.remove_prefix(end + 1);
  }
  return lines;
}

}  // namespace

// ---- Text box ---------------------------------------------------------------------------

HeadlessTextBox::HeadlessTextBox(const TextBoxOptions& options, TextBoxEvents& events,
                                 HeadlessPlatform& owner)
    : options_(options), events_(&events), owner_(&owner), text_(options.text) {
  selStart_ = static_cast<int32_t>(text::DecodeUtf8(text_).size());
}

HeadlessTextBox::~HeadlessTextBox() {
  if (owner_->textBox_ == this) owner_->textBox_ = nullptr;
}

void HeadlessTextBox::SetText(std::string_view text) {
  text_ = std::string(text);
  selStart_ = static_cast<int32_t>(text::DecodeUtf8(text_).size());
  selLength_ = 0;
  events_->TextChanged();
}

void HeadlessTextBox::SetSelection(int32_t start, int32_t length) {
  const int32_t size = static_cast<int32_t>(text::DecodeUtf8(text_).size());
  selStart_ = std::clamp(start, 0, size);
  selLength_ = std::clamp(length, 0, size - selStart_);
}

std::string HeadlessTextBox::SelText() const {
  return text::EncodeUtf8(text::DecodeUtf8(text_).substr(selStart_, selLength_));
}

void HeadlessTextBox::ReplaceSelection(std::string_view text) {
  Insert(text::DecodeUtf8(text));
  events_->TextChanged();
}

void HeadlessTextBox::Insert(std::u32string_view chars) {
  std::u32string all = text::DecodeUtf8(text_);
  all.replace(selStart_, selLength_, chars);
  text_ = text::EncodeUtf8(all);
  selStart_ += static_cast<int32_t>(chars.size());
  selLength_ = 0;
}

void HeadlessTextBox::Type(std::string_view typed) {
  for (char32_t c : text::DecodeUtf8(typed)) {
    int16_t ascii = static_cast<int16_t>(c < 0x8000 ? c : '?');
    events_->KeyPress(ascii);
    if (ascii == 0) continue;
    char32_t ch = c < 0x80 ? static_cast<char32_t>(ascii) : c;
    if (ch == 8) {  // Backspace
      if (selLength_ == 0 && selStart_ > 0) SetSelection(selStart_ - 1, 1);
      Insert(U"");
      events_->TextChanged();
      continue;
    }
    if ((options_.flags & quTextEditNumberOnly) && (ch < U'0' || ch > U'9')) continue;
    std::string one = text::EncodeUtf8(std::u32string_view(&ch, 1));
    if (options_.flags & quTextEditUpperCase) one = text::ToUpper(one);
    if (options_.flags & quTextEditLowerCase) one = text::ToLower(one);
    const auto length = static_cast<int32_t>(text::DecodeUtf8(text_).size());
    if (options_.maxLength > 0 && length - selLength_ >= options_.maxLength) continue;
    Insert(text::DecodeUtf8(one));
    events_->TextChanged();
  }
}

void HeadlessTextBox::PressKey(int16_t keyCode, int16_t shift) {
  int16_t code = keyCode;
  events_->KeyDown(code, shift);
  code = keyCode;
  events_->KeyUp(code, shift);
}

void HeadlessTextBox::Click(int32_t x, int32_t y) {
  events_->MouseDown(1, 0, x, y);
  events_->MouseUp(1, 0, x, y);
}

void HeadlessTextBox::DoubleClick() { events_->DblClick(); }

// ---- Drop-down list ---------------------------------------------------------------------

HeadlessDropDown::HeadlessDropDown(const DropDownOptions& options, DropDownEvents& events,
                                   HeadlessPlatform& owner)
    : options_(options), events_(&events), owner_(&owner), highlighted_(options.selected) {}

HeadlessDropDown::~HeadlessDropDown() {
  if (owner_->dropDown_ == this) owner_->dropDown_ = nullptr;
}

void HeadlessDropDown::Search(std::string_view typed) {
  const std::string wanted = text::ToLower(typed);
  for (size_t i = 0; i < options_.items.size(); ++i) {
    if (text::ToLower(options_.items[i].text).starts_with(wanted)) {
      highlighted_ = static_cast<int32_t>(i);
      return;
    }
  }
}

void HeadlessDropDown::Choose(int32_t index) {
  if (!open_) return;
  open_ = false;
  events_->ItemChosen(index);
}

void HeadlessDropDown::Dismiss() {
  if (!open_) return;
  open_ = false;
  events_->Dismissed();
}

// ---- Platform ---------------------------------------------------------------------------

Color HeadlessPlatform::SystemColor(int32_t index) const {
  return index >= 0 && index < static_cast<int32_t>(kPalette.size()) ? kPalette[index] : 0;
}

int32_t HeadlessPlatform::Scaled(int32_t pixelsAt96) const {
  return static_cast<int32_t>(std::nearbyint(pixelsAt96 * dpi_ / 96.0));
}

Size HeadlessPlatform::MeasureText(std::string_view text, const Font& font, int32_t textFlags,
                                   int32_t maxWidth) const {
  const TextMetrics m = MetricsOf(font, dpi_);
  const bool wordBreak = (textFlags & quTextWordBreak) != 0;
  const int32_t maxChars = maxWidth > 0 ? std::max(1, maxWidth / m.advance) : 0;
  const std::u32string chars = text::DecodeUtf8(text);
  const std::vector<int32_t> lines =
      LineLengths(chars, (textFlags & quTextSingleLine) != 0, wordBreak, maxChars);
  const int32_t longest = *std::max_element(lines.begin(), lines.end());
  return {longest * m.advance, static_cast<int32_t>(lines.size()) * m.lineHeight};
}

Size HeadlessPlatform::CheckBoxSize() const { return {Scaled(13), Scaled(13)}; }

int32_t HeadlessPlatform::ComboButtonWidth() const { return Scaled(17); }

Size HeadlessPlatform::ScrollBarSize() const { return {Scaled(17), Scaled(17)}; }

void HeadlessPlatform::SetScrollBar(EScrollBar bar, const ScrollBarInfo& info) {
  scrollBars_[bar == quScrollBarV] = info;
}

void HeadlessPlatform::Invalidate() { ++invalidations_; }

void HeadlessPlatform::InvalidateRect(const Rect& r) {
  if (invalidated_.size() < kMaxInvalidatedRects) {
    invalidated_.push_back(r);
  } else {
    invalidated_.assign(1, Rect{0, 0, clientSize_.cx, clientSize_.cy});
  }
}

std::vector<Rect> HeadlessPlatform::TakeInvalidatedRects() {
  std::vector<Rect> out;
  out.swap(invalidated_);
  return out;
}

std::unique_ptr<TextBox> HeadlessPlatform::CreateTextBox(const TextBoxOptions& options,
                                                         TextBoxEvents& events) {
  auto box = std::make_unique<HeadlessTextBox>(options, events, *this);
  textBox_ = box.get();
  return box;
}

std::unique_ptr<DropDownList> HeadlessPlatform::OpenDropDown(const DropDownOptions& options,
                                                             DropDownEvents& events) {
  auto list = std::make_unique<HeadlessDropDown>(options, events, *this);
  dropDown_ = list.get();
  return list;
}

MessageBoxResult HeadlessPlatform::ShowMessageBox(std::string_view text, std::string_view title,
                                                  MessageBoxIcon icon, MessageBoxButtons buttons) {
  messages_.push_back({std::string(text), std::string(title), icon, buttons});
  if (!messageAnswers_.empty()) {
    MessageBoxResult r = messageAnswers_.front();
    messageAnswers_.pop_front();
    return r;
  }
  return buttons == MessageBoxButtons::YesNo || buttons == MessageBoxButtons::YesNoCancel
             ? MessageBoxResult::Yes
             : MessageBoxResult::Ok;
}

int32_t HeadlessPlatform::TrackPopupMenu(const std::vector<MenuItem>& items, Point) {
  lastMenu_ = items;
  if (menuAnswers_.empty()) return 0;
  int32_t id = menuAnswers_.front();
  menuAnswers_.pop_front();
  return id;
}

void HeadlessPlatform::ShowToolTip(std::string_view text, const Rect& near) {
  toolTip_ = std::string(text);
  toolTipNear_ = near;
}

bool HeadlessPlatform::StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) {
  timers_[id] = {intervalMs, &sink};
  return true;
}

int32_t HeadlessPlatform::TimerInterval(int32_t id) const {
  auto it = timers_.find(id);
  return it == timers_.end() ? 0 : it->second.first;
}

void HeadlessPlatform::FireTimer(int32_t id) {
  auto it = timers_.find(id);
  if (it != timers_.end()) it->second.second->TimerFired(id);
}

void HeadlessPlatform::SetClipboardText(std::string_view text) {
  clipboard_ = std::string(text);
  ++clipboardSequence_;
}

}  // namespace quilta

#include "qt_platform.hpp"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>

#include "qt_convert.hpp"
#include "qt_drop_down.hpp"
#include "qt_painter.hpp"
#include "qt_text_box.hpp"

namespace quilta::qt {
namespace {

struct PaletteSlot {
  QPalette::ColorGroup group;
  QPalette::ColorRole role;
};

// The desktop's system colours (by index) taken from the widget's palette.
constexpr std::array<PaletteSlot, 31> kSystemColors = {{
    {QPalette::Active, QPalette::Button},           // 0 scroll bar
    {QPalette::Active, QPalette::Dark},             // 1 desktop
    {QPalette::Active, QPalette::Highlight},        // 2 active caption
    {QPalette::Inactive, QPalette::Mid},            // 3 inactive caption
    {QPalette::Active, QPalette::Window},           // 4 menu
    {QPalette::Active, QPalette::Base},             // 5 window background
    {QPalette::Active, QPalette::Shadow},           // 6 window frame
    {QPalette::Active, QPalette::WindowText},       // 7 menu text
    {QPalette::Active, QPalette::Text},             // 8 window text
    {QPalette::Active, QPalette::HighlightedText},  // 9 caption text
    {QPalette::Active, QPalette::Window},           // 10 active border
    {QPalette::Inactive, QPalette::Window},         // 11 inactive border
    {QPalette::Active, QPalette::Mid},              // 12 application workspace
    {QPalette::Active, QPalette::Highlight},        // 13 highlight
    {QPalette::Active, QPalette::HighlightedText},  // 14 highlight text
    {QPalette::Active, QPalette::Button},           // 15 button face
    {QPalette::Active, QPalette::Dark},             // 16 button shadow
    {QPalette::Disabled, QPalette::Text},           // 17 grey text
    {QPalette::Active, QPalette::ButtonText},       // 18 button text
    {QPalette::Inactive, QPalette::WindowText},     // 19 inactive caption text
    {QPalette::Active, QPalette::Light},            // 20 button highlight
    {QPalette::Active, QPalette::Shadow},           // 21 3-D dark shadow
    {QPalette::Active, QPalette::Midlight},         // 22 3-D light
    {QPalette::Active, QPalette::ToolTipText},      // 23 tooltip text
    {QPalette::Active, QPalette::ToolTipBase},      // 24 tooltip background
    {QPalette::Active, QPalette::Midlight},         // 25 (unused)
    {QPalette::Active, QPalette::Link},             // 26 hot-tracked item
    {QPalette::Active, QPalette::Highlight},        // 27 gradient active caption
    {QPalette::Inactive, QPalette::Midlight},       // 28 gradient inactive caption
    {QPalette::Active, QPalette::Highlight},        // 29 menu highlight
    {QPalette::Active, QPalette::Window},           // 30 menu bar
}};

QMessageBox::Icon QtIcon(MessageBoxIcon icon) {
  switch (icon) {
    case MessageBoxIcon::Stop:
      return QMessageBox::Critical;
    case MessageBoxIcon::Warning:
      return QMessageBox::Warning;
    case MessageBoxIcon::Information:
      return QMessageBox::Information;
    case MessageBoxIcon::Question:
      return QMessageBox::Question;
    default:
      return QMessageBox::NoIcon;
  }
}

QMessageBox::StandardButtons QtButtons(MessageBoxButtons buttons) {
  switch (buttons) {
    case MessageBoxButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageBoxButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageBoxButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

MessageBoxResult ResultOf(int button, MessageBoxButtons buttons) {
  switch (button) {
    case QMessageBox::Ok:
      return MessageBoxResult::Ok;
    case QMessageBox::Yes:
      return MessageBoxResult::Yes;
    case QMessageBox::No:
      return MessageBoxResult::No;
    case QMessageBox::Cancel:
      return MessageBoxResult::Cancel;
    default:  // closed without a button: Cancel where there is one, else the only answer
      return buttons == MessageBoxButtons::Ok      ? MessageBoxResult::Ok
             : buttons == MessageBoxButtons::YesNo ? MessageBoxResult::No
                                                   : MessageBoxResult::Cancel;
  }
}

}  // namespace

QtPlatform::QtPlatform(QAbstractScrollArea& area) : area_(area) {
  if (QClipboard* clipboard = QGuiApplication::clipboard()) {
    // Any program's change moves the sequence on; our own set counts once, below.
    connect(clipboard, &QClipboard::dataChanged, this, [this] {
      if (!settingClipboard_) ++clipboardSequence_;
    });
  }
}

QtPlatform::~QtPlatform() = default;

bool QtPlatform::Inside(const QWidget* w) const {
  for (; w; w = w->parentWidget()) {
    if (w == &area_) return true;
  }
  return false;
}

Color QtPlatform::SystemColor(int32_t index) const {
  if (index < 0 || index >= static_cast<int32_t>(kSystemColors.size())) return 0;
  const PaletteSlot slot = kSystemColors[index];
  return FromQColor(area_.palette().color(slot.group, slot.role));
}

int32_t QtPlatform::Dpi() const { return std::max(1, area_.logicalDpiY()); }

const QFontMetrics& QtPlatform::MetricsOf(const Font& font) const {
  if (!metrics_ || !measuredFont_ || !(*measuredFont_ == font)) {
    measuredFont_ = font;
    const QFont qfont = ToQFont(font);
    metrics_.emplace(qfont, area_.viewport());
    rawFont_ = QRawFont::fromFont(qfont);
  }
  return *metrics_;
}

Size QtPlatform::MeasureText(std::string_view text, const Font& font, int32_t textFlags,
                             int32_t maxWidth) const {
  const QFontMetrics& fm = MetricsOf(font);
  QString s = ToQString(text);
  if (textFlags & quTextSingleLine) {
    s.replace(QLatin1Char('\n'), QLatin1Char(' '));
    s.remove(QLatin1Char('\r'));
    qreal width = 0;
    if (UnshapedGlyphs(*rawFont_, s, glyphs_, positions_, width)) {
      return {static_cast<int32_t>(std::ceil(width)), fm.height()};
    }
    return {fm.horizontalAdvance(s), fm.height()};
  }
  s.remove(QLatin1Char('\r'));
  if (s.isEmpty()) return {0, fm.height()};
  const int flags = (QtTextFlags(textFlags) & ~Qt::AlignVertical_Mask & ~Qt::AlignHorizontal_Mask) |
                    Qt::AlignLeft | Qt::AlignTop;
  constexpr int kUnbounded = 1 << 24;
  const bool wraps = (textFlags & quTextWordBreak) && maxWidth > 0;
  const QRect bounds = fm.boundingRect(QRect(0, 0, wraps ? maxWidth : kUnbounded, kUnbounded),
                                       wraps ? flags : flags & ~Qt::TextWordWrap, s);
  return {bounds.width(), bounds.height()};
}

Size QtPlatform::CheckBoxSize() const {
  const QStyle* style = area_.style();
  return {style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &area_),
          style->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, &area_)};
}

int32_t QtPlatform::ComboButtonWidth() const {
  return area_.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &area_) + 2;
}

Size QtPlatform::ScrollBarSize() const {
  return {area_.verticalScrollBar()->sizeHint().width(),
          area_.horizontalScrollBar()->sizeHint().height()};
}

Size QtPlatform::ClientSize() const {
  const QRect r = area_.contentsRect();
  return {r.width(), r.height()};
}

void QtPlatform::SetScrollBar(EScrollBar bar, const ScrollBarInfo& info) {
  const bool vertical = bar == quScrollBarV;
  QScrollBar* sb = vertical ? area_.verticalScrollBar() : area_.horizontalScrollBar();
  ++settingScrollBars_;
  {
    const QSignalBlocker block(sb);
    sb->setRange(info.min, std::max(info.min, info.max - info.page));
    sb->setPageStep(std::max(1, info.page));
    // An arrow click moves about one line of text.
    sb->setSingleStep(std::max(1, area_.fontMetrics().height()));
    sb->setValue(info.pos);
  }
  const Qt::ScrollBarPolicy policy = info.visible ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  if (vertical && area_.verticalScrollBarPolicy() != policy) {
    area_.setVerticalScrollBarPolicy(policy);
  } else if (!vertical && area_.horizontalScrollBarPolicy() != policy) {
    area_.setHorizontalScrollBarPolicy(policy);
  }
  // The flat styles show a plain bar without bevels.
  const QString sheet = info.style == quScrollBarRegular
                            ? QString()
                            : QStringLiteral(
                                  "QScrollBar { background: palette(base); border: 0; }"
                                  "QScrollBar::handle { background: palette(mid);"
                                  " min-width: 16px; min-height: 16px; }"
                                  "QScrollBar::add-line, QScrollBar::sub-line {"
                                  " width: 0; height: 0; border: 0; }");
  if (sb->styleSheet() != sheet) sb->setStyleSheet(sheet);
  --settingScrollBars_;
}

void QtPlatform::Invalidate() {
  area_.viewport()->update();
  if (invalidateHook_) invalidateHook_();
}

void QtPlatform::InvalidateRect(const Rect& r) {
  if (!r.IsEmpty()) area_.viewport()->update(ToQRect(r));
}

bool QtPlatform::HasFocus() const { return Inside(QApplication::focusWidget()); }

void QtPlatform::SetCursor(CursorShape shape) {
  switch (shape) {
    case CursorShape::SizeColumn:
      area_.viewport()->setCursor(Qt::SplitHCursor);
      break;
    case CursorShape::MoveColumn:
      area_.viewport()->setCursor(Qt::SizeAllCursor);
      break;
    default:
      area_.viewport()->unsetCursor();
      break;
  }
}

std::unique_ptr<TextBox> QtPlatform::CreateTextBox(const TextBoxOptions& options,
                                                   TextBoxEvents& events) {
  return std::make_unique<QtTextBox>(area_, options, events, editKeyHook_);
}

std::unique_ptr<DropDownList> QtPlatform::OpenDropDown(const DropDownOptions& options,
                                                       DropDownEvents& events) {
  return std::make_unique<QtDropDown>(area_, options, events);
}

MessageBoxResult QtPlatform::ShowMessageBox(std::string_view text, std::string_view title,
                                            MessageBoxIcon icon, MessageBoxButtons buttons) {
  QString message = ToQString(text);
  message.remove(QLatin1Char('\r'));
  QMessageBox box(QtIcon(icon), ToQString(title), message, QtButtons(buttons), &area_);
  return ResultOf(box.exec(), buttons);
}

int32_t QtPlatform::TrackPopupMenu(const std::vector<MenuItem>& items, Point at) {
  QMenu menu(&area_);
  for (const MenuItem& item : items) {
    if (item.id == 0) {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.addAction(ToQString(item.caption));
    action->setData(item.id);
    action->setEnabled(item.enabled);
    action->setCheckable(item.checked);
    action->setChecked(item.checked);
  }
  const QAction* chosen = menu.exec(area_.viewport()->mapToGlobal(QPoint(at.x, at.y)));
  return chosen ? chosen->data().toInt() : 0;
}

void QtPlatform::ShowToolTip(std::string_view text, const Rect& near) {
  const QPoint at = area_.viewport()->mapToGlobal(QPoint(near.left, near.bottom));
  QToolTip::showText(at, ToQString(text), area_.viewport());
}

void QtPlatform::HideToolTip() { QToolTip::hideText(); }

bool QtPlatform::StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) {
  Timer& t = timers_[id];
  if (!t.timer) {
    t.timer = new QTimer(this);  // kept for the id's next start: a sink may stop it while firing
    connect(t.timer, &QTimer::timeout, this, [this, id] {
      auto it = timers_.find(id);
      if (it != timers_.end() && it->second.sink) it->second.sink->TimerFired(id);
    });
  }
  t.sink = &sink;
  t.timer->start(std::max(0, intervalMs));
  return true;
}

void QtPlatform::StopTimer(int32_t id) {
  auto it = timers_.find(id);
  if (it == timers_.end()) return;
  it->second.timer->stop();
  it->second.sink = nullptr;
}

std::string QtPlatform::GetClipboardText() {
  const QClipboard* clipboard = QGuiApplication::clipboard();
  return clipboard ? ToUtf8(clipboard->text()) : std::string();
}

void QtPlatform::SetClipboardText(std::string_view text) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  if (!clipboard) return;
  settingClipboard_ = true;
  clipboard->setText(ToQString(text));
  settingClipboard_ = false;
  ++clipboardSequence_;
}

}  // namespace quilta::qt

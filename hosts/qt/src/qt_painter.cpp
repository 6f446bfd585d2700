#include "qt_painter.hpp"

#include <QFontMetrics>
#include <QPolygon>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "qt_convert.hpp"
#include "quilta/qt/qt_image_list.hpp"

namespace quilta::qt {
namespace {

Qt::BrushStyle HatchBrush(EHatchStyles style) {
  switch (style) {
    case quHatchHorizontal:
      return Qt::HorPattern;
    case quHatchVertical:
      return Qt::VerPattern;
    case quHatchFDiagonal:
      return Qt::FDiagPattern;
    case quHatchBDiagonal:
      return Qt::BDiagPattern;
    case quHatchCross:
      return Qt::CrossPattern;
    case quHatchDiagCross:
      return Qt::DiagCrossPattern;
    default:
      return Qt::NoBrush;
  }
}

int AlignmentOf(int32_t flags) {
  int a = (flags & quTextRight)    ? Qt::AlignRight
          : (flags & quTextCenter) ? Qt::AlignHCenter
                                   : Qt::AlignLeft;
  a |= (flags & quTextBottom)    ? Qt::AlignBottom
       : (flags & quTextVCenter) ? Qt::AlignVCenter
                                 : Qt::AlignTop;
  return a;
}

Qt::TextElideMode ElideModeOf(int32_t flags) {
  if (flags & quTextPathEllipsis) return Qt::ElideMiddle;
  if (flags & (quTextEndEllipsis | quTextWordEllipsis)) return Qt::ElideRight;
  return Qt::ElideNone;
}

}  // namespace

int QtTextFlags(int32_t flags) {
  int f = AlignmentOf(flags);
  if (flags & quTextSingleLine)
    f |= Qt::TextSingleLine;
  else if (flags & quTextWordBreak)
    f |= Qt::TextWordWrap;
  if (flags & quTextExpandTabs) f |= Qt::TextExpandTabs;
  if (flags & quTextNoClip) f |= Qt::TextDontClip;
  return f;
}

QtPainter::QtPainter(QPainter& painter, const QWidget& widget, const Rect& clip)
    : p_(painter), widget_(widget) {
  p_.save();
  p_.setRenderHint(QPainter::Antialiasing, false);
  p_.setRenderHint(QPainter::TextAntialiasing, true);
  clips_.push_back(ToQRect(clip));
  p_.setClipRect(clips_.back());
}

QtPainter::~QtPainter() { p_.restore(); }

void QtPainter::FillRect(const Rect& r, Color rgb) {
  if (!r.IsEmpty()) p_.fillRect(ToQRect(r), ToQColor(rgb));
}

void QtPainter::FillRectAlpha(const Rect& r, Color rgb, uint8_t alpha) {
  if (!r.IsEmpty() && alpha) p_.fillRect(ToQRect(r), ToQColor(rgb, alpha));
}

void QtPainter::FrameRect(const Rect& r, Color rgb, int32_t thickness) {
  if (r.IsEmpty() || thickness <= 0) return;
  const QColor c = ToQColor(rgb);
  const int t = std::min({thickness, r.Width(), r.Height()});
  p_.fillRect(QRect(r.left, r.top, r.Width(), t), c);
  p_.fillRect(QRect(r.left, r.bottom - t, r.Width(), t), c);
  p_.fillRect(QRect(r.left, r.top + t, t, r.Height() - 2 * t), c);
  p_.fillRect(QRect(r.right - t, r.top + t, t, r.Height() - 2 * t), c);
}

void QtPainter::Line(Point from, Point to, Color rgb, int32_t thickness) {
  if (thickness <= 0) return;
  const QColor c = ToQColor(rgb);
  // Straight lines are filled rectangles: exact at every scale.
  if (from.y == to.y || from.x == to.x) {
    const int x = std::min(from.x, to.x), y = std::min(from.y, to.y);
    const int w = std::abs(to.x - from.x) + (from.y == to.y ? 1 : thickness);
    const int h = std::abs(to.y - from.y) + (from.y == to.y ? thickness : 1);
    p_.fillRect(QRect(x, y, from.y == to.y ? w : thickness, from.y == to.y ? thickness : h), c);
    return;
  }
  p_.setPen(QPen(c, thickness, Qt::SolidLine, Qt::SquareCap));
  p_.drawLine(from.x, from.y, to.x, to.y);
}

void QtPainter::DottedLine(Point from, Point to, Color rgb) {
  const QColor c = ToQColor(rgb);
  const int dx = (to.x > from.x) - (to.x < from.x), dy = (to.y > from.y) - (to.y < from.y);
  const int steps = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
  for (int i = 0; i <= steps; i += 2) p_.fillRect(QRect(from.x + i * dx, from.y + i * dy, 1, 1), c);
}

void QtPainter::FillHatch(const Rect& r, EHatchStyles style, Color rgb) {
  const Qt::BrushStyle brush = HatchBrush(style);
  if (r.IsEmpty() || brush == Qt::NoBrush) return;
  p_.save();
  p_.setBrushOrigin(0, 0);
  p_.setBackgroundMode(Qt::TransparentMode);
  p_.fillRect(ToQRect(r), QBrush(ToQColor(rgb), brush));
  p_.restore();
}

void QtPainter::UseFont(const Font& font) {
  if (font_ && *font_ == font) return;
  font_ = font;
  qfont_ = ToQFont(font);
  p_.setFont(qfont_);
  metrics_.emplace(qfont_, p_.device());
  rawFont_ = QRawFont::fromFont(qfont_);
}

bool UnshapedGlyphs(const QRawFont& font, const QString& text, QList<quint32>& glyphs,
                    QList<QPointF>& positions, qreal& width) {
  if (!font.isValid()) return false;
  for (QChar c : text) {
    if (c.unicode() >= 0x0300 || c.unicode() < 0x20) return false;
  }
  glyphs = font.glyphIndexesForString(text);
  if (glyphs.size() != text.size()) return false;
  for (quint32 g : glyphs) {
    if (g == 0) return false;  // not in this font: a fallback font would draw it
  }
  positions = font.advancesForGlyphIndexes(glyphs);
  qreal x = 0;
  for (QPointF& p : positions) {
    const qreal step = p.x();
    p = QPointF(x, 0);
    x += step;
  }
  width = x;
  return true;
}

bool QtPainter::SimpleGlyphs(const QString& text, QGlyphRun& run, qreal& width) {
  if (!UnshapedGlyphs(rawFont_, text, glyphs_, advances_, width)) return false;
  run.setRawFont(rawFont_);
  run.setGlyphIndexes(glyphs_);
  run.setPositions(advances_);
  run.setUnderline(qfont_.underline());
  run.setStrikeOut(qfont_.strikeOut());
  return true;
}

void QtPainter::DrawText(const Rect& r, std::string_view text, const Font& font, Color rgb,
                         int32_t textFlags) {
  if (text.empty() || r.IsEmpty()) return;
  UseFont(font);
  QString s = ToQString(text);
  if (textFlags & quTextSingleLine) {
    s.replace(QLatin1Char('\n'), QLatin1Char(' '));
    s.remove(QLatin1Char('\r'));
  }
  const bool oneLine = !s.contains(QLatin1Char('\n')) && !s.contains(QLatin1Char('\t')) &&
                       ((textFlags & quTextSingleLine) || !(textFlags & quTextWordBreak));
  if (oneLine) return DrawOneLine(r, s, ToQColor(rgb), textFlags);
  const Qt::TextElideMode elide = ElideModeOf(textFlags);
  const bool wraps = (textFlags & quTextWordBreak) && !(textFlags & quTextSingleLine);
  if (elide != Qt::ElideNone && !wraps) {
    QStringList lines = s.split(QLatin1Char('\n'));
    for (QString& line : lines) line = metrics_->elidedText(line, elide, r.Width());
    s = lines.join(QLatin1Char('\n'));
  }
  p_.setPen(ToQColor(rgb));
  p_.drawText(ToQRect(r), QtTextFlags(textFlags), s);
}

void QtPainter::DrawOneLine(const Rect& r, QString& text, const QColor& color, int32_t flags) {
  const QFontMetricsF& fm = *metrics_;
  const Qt::TextElideMode elide = ElideModeOf(flags);
  QGlyphRun run;
  qreal width = 0;
  bool glyphs = SimpleGlyphs(text, run, width);
  if (!glyphs) width = fm.horizontalAdvance(text);
  if (elide != Qt::ElideNone && width > r.Width()) {
    text = fm.elidedText(text, elide, r.Width());
    glyphs = false;
    width = fm.horizontalAdvance(text);
  }
  const qreal x = (flags & quTextRight)    ? r.right - width
                  : (flags & quTextCenter) ? r.left + (r.Width() - width) / 2
                                           : r.left;
  const qreal height = fm.height();
  const qreal top = (flags & quTextBottom)    ? r.bottom - height
                    : (flags & quTextVCenter) ? r.top + (r.Height() - height) / 2
                                              : r.top;
  const bool clip = !(flags & quTextNoClip) && (width > r.Width() || height > r.Height());
  if (clip) p_.setClipRect(clips_.back().intersected(ToQRect(r)));
  p_.setPen(color);
  const QPointF baseline(std::round(x), std::round(top) + fm.ascent());
  if (glyphs) {
    p_.drawGlyphRun(baseline, run);
  } else {
    p_.drawText(baseline, text);
  }
  if (clip) p_.setClipRect(clips_.back());
}

void QtPainter::DrawImage(const ImageList& list, int32_t index, Point at, Color blend,
                          bool disabled) {
  const auto* images = dynamic_cast<const QtImageList*>(&list);
  if (!images || index < 1 || index > images->ImageCount()) return;
  const Size size = images->ImageSize();
  const QRect box(at.x, at.y, size.cx, size.cy);
  const qreal ratio = p_.device() ? p_.device()->devicePixelRatioF() : 1.0;
  QPixmap pixmap = images->Pixmap(index, ratio, disabled);
  if (blend != -1) {  // tinted with the selection colour, as selected icons are
    QPainter tint(&pixmap);
    tint.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    tint.fillRect(QRect(QPoint(0, 0), pixmap.size()), ToQColor(blend, 128));
  }
  p_.drawPixmap(box, pixmap);
}

void QtPainter::FlatCheckBox(const QRect& box, ECellCheckState state, bool enabled) {
  const QPalette& pal = widget_.palette();
  const bool grey = state == quCheckStateGrayed || !enabled;
  p_.fillRect(box, grey ? pal.color(QPalette::Button) : pal.color(QPalette::Base));
  p_.fillRect(QRect(box.left(), box.top(), box.width(), 1), pal.color(QPalette::Dark));
  p_.fillRect(QRect(box.left(), box.bottom(), box.width(), 1), pal.color(QPalette::Dark));
  p_.fillRect(QRect(box.left(), box.top(), 1, box.height()), pal.color(QPalette::Dark));
  p_.fillRect(QRect(box.right(), box.top(), 1, box.height()), pal.color(QPalette::Dark));
  if (state == quCheckStateUnchecked) return;
  // The tick: down from the left third, then up to the top right, two pixels thick.
  const qreal w = box.width(), h = box.height();
  const QPointF a(box.left() + w * 0.22, box.top() + h * 0.50);
  const QPointF b(box.left() + w * 0.42, box.top() + h * 0.70);
  const QPointF c(box.left() + w * 0.78, box.top() + h * 0.28);
  p_.save();
  p_.setRenderHint(QPainter::Antialiasing, true);
  p_.setPen(QPen(grey ? pal.color(QPalette::Dark) : pal.color(QPalette::Text),
                 std::max(1.5, w / 7.0), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  p_.drawPolyline(QPolygonF({a, b, c}));
  p_.restore();
}

void QtPainter::DrawCheckBox(const Rect& r, ECellCheckState state, ControlLook look, bool enabled) {
  if (r.IsEmpty()) return;
  if (look == ControlLook::Flat) return FlatCheckBox(ToQRect(r), state, enabled);
  QStyleOptionButton option;
  option.initFrom(&widget_);
  option.rect = ToQRect(r);
  option.state = QStyle::State_None;
  if (enabled) option.state |= QStyle::State_Enabled;
  option.state |= state == quCheckStateChecked  ? QStyle::State_On
                  : state == quCheckStateGrayed ? QStyle::State_NoChange
                                                : QStyle::State_Off;
  widget_.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &p_, &widget_);
}

void QtPainter::DrawTreeButton(const Rect& r, bool expanded, Color border, Color back, Color fore) {
  if (r.IsEmpty()) return;
  FillRect(r, back);
  FrameRect(r, border, 1);
  // The sign leaves two pixels of the box clear on each side.
  const int margin = std::max(2, r.Width() / 4);
  const int midY = r.top + r.Height() / 2, midX = r.left + r.Width() / 2;
  Line({r.left + margin, midY}, {r.right - 1 - margin, midY}, fore, 1);
  if (!expanded) Line({midX, r.top + margin}, {midX, r.bottom - 1 - margin}, fore, 1);
}

void QtPainter::DrawArrow(const QRect& box, bool up, const QColor& color) {
  const int w = std::max(3, std::min(box.width(), box.height() * 2) / 2) | 1;  // odd: a tip pixel
  const int h = (w + 1) / 2;
  const int left = box.left() + (box.width() - w) / 2;
  const int top = box.top() + (box.height() - h) / 2;
  for (int i = 0; i < h; ++i) {  // row by row: crisp at every size
    const int row = up ? top + i : top + h - 1 - i;
    p_.fillRect(QRect(left + (h - 1 - i), row, w - 2 * (h - 1 - i), 1), color);
  }
}

void QtPainter::DrawComboButton(const Rect& r, bool pressed, ControlLook look, bool enabled) {
  if (r.IsEmpty()) return;
  const QRect box = ToQRect(r);
  const QPalette& pal = widget_.palette();
  if (look == ControlLook::Flat) {
    p_.fillRect(box, pal.color(QPalette::Button));
    p_.fillRect(QRect(box.left(), box.top(), 1, box.height()), pal.color(QPalette::Dark));
    DrawArrow(box.adjusted(2, 2, -2, -2).translated(pressed ? 1 : 0, pressed ? 1 : 0), false,
              pal.color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    return;
  }
  QStyleOptionButton option;
  option.initFrom(&widget_);
  option.rect = box;
  option.state = (enabled ? QStyle::State_Enabled : QStyle::State_None) |
                 (pressed ? QStyle::State_Sunken : QStyle::State_Raised);
  widget_.style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &p_, &widget_);
  QStyleOption arrow(option);
  const int side = std::min(box.width(), box.height()) / 2;
  arrow.rect = QRect(0, 0, side, side);
  arrow.rect.moveCenter(box.center());
  widget_.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &p_, &widget_);
}

void QtPainter::DrawHeaderItem(const Rect& r, const HeaderItemState& state) {
  if (r.IsEmpty()) return;
  const QRect box = ToQRect(r);
  const QPalette& pal = widget_.palette();
  if (state.look == ControlLook::Flat) {
    p_.fillRect(box, pal.color(state.pressed ? QPalette::Mid : QPalette::Button));
    p_.fillRect(QRect(box.right(), box.top(), 1, box.height()), pal.color(QPalette::Dark));
    p_.fillRect(QRect(box.left(), box.bottom(), box.width(), 1), pal.color(QPalette::Dark));
    return;
  }
  QStyleOptionHeader option;
  option.initFrom(&widget_);
  option.rect = box;
  option.orientation = Qt::Horizontal;
  option.position = QStyleOptionHeader::Middle;
  option.state = QStyle::State_Enabled | QStyle::State_Horizontal |
                 (state.pressed ? QStyle::State_Sunken : QStyle::State_Raised);
  if (state.hot) option.state |= QStyle::State_MouseOver;
  widget_.style()->drawControl(QStyle::CE_HeaderSection, &option, &p_, &widget_);
}

void QtPainter::DrawSortMark(const Rect& r, bool ascending, Color rgb) {
  if (!r.IsEmpty()) DrawArrow(ToQRect(r), ascending, ToQColor(rgb));
}

void QtPainter::DrawFocusRect(const Rect& r, Color rgb1, Color rgb2) {
  if (r.IsEmpty()) return;
  // Every other pixel in each colour, counted from the client origin like a desktop focus frame.
  QImage pattern(2, 2, QImage::Format_RGB32);
  pattern.setPixelColor(0, 0, ToQColor(rgb1));
  pattern.setPixelColor(1, 1, ToQColor(rgb1));
  pattern.setPixelColor(1, 0, ToQColor(rgb2));
  pattern.setPixelColor(0, 1, ToQColor(rgb2));
  p_.save();
  p_.setBrushOrigin(0, 0);
  const QBrush brush(pattern);
  const QRect box = ToQRect(r);
  p_.fillRect(QRect(box.left(), box.top(), box.width(), 1), brush);
  p_.fillRect(QRect(box.left(), box.bottom(), box.width(), 1), brush);
  p_.fillRect(QRect(box.left(), box.top(), 1, box.height()), brush);
  p_.fillRect(QRect(box.right(), box.top(), 1, box.height()), brush);
  p_.restore();
}

void QtPainter::PushClip(const Rect& r) {
  clips_.push_back(clips_.back().intersected(ToQRect(r)));
  p_.setClipRect(clips_.back());
}

void QtPainter::PopClip() {
  if (clips_.size() > 1) clips_.pop_back();
  p_.setClipRect(clips_.back());
}

}  // namespace quilta::qt

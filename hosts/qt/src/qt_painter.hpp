// QtPainter: the grid's Painter over a QPainter. Frame controls (check boxes, combo buttons,
// header items) take the themed look from the widget's QStyle and the flat look drawn plainly.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <optional>
#include <quilta/platform/painter.hpp>
#include <vector>

class QWidget;

namespace quilta::qt {

// The grid's text flags as Qt's; ampersands are always shown as they are, as the grid measures
// them.
int QtTextFlags(int32_t flags);

// Glyphs and their positions straight from the font for text that needs no shaping (Latin,
// Greek and Cyrillic without combining marks, every character in the font), and the width they
// take; false for anything else. Drawing and measuring both use it, so they agree.
bool UnshapedGlyphs(const QRawFont& font, const QString& text, QList<quint32>& glyphs,
                    QList<QPointF>& positions, qreal& width);

class QtPainter final : public quilta::Painter {
 public:
  // clip: the part being painted (client pixels); style and palette come from `widget`.
  QtPainter(QPainter& painter, const QWidget& widget, const Rect& clip);
  ~QtPainter() override;

  void FillRect(const Rect& r, Color rgb) override;
  void FillRectAlpha(const Rect& r, Color rgb, uint8_t alpha) override;
  void FrameRect(const Rect& r, Color rgb, int32_t thickness) override;
  void Line(Point from, Point to, Color rgb, int32_t thickness) override;
  void DottedLine(Point from, Point to, Color rgb) override;
  void FillHatch(const Rect& r, EHatchStyles style, Color rgb) override;
  void DrawText(const Rect& r, std::string_view text, const Font& font, Color rgb,
                int32_t textFlags) override;
  void DrawImage(const ImageList& list, int32_t index, Point at, Color blend,
                 bool disabled) override;
  void DrawCheckBox(const Rect& r, ECellCheckState state, ControlLook look, bool enabled) override;
  void DrawTreeButton(const Rect& r, bool expanded, Color border, Color back, Color fore) override;
  void DrawComboButton(const Rect& r, bool pressed, ControlLook look, bool enabled) override;
  void DrawHeaderItem(const Rect& r, const HeaderItemState& state) override;
  void DrawSortMark(const Rect& r, bool ascending, Color rgb) override;
  void DrawFocusRect(const Rect& r, Color rgb1, Color rgb2) override;
  void PushClip(const Rect& r) override;
  void PopClip() override;

 private:
  void UseFont(const Font& font);
  // One line of text placed by hand: the common cell and header case, without a text layout.
  void DrawOneLine(const Rect& r, QString& text, const QColor& color, int32_t textFlags);
  bool SimpleGlyphs(const QString& text, QGlyphRun& run, qreal& width);
  void DrawArrow(const QRect& box, bool up, const QColor& color);
  void FlatCheckBox(const QRect& box, ECellCheckState state, bool enabled);

  QPainter& p_;
  const QWidget& widget_;
  std::vector<QRect> clips_;
  std::optional<Font> font_;  // the font the painter holds
  QFont qfont_;
  std::optional<QFontMetricsF> metrics_;
  QRawFont rawFont_;
  QList<quint32> glyphs_;  // scratch buffers, reused from text to text
  QList<QPointF> advances_;
};

}  // namespace quilta::qt

// Conversions between the grid's platform types and Qt's: colours, rectangles, fonts, text,
// and the desktop key codes and modifier masks the grid's keyboard handling speaks.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <Qt>
#include <quilta/platform/platform.hpp>
#include <string_view>

class QKeyEvent;

namespace quilta::qt {

// 0x00BBGGRR to QColor and back.
inline QColor ToQColor(Color rgb, int alpha = 255) {
  return QColor(rgb & 0xFF, (rgb >> 8) & 0xFF, (rgb >> 16) & 0xFF, alpha);
}
inline Color FromQColor(const QColor& c) {
  return static_cast<Color>(c.red() | (c.green() << 8) | (c.blue() << 16));
}

// The grid's rectangles exclude right and bottom, as QRect's width and height do.
inline QRect ToQRect(const Rect& r) { return QRect(r.left, r.top, r.Width(), r.Height()); }
inline Rect FromQRect(const QRect& r) {
  return Rect{r.left(), r.top(), r.right() + 1, r.bottom() + 1};
}

inline QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string ToUtf8(const QString& s) { return s.toStdString(); }

QFont ToQFont(const Font& font);

// Code points <-> UTF-16 positions in a QString (the text box counts code points).
qsizetype Utf16Position(const QString& s, int32_t codePoints);
int32_t CodePointPosition(const QString& s, qsizetype utf16);

// The desktop virtual-key code of a key event (0 when it has none) and the modifier mask
// (1 Shift, 2 Ctrl, 4 Alt) and mouse button mask (1 left, 2 right, 4 middle).
int16_t VirtualKeyOf(const QKeyEvent& e);
int16_t ShiftMaskOf(Qt::KeyboardModifiers m);
int16_t ButtonMaskOf(Qt::MouseButtons b);

// The characters a key press types, as the desktop reports them: Ctrl with a letter gives its
// control code, other Ctrl and Alt combinations type nothing.
QString TypedCharacters(const QKeyEvent& e);

}  // namespace quilta::qt

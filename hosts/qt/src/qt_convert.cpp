#include "qt_convert.hpp"

#include <QKeyEvent>
#include <array>
#include <utility>

namespace quilta::qt {

QFont ToQFont(const Font& font) {
  QFont f(ToQString(font.name));
  f.setPointSizeF(font.size > 0 ? font.size : 9.0);
  f.setBold(font.bold);
  f.setItalic(font.italic);
  f.setUnderline(font.underline);
  f.setStrikeOut(font.strikethrough);
  return f;
}

qsizetype Utf16Position(const QString& s, int32_t codePoints) {
  qsizetype i = 0;
  for (int32_t n = 0; n < codePoints && i < s.size(); ++n) {
    i += (s.at(i).isHighSurrogate() && i + 1 < s.size() && s.at(i + 1).isLowSurrogate()) ? 2 : 1;
  }
  return i;
}

int32_t CodePointPosition(const QString& s, qsizetype utf16) {
  int32_t n = 0;
  for (qsizetype i = 0; i < utf16 && i < s.size(); ++n) {
    i += (s.at(i).isHighSurrogate() && i + 1 < s.size() && s.at(i + 1).isLowSurrogate()) ? 2 : 1;
  }
  return n;
}

namespace {

// Keys whose desktop code differs from Qt's.
constexpr std::array<std::pair<int, int16_t>, 43> kKeyCodes = {{
    {Qt::Key_Backspace, 0x08},    {Qt::Key_Tab, 0x09},         {Qt::Key_Backtab, 0x09},
    {Qt::Key_Clear, 0x0C},        {Qt::Key_Return, 0x0D},      {Qt::Key_Enter, 0x0D},
    {Qt::Key_Shift, 0x10},        {Qt::Key_Control, 0x11},     {Qt::Key_Alt, 0x12},
    {Qt::Key_Pause, 0x13},        {Qt::Key_CapsLock, 0x14},    {Qt::Key_Escape, 0x1B},
    {Qt::Key_Space, 0x20},        {Qt::Key_PageUp, 0x21},      {Qt::Key_PageDown, 0x22},
    {Qt::Key_End, 0x23},          {Qt::Key_Home, 0x24},        {Qt::Key_Left, 0x25},
    {Qt::Key_Up, 0x26},           {Qt::Key_Right, 0x27},       {Qt::Key_Down, 0x28},
    {Qt::Key_Print, 0x2C},        {Qt::Key_Insert, 0x2D},      {Qt::Key_Delete, 0x2E},
    {Qt::Key_Help, 0x2F},         {Qt::Key_Menu, 0x5D},        {Qt::Key_NumLock, 0x90},
    {Qt::Key_ScrollLock, 0x91},   {Qt::Key_Semicolon, 0xBA},   {Qt::Key_Colon, 0xBA},
    {Qt::Key_Equal, 0xBB},        {Qt::Key_Comma, 0xBC},       {Qt::Key_Less, 0xBC},
    {Qt::Key_Minus, 0xBD},        {Qt::Key_Underscore, 0xBD},  {Qt::Key_Period, 0xBE},
    {Qt::Key_Greater, 0xBE},      {Qt::Key_Slash, 0xBF},       {Qt::Key_Question, 0xBF},
    {Qt::Key_QuoteLeft, 0xC0},    {Qt::Key_BracketLeft, 0xDB}, {Qt::Key_Backslash, 0xDC},
    {Qt::Key_BracketRight, 0xDD},
}};

// Keypad keys have codes of their own on the desktop.
int16_t KeypadCode(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return static_cast<int16_t>(0x60 + key - Qt::Key_0);
  switch (key) {
    case Qt::Key_Asterisk:
      return 0x6A;
    case Qt::Key_Plus:
      return 0x6B;
    case Qt::Key_Minus:
      return 0x6D;
    case Qt::Key_Period:
      return 0x6E;
    case Qt::Key_Slash:
      return 0x6F;
    default:
      return 0;
  }
}

}  // namespace

int16_t VirtualKeyOf(const QKeyEvent& e) {
  const int key = e.key();
  if (e.modifiers() & Qt::KeypadModifier) {
    if (int16_t code = KeypadCode(key)) return code;
  }
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
    return static_cast<int16_t>(key);
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return static_cast<int16_t>(0x70 + key - Qt::Key_F1);
  if (key == Qt::Key_Plus) return 0xBB;
  for (const auto& [qtKey, code] : kKeyCodes) {
    if (qtKey == key) return code;
  }
  return 0;
}

int16_t ShiftMaskOf(Qt::KeyboardModifiers m) {
  return static_cast<int16_t>(((m & Qt::ShiftModifier) ? 1 : 0) |
                              ((m & Qt::ControlModifier) ? 2 : 0) |
                              ((m & Qt::AltModifier) ? 4 : 0));
}

int16_t ButtonMaskOf(Qt::MouseButtons b) {
  return static_cast<int16_t>(((b & Qt::LeftButton) ? 1 : 0) | ((b & Qt::RightButton) ? 2 : 0) |
                              ((b & Qt::MiddleButton) ? 4 : 0));
}

QString TypedCharacters(const QKeyEvent& e) {
  const Qt::KeyboardModifiers m = e.modifiers();
  const QString text = e.text();
  // AltGr arrives as Ctrl+Alt on some platforms: its printable characters are typing.
  const bool altGr =
      (m & Qt::ControlModifier) && (m & Qt::AltModifier) && !text.isEmpty() && text.at(0).isPrint();
  if (altGr) return text;
  if (m & Qt::AltModifier) return {};
  if (m & Qt::ControlModifier) {
    const int key = e.key();
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return QString(QChar(char16_t(key - Qt::Key_A + 1)));
    return {};
  }
  return text;
}

}  // namespace quilta::qt

#include "qt_text_box.hpp"

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QValidator>
#include <cmath>

#include "qt_convert.hpp"

namespace quilta::qt {

// Upper or lower case and digits only, also for pasted text.
class EditFlagsValidator final : public QValidator {
 public:
  EditFlagsValidator(int32_t flags, QObject* parent) : QValidator(parent), flags_(flags) {}
  State validate(QString& input, int& /*pos*/) const override {
    if (flags_ & quTextEditUpperCase) input = input.toUpper();
    if (flags_ & quTextEditLowerCase) input = input.toLower();
    if (flags_ & quTextEditNumberOnly) {
      for (QChar c : input) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9')) return Invalid;
      }
    }
    return Acceptable;
  }

 private:
  int32_t flags_;
};

class GridLineEdit final : public QLineEdit {
 public:
  GridLineEdit(QWidget* parent, TextBoxEvents& events, QtTextBox::GridKeys gridKeys)
      : QLineEdit(parent), events_(&events), gridKeys_(std::move(gridKeys)) {}
  // The box has gone from the grid's side: no more events, whatever Qt still delivers.
  void Detach() { events_ = nullptr; }

 protected:
  bool event(QEvent* e) override {
    // Tab and Shift+Tab belong to the editor (it moves to the next cell), not to focus changes;
    // every other key is the box's while editing, before any application shortcut.
    if (e->type() == QEvent::KeyPress) {
      auto* k = static_cast<QKeyEvent*>(e);
      if (k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab) {
        keyPressEvent(k);
        return true;
      }
    }
    if (e->type() == QEvent::ShortcutOverride) {
      e->accept();
      return true;
    }
    return QLineEdit::event(e);
  }

  void keyPressEvent(QKeyEvent* e) override {
    e->accept();
    if (!events_) return;
    int16_t code = VirtualKeyOf(*e);
    if (code != 0) {
      const int16_t shift = ShiftMaskOf(e->modifiers());
      events_->KeyDown(code, shift);
      if (!events_ || code == 0) return;
      // The grid's own keys while editing: Enter commits, Escape cancels, Tab moves on.
      if (gridKeys_) gridKeys_(code, shift);
      if (!events_) return;
    }
    const QString typed = TypedCharacters(*e);
    QString kept;
    for (QChar c : typed) {
      auto ascii = static_cast<int16_t>(c.unicode());
      events_->KeyPress(ascii);
      if (!events_) return;
      if (ascii != 0) kept += QChar(static_cast<char16_t>(ascii));
    }
    if (!typed.isEmpty() && kept.isEmpty()) return;  // every character eaten
    if (kept != typed && !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
      QKeyEvent replaced(e->type(), e->key(), e->modifiers(), kept, e->isAutoRepeat());
      QLineEdit::keyPressEvent(&replaced);
      return;
    }
    if (code == 0x09 || code == 0x0D || code == 0x1B) return;  // the editor's, not the box's
    QLineEdit::keyPressEvent(e);
    e->accept();
  }

  void keyReleaseEvent(QKeyEvent* e) override {
    if (!events_) return;
    int16_t code = VirtualKeyOf(*e);
    if (code != 0) {
      events_->KeyUp(code, ShiftMaskOf(e->modifiers()));
      if (!events_ || code == 0) return;
    }
    QLineEdit::keyReleaseEvent(e);
  }

  void mousePressEvent(QMouseEvent* e) override {
    if (!Forward(e, &TextBoxEvents::MouseDown, ButtonMaskOf(e->button()))) return;
    QLineEdit::mousePressEvent(e);
  }
  void mouseMoveEvent(QMouseEvent* e) override {
    if (!Forward(e, &TextBoxEvents::MouseMove, ButtonMaskOf(e->buttons()))) return;
    QLineEdit::mouseMoveEvent(e);
  }
  void mouseReleaseEvent(QMouseEvent* e) override {
    if (!Forward(e, &TextBoxEvents::MouseUp, ButtonMaskOf(e->button()))) return;
    QLineEdit::mouseReleaseEvent(e);
  }
  void mouseDoubleClickEvent(QMouseEvent* e) override {
    if (!events_) return;
    events_->DblClick();
    if (events_) QLineEdit::mouseDoubleClickEvent(e);
  }

 private:
  using MouseEvent = void (TextBoxEvents::*)(int16_t, int16_t, int32_t, int32_t);
  // False when the box was detached by the handler.
  bool Forward(QMouseEvent* e, MouseEvent handler, int16_t buttons) {
    if (!events_) return false;
    const QPointF at = e->position();
    (events_->*handler)(buttons, ShiftMaskOf(e->modifiers()),
                        static_cast<int32_t>(std::floor(at.x())),
                        static_cast<int32_t>(std::floor(at.y())));
    return events_ != nullptr;
  }

  TextBoxEvents* events_;
  QtTextBox::GridKeys gridKeys_;
};

QtTextBox::QtTextBox(QAbstractScrollArea& area, const TextBoxOptions& options,
                     TextBoxEvents& events, GridKeys gridKeys)
    : area_(area), edit_(new GridLineEdit(area.viewport(), events, std::move(gridKeys))) {
  GridLineEdit& e = *edit_;
  e.setFrame(false);
  e.setFont(ToQFont(options.font));
  e.setAlignment((options.alignH == quAlignHRight    ? Qt::AlignRight
                  : options.alignH == quAlignHCenter ? Qt::AlignHCenter
                                                     : Qt::AlignLeft) |
                 Qt::AlignVCenter);
  QPalette palette = e.palette();
  palette.setColor(QPalette::Base, ToQColor(options.backColor));
  palette.setColor(QPalette::Text, ToQColor(options.foreColor));
  e.setPalette(palette);
  if (options.maxLength > 0) e.setMaxLength(options.maxLength);
  if (options.flags & (quTextEditUpperCase | quTextEditLowerCase | quTextEditNumberOnly)) {
    e.setValidator(new EditFlagsValidator(options.flags, &e));
  }
  e.setText(ToQString(options.text));
  e.setGeometry(ToQRect(options.rect));
  QObject::connect(&e, &QLineEdit::textChanged, &e, [&events, edit = edit_] {
    if (edit) events.TextChanged();
  });
  e.show();
  e.setFocus(Qt::OtherFocusReason);  // typing goes to the box from its first key on
}

QtTextBox::~QtTextBox() {
  if (!edit_) return;
  edit_->Detach();
  QObject::disconnect(edit_.data(), &QLineEdit::textChanged, nullptr, nullptr);
  // Focus goes back to the grid, not to the next widget of the window.
  if (edit_->hasFocus()) area_.setFocus(Qt::OtherFocusReason);
  edit_->hide();
  edit_->deleteLater();  // the box may be closing from inside one of its own events
}

std::string QtTextBox::Text() const { return edit_ ? ToUtf8(edit_->text()) : std::string(); }

void QtTextBox::SetText(std::string_view text) {
  if (!edit_) return;
  edit_->setText(ToQString(text));
  edit_->end(false);
}

int32_t QtTextBox::SelStart() const {
  if (!edit_) return 0;
  const int start = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
  return CodePointPosition(edit_->text(), start);
}

int32_t QtTextBox::SelLength() const {
  if (!edit_ || !edit_->hasSelectedText()) return 0;
  const QString text = edit_->text();
  const int start = edit_->selectionStart();
  return CodePointPosition(text, start + edit_->selectionLength()) - CodePointPosition(text, start);
}

void QtTextBox::SetSelection(int32_t start, int32_t length) {
  if (!edit_) return;
  const QString text = edit_->text();
  const qsizetype from = Utf16Position(text, std::max(0, start));
  const qsizetype to = Utf16Position(text, std::max(0, start) + std::max(0, length));
  if (to > from) {
    edit_->setSelection(static_cast<int>(from), static_cast<int>(to - from));
  } else {
    edit_->setCursorPosition(static_cast<int>(from));
  }
}

std::string QtTextBox::SelText() const { return edit_ ? ToUtf8(edit_->selectedText()) : ""; }

void QtTextBox::ReplaceSelection(std::string_view text) {
  if (edit_) edit_->insert(ToQString(text));
}

void QtTextBox::Move(const Rect& rect) {
  if (edit_) edit_->setGeometry(ToQRect(rect));
}

void QtTextBox::SetFocus() {
  if (edit_) edit_->setFocus(Qt::OtherFocusReason);
}

intptr_t QtTextBox::Handle() const { return reinterpret_cast<intptr_t>(edit_.data()); }

}  // namespace quilta::qt

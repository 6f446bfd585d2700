#include "qt_drop_down.hpp"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "qt_convert.hpp"
#include "quilta/qt/qt_image_list.hpp"

namespace quilta::qt {
namespace {

constexpr int kMaxVisibleItems = 8;
constexpr qint64 kTypeAheadResetMs = 1000;

}  // namespace

class PopupList final : public QListWidget {
 public:
  PopupList(QWidget* parent, DropDownEvents& events) : QListWidget(parent), events_(&events) {
    setWindowFlags(Qt::Popup);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Choose(row(item)); });
  }
  void Detach() { events_ = nullptr; }
  // A text combo's box: the list keeps the arrows, Enter and Escape, the box gets the typing.
  void TypeInto(QWidget* box) { typingTarget_ = box; }

  // Highlights the first item starting with `typed`, ignoring case.
  void Search(const QString& typed) {
    for (int i = 0; i < count(); ++i) {
      if (item(i)->text().startsWith(typed, Qt::CaseInsensitive)) {
        setCurrentRow(i);
        return;
      }
    }
  }

 protected:
  void keyPressEvent(QKeyEvent* e) override {
    switch (e->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        return Choose(currentRow());
      case Qt::Key_Escape:
        return Dismiss();
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        return QListWidget::keyPressEvent(e);
      default:
        break;
    }
    if (typingTarget_) {
      QApplication::sendEvent(typingTarget_, e);
      return;
    }
    const QString typed = e->text();
    if (!typed.isEmpty() && typed.at(0).isPrint() &&
        !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
      if (!typing_.isValid() || typing_.elapsed() > kTypeAheadResetMs) typed_.clear();
      typing_.restart();
      typed_ += typed;
      Search(typed_);
      return;
    }
    QListWidget::keyPressEvent(e);
  }

  void hideEvent(QHideEvent* e) override {
    QListWidget::hideEvent(e);
    Dismiss();  // a click outside the popup closes it without a choice
  }

 private:
  void Choose(int index) {
    if (!events_) return;
    DropDownEvents* events = events_;
    Detach();
    hide();
    events->ItemChosen(index);
  }
  void Dismiss() {
    if (!events_) return;
    DropDownEvents* events = events_;
    Detach();
    hide();
    events->Dismissed();
  }

  DropDownEvents* events_;
  QPointer<QWidget> typingTarget_;
  QString typed_;
  QElapsedTimer typing_;
};

QtDropDown::QtDropDown(QAbstractScrollArea& area, const DropDownOptions& options,
                       DropDownEvents& events)
    : area_(area), list_(new PopupList(area.viewport(), events)) {
  PopupList& list = *list_;
  if (auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
      box && box->parentWidget() == area.viewport()) {
    list.TypeInto(box);
  }
  list.setFont(ToQFont(options.font));
  const auto* images = dynamic_cast<const QtImageList*>(options.images.get());
  if (images) {
    const Size size = images->ImageSize();
    list.setIconSize(QSize(size.cx, size.cy));
  }
  for (const DropDownItem& item : options.items) {
    auto* row = new QListWidgetItem(ToQString(item.text), &list);
    if (images && item.icon > 0)
      row->setIcon(QIcon(images->Pixmap(item.icon, list.devicePixelRatioF())));
  }
  if (options.selected >= 0 && options.selected < list.count())
    list.setCurrentRow(options.selected);

  const int rows = std::clamp(list.count(), 1, kMaxVisibleItems);
  const int rowHeight = std::max(list.sizeHintForRow(0), list.fontMetrics().height());
  const int height = rows * rowHeight + 2 * list.frameWidth();
  const QRect anchor = ToQRect(options.anchor);
  QPoint at = area.viewport()->mapToGlobal(anchor.bottomLeft() + QPoint(0, 1));
  // Above the cell when there is no room below it on the screen.
  if (const QScreen* screen = area.screen()) {
    if (at.y() + height > screen->availableGeometry().bottom()) {
      at = area.viewport()->mapToGlobal(anchor.topLeft()) - QPoint(0, height);
    }
  }
  list.setGeometry(QRect(at, QSize(std::max(anchor.width(), 60), height)));
  list.show();
  list.setFocus(Qt::PopupFocusReason);
  if (list.currentRow() >= 0) list.scrollToItem(list.currentItem());
}

QtDropDown::~QtDropDown() {
  if (!list_) return;
  list_->Detach();
  list_->hide();
  list_->deleteLater();
}

int32_t QtDropDown::HighlightedIndex() const { return list_ ? list_->currentRow() : -1; }

void QtDropDown::Highlight(int32_t index) {
  if (list_) list_->setCurrentRow(index);
}

void QtDropDown::Search(std::string_view typed) {
  if (list_) list_->Search(ToQString(typed));
}

void QtDropDown::Close() {
  if (!list_) return;
  list_->Detach();
  list_->hide();
}

}  // namespace quilta::qt

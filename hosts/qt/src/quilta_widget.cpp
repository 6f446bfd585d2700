#include "quilta/qt/quilta_widget.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWindow>
#include <cmath>

#include "accessible_grid.hpp"
#include "qt_convert.hpp"
#include "qt_painter.hpp"
#include "qt_platform.hpp"

namespace quilta::qt {
namespace {

// A paint of a few separate rectangles paints each; beyond that, their bounding box once.
constexpr int kMaxPaintRects = 8;

Point PointOf(const QMouseEvent& e) {
  const QPointF p = e.position();
  return {static_cast<int32_t>(std::floor(p.x())), static_cast<int32_t>(std::floor(p.y()))};
}

}  // namespace

QuiltaWidget::QuiltaWidget(QWidget* parent)
    : QAbstractScrollArea(parent),
      platform_(std::make_unique<QtPlatform>(*this)),
      grid_(std::make_unique<quilta::Quilta>(*platform_)) {
  // Qt keeps the first accessible interface it makes for a widget, so the grid's table
  // interface must be known before this widget is ever asked for one.
  InstallAccessibleGridFactory();
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  viewport()->setMouseTracking(true);
  // The control paints every pixel of its client area, empty parts included.
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setAutoFillBackground(false);
  viewport()->setAttribute(Qt::WA_Hover, false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int v) { ScrollBarMoved(quScrollBarH, v); });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this](int v) { ScrollBarMoved(quScrollBarV, v); });
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* from, QWidget* to) { FocusMoved(from, to); });
  // A property change repaints through Invalidate: the frame follows BorderType from there,
  // once the control's own call has returned.
  platform_->SetInvalidateHook([this] {
    if (grid_ && appliedBorder_ != grid_->BorderType()) {
      QMetaObject::invokeMethod(
          this, [this] { SyncBorder(); }, Qt::QueuedConnection);
    }
  });
  platform_->SetEditKeyHook([this](int16_t code, int16_t shift) {
    if (grid_) grid_->HostKeyDown(code, shift);
  });
  SyncBorder();
  lastDpi_ = platform_->Dpi();
}

QuiltaWidget::~QuiltaWidget() {
  disconnect(qApp, &QApplication::focusChanged, this, nullptr);
  grid_.reset();  // the control goes before the services it uses; the hooks see it gone
}

quilta::Quilta& QuiltaWidget::grid() { return *grid_; }
const quilta::Quilta& QuiltaWidget::grid() const { return *grid_; }

QSize QuiltaWidget::sizeHint() const { return {480, 320}; }

void QuiltaWidget::SyncBorder() {
  const EBorderType border = grid_->BorderType();
  if (appliedBorder_ == border) return;
  appliedBorder_ = border;
  switch (border) {
    case quBorderNone:
      setFrameStyle(QFrame::NoFrame);
      break;
    case quBorderFlat:
      setFrameStyle(QFrame::Box | QFrame::Plain);
      setLineWidth(1);
      break;
    case quBorderSunken:
      setFrameStyle(QFrame::Panel | QFrame::Sunken);
      setLineWidth(2);
      break;
    default:
      setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
      break;
  }
  ClientSizeMayHaveChanged();
}

void QuiltaWidget::ClientSizeMayHaveChanged() {
  const Size size = platform_->ClientSize();
  if (size == lastClientSize_) return;
  lastClientSize_ = size;
  grid_->HostResize();
}

void QuiltaWidget::ResolutionChanged() {
  const int32_t dpi = platform_->Dpi();
  if (dpi == lastDpi_) {
    viewport()->update();  // the scale may have changed without the dpi: repaint crisply
    return;
  }
  lastDpi_ = dpi;
  grid_->HostResize();
}

void QuiltaWidget::Shown() {
  WatchScreen();
  lastClientSize_ = platform_->ClientSize();
  lastDpi_ = platform_->Dpi();
  grid_->HostResize();
  // Scroll bars switched on or off while hidden take their place now.
  setVerticalScrollBarPolicy(verticalScrollBarPolicy());
  setHorizontalScrollBarPolicy(horizontalScrollBarPolicy());
}

void QuiltaWidget::WatchScreen() {
  disconnect(screenConnection_);
  if (QScreen* s = screen()) {
    screenConnection_ =
        connect(s, &QScreen::logicalDotsPerInchChanged, this, [this] { ResolutionChanged(); });
  }
}

bool QuiltaWidget::event(QEvent* e) {
  switch (e->type()) {
    case QEvent::KeyPress: {
      // With UseTabKey, Tab moves between cells, not out of the grid.
      auto* k = static_cast<QKeyEvent*>(e);
      if ((k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab) && grid_->UseTabKey()) {
        keyPressEvent(k);
        return true;
      }
      break;
    }
    case QEvent::ShortcutOverride: {
      // The grid's own clipboard and navigation keys win over the window's shortcuts.
      auto* k = static_cast<QKeyEvent*>(e);
      const bool ctrl = k->modifiers() & Qt::ControlModifier;
      if (!(k->modifiers() & Qt::AltModifier) &&
          (!ctrl || k->key() == Qt::Key_C || k->key() == Qt::Key_V || k->key() == Qt::Key_X ||
           k->key() == Qt::Key_Insert || k->key() == Qt::Key_A || VirtualKeyOf(*k) < 0x30)) {
        e->accept();
        return true;
      }
      break;
    }
    case QEvent::ScreenChangeInternal:
      WatchScreen();
      ResolutionChanged();
      break;
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::FontChange:
      viewport()->update();
      break;
    default:
      break;
  }
  const bool handled = QAbstractScrollArea::event(e);
  if (e->type() == QEvent::Resize) ClientSizeMayHaveChanged();
  if (e->type() == QEvent::Show) Shown();
  return handled;
}

bool QuiltaWidget::viewportEvent(QEvent* e) {
  if (e->type() == QEvent::Leave) grid_->HostMouseLeave();
  return QAbstractScrollArea::viewportEvent(e);
}

void QuiltaWidget::paintEvent(QPaintEvent* e) {
  QPainter painter(viewport());
  const QRegion& region = e->region();
  if (region.rectCount() > kMaxPaintRects) {
    QtPainter p(painter, *this, FromQRect(region.boundingRect()));
    grid_->Paint(p, FromQRect(region.boundingRect()));
    AnnounceCurrentCell();
    return;
  }
  for (const QRect& r : region) {
    QtPainter p(painter, *this, FromQRect(r));
    grid_->Paint(p, FromQRect(r));
  }
  AnnounceCurrentCell();
}

// Every move of the current cell repaints it, however it was moved (keys, mouse, host code), so
// the paint is the one place that sees them all.
void QuiltaWidget::AnnounceCurrentCell() {
  const int32_t row = grid_->CurRow(), col = grid_->CurCol();
  if (row == announcedRow_ && col == announcedCol_) return;
  announcedRow_ = row;
  announcedCol_ = col;
  NotifyCurrentCellChanged(this);
}

void QuiltaWidget::resizeEvent(QResizeEvent* e) {
  QAbstractScrollArea::resizeEvent(e);
  ClientSizeMayHaveChanged();
}

void QuiltaWidget::keyPressEvent(QKeyEvent* e) {
  e->accept();
  if (const int16_t code = VirtualKeyOf(*e)) grid_->HostKeyDown(code, ShiftMaskOf(e->modifiers()));
  for (QChar c : TypedCharacters(*e)) grid_->HostKeyPress(static_cast<int16_t>(c.unicode()));
}

void QuiltaWidget::mousePressEvent(QMouseEvent* e) {
  if (!hasFocus() && !platform_->HasFocus()) setFocus(Qt::MouseFocusReason);
  const Point at = PointOf(*e);
  grid_->HostMouseDown(ButtonMaskOf(e->button()), ShiftMaskOf(e->modifiers()), at.x, at.y);
}

void QuiltaWidget::mouseMoveEvent(QMouseEvent* e) {
  const Point at = PointOf(*e);
  grid_->HostMouseMove(ButtonMaskOf(e->buttons()), ShiftMaskOf(e->modifiers()), at.x, at.y);
}

void QuiltaWidget::mouseReleaseEvent(QMouseEvent* e) {
  const Point at = PointOf(*e);
  grid_->HostMouseUp(ButtonMaskOf(e->button()), ShiftMaskOf(e->modifiers()), at.x, at.y);
}

void QuiltaWidget::mouseDoubleClickEvent(QMouseEvent* e) {
  const Point at = PointOf(*e);
  grid_->HostDblClick(ButtonMaskOf(e->button()), ShiftMaskOf(e->modifiers()), at.x, at.y);
}

void QuiltaWidget::wheelEvent(QWheelEvent* e) {
  e->accept();
  const int16_t shift = ShiftMaskOf(e->modifiers());
  const QPoint pixels = e->pixelDelta();
  if (!pixels.isNull()) {  // a touchpad: follow the fingers pixel for pixel
    if (pixels.y() != 0) grid_->HostScroll(quScrollBarV, verticalScrollBar()->value() - pixels.y());
    if (pixels.x() != 0) {
      grid_->HostScroll(quScrollBarH, horizontalScrollBar()->value() - pixels.x());
    }
    return;
  }
  const QPoint notches = e->angleDelta();
  if (notches.y() != 0) grid_->HostMouseWheel(notches.y(), shift);
  if (notches.x() != 0) grid_->HostMouseWheel(notches.x(), static_cast<int16_t>(shift | 1));
}

void QuiltaWidget::scrollContentsBy(int, int) {
  // The control repaints what scrolling uncovers itself.
}

void QuiltaWidget::ScrollBarMoved(EScrollBar bar, int value) {
  if (!platform_->SettingScrollBars()) grid_->HostScroll(bar, value);
}

void QuiltaWidget::FocusMoved(QWidget*, QWidget* to) {
  // The grid keeps the focus while its text box or drop-down list has it.
  const bool focused = platform_->Owns(to);
  if (focused == focused_) return;
  focused_ = focused;
  grid_->HostFocusChanged(focused);
}

}  // namespace quilta::qt

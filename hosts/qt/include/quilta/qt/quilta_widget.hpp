// QuiltaWidget: the grid as a Qt widget. A QAbstractScrollArea that owns one Quilta control and
// implements every window service the control needs over Qt; the control does the behaviour,
// the widget only translates Qt's paint, input, focus and scroll events into the control's host
// calls.
#pragma once

#include <QAbstractScrollArea>
#include <memory>
#include <quilta/quilta.hpp>

namespace quilta::qt {

class QtPlatform;

class QuiltaWidget : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit QuiltaWidget(QWidget* parent = nullptr);
  ~QuiltaWidget() override;
  quilta::Quilta& grid();
  const quilta::Quilta& grid() const;

  QSize sizeHint() const override;

 protected:
  bool event(QEvent* e) override;
  bool viewportEvent(QEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void wheelEvent(QWheelEvent* e) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  friend class QtPlatform;
  void ScrollBarMoved(EScrollBar bar, int value);
  void FocusMoved(QWidget* from, QWidget* to);
  void ClientSizeMayHaveChanged();
  void ResolutionChanged();
  void WatchScreen();
  void Shown();
  // The frame follows the control's BorderType.
  void SyncBorder();
  // Tells screen readers when the current cell has moved.
  void AnnounceCurrentCell();

  std::unique_ptr<QtPlatform> platform_;
  std::unique_ptr<quilta::Quilta> grid_;
  Size lastClientSize_{-1, -1};
  int32_t lastDpi_ = 0;
  int32_t appliedBorder_ = -1;
  bool focused_ = false;
  int32_t announcedRow_ = 0;
  int32_t announcedCol_ = 0;
  QMetaObject::Connection screenConnection_;
};

}  // namespace quilta::qt

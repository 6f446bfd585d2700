#include "icons.hpp"

#include <QPainter>
#include <QPainterPath>
#include <functional>

#include "order_book.hpp"

namespace demo {
namespace {

constexpr int kSize = 16;
constexpr qreal kScale = 3;  // drawn large, so the icons stay sharp at any display scale

QPixmap Draw(const std::function<void(QPainter&)>& paint) {
  QPixmap pm(static_cast<int>(kSize * kScale), static_cast<int>(kSize * kScale));
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(kScale, kScale);
  paint(p);
  return pm;
}

void Disc(QPainter& p, QColor fill) {
  p.setPen(QPen(fill.darker(130), 1));
  p.setBrush(fill);
  p.drawEllipse(QRectF(1.5, 1.5, 13, 13));
}

QPixmap Shipped() {
  return Draw([](QPainter& p) {
    Disc(p, QColor(46, 160, 67));
    p.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF({QPointF(4.8, 8.2), QPointF(7, 10.4), QPointF(11.2, 5.6)}));
  });
}

QPixmap Pending() {
  return Draw([](QPainter& p) {
    Disc(p, QColor(230, 150, 30));
    p.setPen(QPen(Qt::white, 1.6, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(8, 8), QPointF(8, 4.5));
    p.drawLine(QPointF(8, 8), QPointF(10.8, 9.6));
  });
}

QPixmap Truck(QColor body) {
  return Draw([body](QPainter& p) {
    p.setPen(QPen(body.darker(140), 0.8));
    p.setBrush(body);
    p.drawRoundedRect(QRectF(0.8, 3.5, 9, 7), 1, 1);
    p.setBrush(body.lighter(130));
    QPainterPath cab;
    cab.moveTo(10.2, 5.5);
    cab.lineTo(13.2, 5.5);
    cab.lineTo(15.2, 8.2);
    cab.lineTo(15.2, 10.5);
    cab.lineTo(10.2, 10.5);
    cab.closeSubpath();
    p.drawPath(cab);
    p.setPen(QPen(QColor(40, 40, 40), 0.8));
    p.setBrush(QColor(70, 70, 70));
    p.drawEllipse(QRectF(2.5, 9.8, 3.4, 3.4));
    p.drawEllipse(QRectF(10.8, 9.8, 3.4, 3.4));
  });
}

QPixmap Customer() {
  return Draw([](QPainter& p) {
    const QColor blue(52, 110, 200);
    p.setPen(Qt::NoPen);
    p.setBrush(blue);
    p.drawEllipse(QRectF(5, 1.5, 6, 6));
    QPainterPath body;
    body.moveTo(2, 15);
    body.cubicTo(2, 9, 14, 9, 14, 15);
    body.closeSubpath();
    p.drawPath(body);
  });
}

}  // namespace

std::shared_ptr<quilta::qt::QtImageList> MakeIcons() {
  auto list = std::make_shared<quilta::qt::QtImageList>(QSize(kSize, kSize));
  list->Add(Shipped());                    // kIconShipped
  list->Add(Pending());                    // kIconPending
  list->Add(Truck(QColor(215, 60, 50)));   // kIconSpeedy
  list->Add(Truck(QColor(45, 110, 200)));  // kIconUnited
  list->Add(Truck(QColor(40, 150, 90)));   // kIconFederal
  list->Add(Customer());                   // kIconCustomer
  return list;
}

}  // namespace demo

#include "platform/signs.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

#include "platform/application.h"
#include "platform/native.h"

namespace platform {

namespace {

using Draw = void (*)(QPainter& painter, QStyle::StandardPixmap kind);

constexpr qreal kSide = 40;  // all are drawn in a square of this side

QPen Outline() { return QPen(ToQt(Application::theme().outline), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin); }

QLinearGradient Body(const QColor& colour, const QRectF& area) {
  QLinearGradient body(area.topLeft(), area.bottomLeft());
  body.setColorAt(0, colour.lighter(115));
  body.setColorAt(1, colour.darker(120));
  return body;
}

/// The sign of a message box: a lit disc or triangle with a mark in it.
void DrawBoxSign(QPainter& painter, QStyle::StandardPixmap kind) {
  const Theme& theme = Application::theme();
  const bool warning = kind == QStyle::SP_MessageBoxWarning;
  const bool critical = kind == QStyle::SP_MessageBoxCritical;
  const QRectF area = QRectF(0, 0, kSide, kSide).adjusted(2, 2, -2, -2);
  painter.setPen(Outline());
  painter.setBrush(Body(critical ? QColor(0xC9452F) : ToQt(theme.accent), area));
  if (warning) {
    painter.drawPolygon(QPolygonF({QPointF(area.center().x(), area.top()), area.bottomRight(), area.bottomLeft()}));
  } else {
    painter.drawEllipse(area);
  }
  painter.setFont(ToQt(Font{.size = 24, .bold = true}));
  painter.setPen(ToQt(critical ? theme.text : theme.accent_text));
  const QString mark = kind == QStyle::SP_MessageBoxQuestion      ? "?"
                       : kind == QStyle::SP_MessageBoxInformation ? "i"
                                                                  : "!";
  painter.drawText(area.translated(0, warning ? 4 : 0), Qt::AlignCenter, mark);
}

void DrawFolder(QPainter& painter, QStyle::StandardPixmap kind) {
  const Theme& theme = Application::theme();
  const QRectF area(4, 9, 32, 24);
  painter.setPen(Outline());
  painter.setBrush(ToQt(theme.accent).darker(140));
  painter.drawRoundedRect(QRectF(4, 6, 15, 12), 3, 3);
  painter.setBrush(Body(ToQt(theme.accent), area));
  painter.drawRoundedRect(area, 3, 3);
  if (kind == QStyle::SP_DirHomeIcon) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQt(theme.accent_text));
    painter.drawPolygon(QPolygonF({QPointF(20, 11), QPointF(30, 21), QPointF(10, 21)}));
    painter.drawRect(QRectF(14, 20, 12, 10));
  }
  if (kind != QStyle::SP_FileDialogNewFolder) return;
  painter.setPen(QPen(ToQt(theme.accent_text), 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(20, 15), QPointF(20, 27));
  painter.drawLine(QPointF(14, 21), QPointF(26, 21));
}

void DrawFile(QPainter& painter, QStyle::StandardPixmap /*kind*/) {
  const Theme& theme = Application::theme();
  painter.setPen(Outline());
  painter.setBrush(Body(ToQt(theme.text).darker(110), QRectF(8, 4, 24, 32)));
  painter.drawPolygon(QPolygonF({QPointF(8, 4), QPointF(23, 4), QPointF(32, 13), QPointF(32, 36), QPointF(8, 36)}));
  painter.setBrush(ToQt(theme.muted_text));
  painter.drawPolygon(QPolygonF({QPointF(23, 4), QPointF(32, 13), QPointF(23, 13)}));
}

void DrawWay(QPainter& painter, QStyle::StandardPixmap kind) {
  painter.translate(kSide / 2, kSide / 2);
  painter.rotate(kind == QStyle::SP_FileDialogToParent ? 0 : kind == QStyle::SP_ArrowForward ? 90 : 270);
  painter.setPen(QPen(ToQt(Application::theme().text), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(QPointF(0, 12), QPointF(0, -11));
  painter.drawPolyline(QPolygonF({QPointF(-10, -1), QPointF(0, -12), QPointF(10, -1)}));
}

void DrawRows(QPainter& painter, QStyle::StandardPixmap kind) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(ToQt(Application::theme().text));
  const bool details = kind == QStyle::SP_FileDialogDetailedView;
  for (const qreal y : {8.0, 18.0, 28.0}) {
    painter.drawRect(QRectF(6, y, details ? 6 : 12, 5));
    painter.drawRect(details ? QRectF(15, y, 19, 5) : QRectF(22, y, 12, 5));
  }
}

Draw DrawOf(QStyle::StandardPixmap kind) {
  switch (kind) {
    case QStyle::SP_MessageBoxInformation:
    case QStyle::SP_MessageBoxWarning:
    case QStyle::SP_MessageBoxCritical:
    case QStyle::SP_MessageBoxQuestion:
      return DrawBoxSign;
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirOpenIcon:
    case QStyle::SP_DirHomeIcon:
    case QStyle::SP_FileDialogNewFolder:
      return DrawFolder;
    case QStyle::SP_FileIcon:
      return DrawFile;
    case QStyle::SP_FileDialogBack:
    case QStyle::SP_FileDialogToParent:
    case QStyle::SP_ArrowBack:
    case QStyle::SP_ArrowForward:
      return DrawWay;
    case QStyle::SP_FileDialogListView:
    case QStyle::SP_FileDialogDetailedView:
      return DrawRows;
    default:
      return nullptr;
  }
}

/// Draws a sign at the size and state asked for.
class SignEngine : public QIconEngine {
 public:
  explicit SignEngine(QStyle::StandardPixmap kind) : kind_(kind) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State /*state*/) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (mode == QIcon::Disabled) painter->setOpacity(0.35);
    const qreal scale = std::min(area.width(), area.height()) / kSide;
    painter->translate(area.left() + (area.width() - kSide * scale) / 2,
                       area.top() + (area.height() - kSide * scale) / 2);
    painter->scale(scale, scale);
    DrawOf(kind_)(*painter, kind_);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new SignEngine(kind_); }

 private:
  QStyle::StandardPixmap kind_;
};

}  // namespace

QIcon SignOf(QStyle::StandardPixmap kind) { return DrawOf(kind) ? QIcon(new SignEngine(kind)) : QIcon(); }

}  // namespace platform

#include "platform/native.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPaintEvent>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "base/code_page.h"
#include "platform/application.h"

namespace platform {

namespace {

QStringList BreakLine(const QString& line, const QFont& font, int width) {
  QTextLayout layout(line, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
    part.setLineWidth(width);
    lines << line.mid(part.textStart(), part.textLength());
  }
  layout.endLayout();
  return lines.isEmpty() ? QStringList{QString()} : lines;
}

void DrawFocus(QPainter& painter, const QRectF& area) {
  painter.setPen(QPen(ToQt(Application::theme().accent), 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), 4, 4);
}

}  // namespace

long long Canvas::painted_pixels = 0;

void Canvas::paintEvent(QPaintEvent* event) {
  const qreal ratio = devicePixelRatioF();
  for (const QRect& area : event->region()) {
    painted_pixels += std::llround(area.width() * ratio * area.height() * ratio);
  }
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (paint) paint(painter);
  if (hasFocus() && focusPolicy() != Qt::NoFocus) DrawFocus(painter, rect());
}

void DrawPixels(QPainter& painter, const QImage& image, int ratio) {
  const qreal device = painter.device()->devicePixelRatio();
  painter.save();
  // Cancels the device's scale, so that pixels of the same size are copied and not resampled.
  painter.scale(1 / device, 1 / device);
  if (device == ratio) {
    painter.drawImage(0, 0, image);
  } else {
    painter.drawImage(QRectF(0, 0, image.width() * device / ratio, image.height() * device / ratio), image);
  }
  painter.restore();
}

Charset CharsetOf(CodePage page) { return page == CodePage::k1251 ? Charset::kCyrillic : Charset::kCentralEuropean; }

CodePage PageOf(Charset charset) { return charset == Charset::kCyrillic ? CodePage::k1251 : CodePage::k1250; }

QString ToGlyphs(const std::string& bytes, Charset charset) {
  QString text = QString::fromStdString(ToUtf8(bytes, PageOf(charset)));
  return text.remove(u'\r');
}

std::string ToBytes(const QString& text, Charset charset) { return FromUtf8(text.toStdString(), PageOf(charset)); }

QString ToPlainCaption(const std::string& bytes, Charset charset) {
  return ToGlyphs(bytes, charset).replace("&", "&&");
}

QFont ToQt(const Font& font) {
  const Theme& theme = Application::theme();
  QStringList families;
  for (const std::string& family : theme.font_families) families << QString::fromStdString(family);
  QFont result;
  result.setFamilies(families);
  result.setPixelSize(font.size > 0 ? font.size : theme.font_size);
  result.setBold(font.bold);
  result.setItalic(font.italic);
  result.setUnderline(font.underline);
  return result;
}

void SetFieldColours(const Control& control) {
  const Theme& theme = Application::theme();
  QWidget* widget = Native::Widget(control);
  QPalette palette = QApplication::palette(widget);
  palette.setColor(QPalette::Base, ToQt(control.back_colour().value_or(theme.field)));
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, ToQt(control.fore_colour().value_or(theme.text)));
    palette.setColor(QPalette::Disabled, role, ToQt(theme.muted_text));
  }
  widget->setPalette(palette);
}

TextLayout LayOut(const QString& text, const QFont& font, int wrap_width) {
  const QFontMetricsF metrics(font);
  TextLayout result;
  for (const QString& line : text.split(u'\n')) {
    result.lines += wrap_width > 0 ? BreakLine(line, font, wrap_width) : QStringList{line};
  }
  qreal width = 0;
  for (const QString& line : result.lines) width = std::max(width, metrics.horizontalAdvance(line));
  result.width = static_cast<int>(std::ceil(width));
  result.line_height = static_cast<int>(std::lround(font.pixelSize() * 1.3));
  result.baseline = static_cast<int>(std::lround((result.line_height + metrics.capHeight()) / 2));
  return result;
}

int ShiftMask(Qt::KeyboardModifiers modifiers) {
  return (modifiers & Qt::ShiftModifier ? kShift : 0) | (modifiers & Qt::ControlModifier ? kCtrl : 0) |
         (modifiers & Qt::AltModifier ? kAlt : 0);
}

int ButtonMask(Qt::MouseButtons buttons) {
  return (buttons & Qt::LeftButton ? kLeftButton : 0) | (buttons & Qt::RightButton ? kRightButton : 0) |
         (buttons & Qt::MiddleButton ? kMiddleButton : 0);
}

}  // namespace platform

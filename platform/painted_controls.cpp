// Controls that are painted here: texts, pictures, figures and containers.

#include <algorithm>

#include "platform/application.h"
#include "platform/controls.h"
#include "platform/native.h"

namespace platform {

namespace {

Canvas& CanvasOf(const Control& control) { return static_cast<Canvas&>(*Native::Widget(control)); }

/// A canvas is opaque when it covers its ground: what lies below need not be painted then, and it moves by copying.
void SetOpaque(const Control& control, bool opaque) { CanvasOf(control).setAttribute(Qt::WA_OpaquePaintEvent, opaque); }

void DrawLines(QPainter& painter, const TextLayout& text, const QSize& area, Alignment alignment, bool middle) {
  const QFontMetrics metrics(painter.font());
  int y = text.baseline + (middle ? (area.height() - text.height()) / 2 : 0);
  for (QString line : text.lines) {
    if (alignment == Alignment::kCentre) line = line.trimmed();  // a blank at one end would push it aside
    const int room = area.width() - metrics.horizontalAdvance(line);
    const int x = alignment == Alignment::kLeft ? 0 : alignment == Alignment::kCentre ? room / 2 : room;
    painter.drawText(x, y, line);
    y += text.line_height;
  }
}

/// What has no room ends in an ellipsis: each line that is too wide, and the last one that is seen.
void CutOff(TextLayout& text, const QFontMetrics& metrics, const QSize& area) {
  const qsizetype seen = std::max(area.height() / text.line_height, 1);
  if (text.lines.size() > seen) {
    text.lines.resize(seen);
    text.lines.last() += u'…';
  }
  for (QString& line : text.lines) line = metrics.elidedText(line, Qt::ElideRight, area.width());
}

}  // namespace

void Captioned::set_caption(const std::string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  AppearanceChanged();
}

int Captioned::text_width() const { return LayOut(ToGlyphs(caption_, charset()), ToQt(font())).width; }

Label::Label(Container* parent, const std::string& caption) : Captioned(parent, new Canvas) {
  CanvasOf(*this).paint = [this](QPainter& painter) { Paint(painter); };
  Resize(120, LayOut("X", ToQt(font())).line_height);
  set_caption(caption);
}

void Label::set_alignment(Alignment alignment) {
  alignment_ = alignment;
  AppearanceChanged();
}

void Label::set_middle(bool middle) {
  middle_ = middle;
  AppearanceChanged();
}

void Label::set_word_wrap(bool wrap) {
  word_wrap_ = wrap;
  AppearanceChanged();
}

void Label::set_auto_size(bool auto_size) {
  auto_size_ = auto_size;
  AppearanceChanged();
}

int Label::text_height() const {
  return LayOut(ToGlyphs(caption(), charset()), ToQt(font()), word_wrap_ ? width() : 0).height();
}

void Label::AppearanceChanged() {
  SetOpaque(*this, back_colour().has_value());
  if (accessible_name().empty()) widget()->setAccessibleName(ToGlyphs(caption(), charset()));
  if (auto_size_) Resize(word_wrap_ ? width() : text_width(), text_height());
  Control::AppearanceChanged();
}

void Label::Paint(QPainter& painter) const {
  const QSize area(width(), height());
  if (back_colour()) painter.fillRect(QRect(QPoint(), area), ToQt(*back_colour()));
  const Theme& theme = Application::theme();
  painter.setPen(ToQt(enabled() ? fore_colour().value_or(theme.text) : theme.muted_text));
  const QFont text_font = ToQt(font());
  painter.setFont(text_font);
  TextLayout text = LayOut(ToGlyphs(caption(), charset()), text_font, word_wrap_ ? area.width() : 0);
  if (!auto_size_) CutOff(text, QFontMetrics(text_font), area);
  DrawLines(painter, text, area, alignment_, middle_);
}

Image::Image(Container* parent, const Picture& picture) : Control(parent, new Canvas) {
  CanvasOf(*this).paint = [this](QPainter& painter) { Paint(painter); };
  set_picture(picture);
}

void Image::set_picture(const Picture& picture) {
  picture_ = picture;
  if (!stretch_ && !picture.empty()) Resize(picture.width(), picture.height());
  AppearanceChanged();
}

void Image::set_stretch(bool stretch) {
  stretch_ = stretch;
  set_picture(picture_);
}

void Image::Paint(QPainter& painter) const {
  if (back_colour()) painter.fillRect(QRect(0, 0, width(), height()), ToQt(*back_colour()));
  if (picture_.empty()) return;
  const bool own_size = width() == picture_.width() && height() == picture_.height();
  if (stretch_ && !own_size) {
    painter.drawImage(QRect(0, 0, width(), height()), Native::Image(picture_));
  } else {
    DrawPixels(painter, Native::Image(picture_), picture_.ratio());
  }
}

Shape::Shape(Container* parent, ShapeKind kind) : Control(parent, new Canvas), kind_(kind) {
  CanvasOf(*this).paint = [this](QPainter& painter) { Paint(painter); };
  widget()->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Shape::set_line_width(int pixels) {
  line_width_ = pixels;
  AppearanceChanged();
}

void Shape::set_corner(int pixels) {
  corner_ = pixels;
  AppearanceChanged();
}

void Shape::Paint(QPainter& painter) const {
  const qreal inset = line_width_ / 2.0;
  const QRectF area = QRectF(0, 0, width(), height()).adjusted(inset, inset, -inset, -inset);
  const QColor line = ToQt(fore_colour().value_or(Application::theme().outline));
  painter.setPen(line_width_ > 0 ? QPen(line, line_width_) : QPen(Qt::NoPen));
  painter.setBrush(back_colour() ? QBrush(ToQt(*back_colour())) : QBrush(Qt::NoBrush));
  switch (kind_) {
    case ShapeKind::kRectangle:
      painter.drawRect(area);
      break;
    case ShapeKind::kRounded:
      painter.drawRoundedRect(area, corner_, corner_);
      break;
    case ShapeKind::kOval:
      painter.drawEllipse(area);
      break;
  }
}

Frame::Frame(Container* parent) : Container(parent, new Canvas) {
  CanvasOf(*this).paint = [this](QPainter& painter) { Paint(painter); };
}

void Frame::set_border(bool border) {
  border_ = border;
  AppearanceChanged();
}

void Frame::Paint(QPainter& painter) const {
  const QRectF area(0, 0, width(), height());
  const Theme& theme = Application::theme();
  if (border_) {
    painter.setPen(QPen(ToQt(theme.outline), 1));
    painter.setBrush(ToQt(back_colour().value_or(theme.panel)));
    painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
  } else if (back_colour()) {
    painter.fillRect(area, ToQt(*back_colour()));
  }
}

PictureBox::PictureBox(Container* parent) : Container(parent, new Canvas) {
  CanvasOf(*this).paint = [this](QPainter& painter) { Paint(painter); };
  SetOpaque(*this, true);
  surface_.on_change = [this](const Rect& area) {
    CanvasOf(*this).update(area.left, area.top, area.width, area.height);
  };
}

void PictureBox::Paint(QPainter& painter) const {
  if (surface_.width() < width() || surface_.height() < height()) {
    painter.fillRect(QRect(0, 0, width(), height()), ToQt(back_colour().value_or(Application::theme().panel)));
  }
  if (surface_.width() > 0) DrawPixels(painter, Native::Image(surface_), surface_.ratio());
}

}  // namespace platform

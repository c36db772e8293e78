#include "platform/picture.h"

#include <QPainter>
#include <QSvgRenderer>
#include <cstring>
#include <set>

#include "base/fault.h"
#include "base/files.h"
#include "platform/native.h"

namespace platform {

namespace {

QImage Blank(int width, int height, int ratio, QImage::Format format) {
  QImage image(width * ratio, height * ratio, format);
  image.fill(Qt::transparent);
  return image;
}

bool IsOpaque(const QImage& image) {
  if (!image.hasAlphaChannel()) return true;
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(row[x]) != 255) return false;
    }
  }
  return true;
}

QRect ToQt(const Rect& rect, int ratio = 1) {
  return {rect.left * ratio, rect.top * ratio, rect.width * ratio, rect.height * ratio};
}

Rect Intersection(const Rect& a, const Rect& b) {
  const QRect common = ToQt(a) & ToQt(b);
  return {common.x(), common.y(), std::max(common.width(), 0), std::max(common.height(), 0)};
}

/// Copies whole pixels row by row; both rectangles lie inside their images.
void CopyRows(const QImage& from, const QRect& source, QImage& to, QPoint target) {
  const std::size_t bytes = static_cast<std::size_t>(source.width()) * sizeof(QRgb);
  const uchar* read = from.constBits() + source.y() * from.bytesPerLine() + source.x() * sizeof(QRgb);
  uchar* write = to.bits() + target.y() * to.bytesPerLine() + target.x() * sizeof(QRgb);
  for (int row = 0; row < source.height(); ++row) {
    std::memcpy(write, read, bytes);
    read += from.bytesPerLine();
    write += to.bytesPerLine();
  }
}

}  // namespace

struct Picture::Pixels {
  QImage image;  // RGB32 when opaque, else ARGB32_Premultiplied
  int width = 0;
  int height = 0;
  int ratio = 1;
};

Picture::Picture(std::shared_ptr<const Pixels> pixels) : pixels_(std::move(pixels)) {}

Picture Native::MakePicture(QImage image, int width, int height, int ratio) {
  if (image.isNull()) return {};
  image =
      std::move(image).convertToFormat(IsOpaque(image) ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
  return Picture(std::make_shared<const Picture::Pixels>(Picture::Pixels{std::move(image), width, height, ratio}));
}

const QImage& Native::Image(const Picture& picture) {
  static const QImage none;
  return picture.pixels_ ? picture.pixels_->image : none;
}

Picture Picture::LoadSvg(const std::string& file, int width, int height, int ratio, const Substitutions& tint) {
  QByteArray text = QByteArray::fromStdString(ReadFile(file));
  for (const auto& [from, to] : tint) text.replace(from.c_str(), to.c_str());
  QSvgRenderer renderer(text);
  if (!renderer.isValid()) throw Fault("this is no SVG picture", file);
  QImage image = Blank(width, height, ratio, QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  renderer.render(&painter);
  painter.end();
  return Native::MakePicture(std::move(image), width, height, ratio);
}

Picture Picture::Solid(int width, int height, int ratio, Colour colour) {
  QImage image = Blank(width, height, ratio, QImage::Format_RGB32);
  image.fill(platform::ToQt(colour));
  return Native::MakePicture(std::move(image), width, height, ratio);
}

int Picture::width() const { return pixels_ ? pixels_->width : 0; }
int Picture::height() const { return pixels_ ? pixels_->height : 0; }
int Picture::ratio() const { return pixels_ ? pixels_->ratio : 1; }
bool Picture::opaque() const { return pixels_ && pixels_->image.format() == QImage::Format_RGB32; }

Picture Picture::Over(const Picture& below) const {
  if (empty()) return below;
  if (below.empty()) return *this;
  QImage image = below.pixels_->image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(image.rect(), pixels_->image);
  painter.end();
  return Native::MakePicture(std::move(image), below.width(), below.height(), below.ratio());
}

Picture Picture::Scaled(int width, int height) const {
  if (empty()) return {};
  return Native::MakePicture(
      pixels_->image.scaled(width * ratio(), height * ratio(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation), width,
      height, ratio());
}

Picture Picture::Part(const Rect& part) const {
  const Rect inside = Intersection(part, {0, 0, width(), height()});
  if (inside.width == 0 || inside.height == 0) return {};
  return Native::MakePicture(pixels_->image.copy(ToQt(inside, ratio())), inside.width, inside.height, ratio());
}

Colour Picture::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width() || y >= height()) return {};
  return FromQt(pixels_->image.pixel(x * ratio(), y * ratio()));
}

int Picture::CountColours() const {
  std::set<QRgb> colours;
  const QImage& image = Native::Image(*this);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
  }
  return static_cast<int>(colours.size());
}

bool operator==(const Picture& a, const Picture& b) { return Native::Image(a) == Native::Image(b); }

void Picture::SavePng(const std::string& file) const {
  if (!Native::Image(*this).save(QString::fromStdString(file), "PNG")) throw Fault("cannot write the picture", file);
}

struct Surface::Pixels {
  QImage image;
  int width = 0;
  int height = 0;
  int ratio = 1;
};

Surface::Surface() : pixels_(std::make_unique<Pixels>()) {}
Surface::~Surface() = default;

const QImage& Native::Image(const Surface& surface) { return surface.pixels_->image; }

int Surface::width() const { return pixels_->width; }
int Surface::height() const { return pixels_->height; }
int Surface::ratio() const { return pixels_->ratio; }

void Surface::Reset(int width, int height, int ratio, Colour colour) {
  const QSize size(width * ratio, height * ratio);
  if (pixels_->image.size() != size) pixels_->image = QImage(size, QImage::Format_RGB32);
  pixels_->width = width;
  pixels_->height = height;
  pixels_->ratio = ratio;
  Fill({0, 0, width, height}, colour);
}

void Surface::Fill(const Rect& area, Colour colour) {
  const Rect inside = Intersection(area, {0, 0, width(), height()});
  if (inside.width == 0 || inside.height == 0) return;
  QPainter painter(&pixels_->image);
  painter.fillRect(ToQt(inside, ratio()), platform::ToQt(colour));
  painter.end();
  if (on_change) on_change(inside);
}

void Surface::Copy(const Picture& picture, int x, int y) {
  CopyPart(picture, {0, 0, picture.width(), picture.height()}, x, y);
}

void Surface::CopyPart(const Picture& picture, const Rect& source, int x, int y) {
  const Rect part = Intersection(source, {0, 0, picture.width(), picture.height()});
  x += part.left - source.left;
  y += part.top - source.top;
  if (picture.ratio() != ratio()) {
    CopyScaled(picture.Part(part), {x, y, part.width, part.height});
    return;
  }
  const Rect target = Intersection({x, y, part.width, part.height}, {0, 0, width(), height()});
  if (target.width == 0 || target.height == 0) return;
  const Rect from{part.left + target.left - x, part.top + target.top - y, target.width, target.height};
  const QRect to = ToQt(target, ratio());
  if (picture.opaque()) {
    CopyRows(Native::Image(picture), ToQt(from, ratio()), pixels_->image, to.topLeft());
  } else {
    QPainter painter(&pixels_->image);
    painter.drawImage(to.topLeft(), Native::Image(picture), ToQt(from, ratio()));
  }
  if (on_change) on_change(target);
}

void Surface::CopyScaled(const Picture& picture, const Rect& target) {
  if (picture.width() == target.width && picture.height() == target.height && picture.ratio() == ratio()) {
    Copy(picture, target.left, target.top);
    return;
  }
  const Rect inside = Intersection(target, {0, 0, width(), height()});
  if (picture.empty() || inside.width == 0 || inside.height == 0) return;
  QPainter painter(&pixels_->image);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(ToQt(target, ratio()), Native::Image(picture));
  painter.end();
  if (on_change) on_change(inside);
}

Colour Surface::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width() || y >= height()) return {};
  return FromQt(pixels_->image.pixel(x * ratio(), y * ratio()));
}

Picture Surface::Snapshot() const { return Native::MakePicture(pixels_->image.copy(), width(), height(), ratio()); }

}  // namespace platform

#include "platform/window_shape.h"

#include <QRegion>
#include <QWidget>

#include "platform/form.h"
#include "platform/native.h"

namespace platform {

void SetWindowShape(Form& form, const WindowShape& shape) {
  QRegion region;
  for (const WindowShape::Figure& figure : shape.figures()) {
    const auto& [left, top, width, height] = figure.area;
    region += QRegion(left, top, width, height, figure.oval ? QRegion::Ellipse : QRegion::Rectangle);
  }
  Native::Widget(form)->setMask(region);
}

void ClearWindowShape(Form& form) { Native::Widget(form)->clearMask(); }

bool InWindow(const Form& form, int x, int y) {
  const QWidget* window = Native::Widget(form);
  const QRegion shape = window->mask();
  return shape.isEmpty() ? window->rect().contains(x, y) : shape.contains(QPoint(x, y));
}

}  // namespace platform

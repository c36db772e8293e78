#pragma once

#include <vector>

#include "platform/picture.h"

namespace platform {

class Form;

/// A union of rectangles and ellipses, in logical pixels from the form's upper left corner.
class WindowShape {
 public:
  void AddRectangle(const Rect& area) { figures_.push_back({area, false}); }
  /// The ellipse that fills the area.
  void AddEllipse(const Rect& area) { figures_.push_back({area, true}); }

  struct Figure {
    Rect area;
    bool oval = false;
  };
  const std::vector<Figure>& figures() const { return figures_; }

 private:
  std::vector<Figure> figures_;
};

/// Cuts a form's window to a shape: what is outside is neither shown nor clicked. For forms with Border::kNone, and
/// only where the desktop can do so; elsewhere the window stays the rectangle that it is. A later call replaces the
/// shape.
void SetWindowShape(Form& form, const WindowShape& shape);

/// The window is its whole rectangle again.
void ClearWindowShape(Form& form);

/// True when a point of a form is within its window.
bool InWindow(const Form& form, int x, int y);

}  // namespace platform

#pragma once

#include <functional>
#include <string>

#include "platform/control.h"
#include "platform/picture.h"

class QPainter;

namespace platform {

/// Where a text stands in its width.
enum class Alignment { kLeft, kCentre, kRight };

/// A control with a text on it; CR LF or LF in the text breaks the line.
class Captioned : public Control {
 public:
  const std::string& caption() const { return caption_; }
  void set_caption(const std::string& caption);
  /// Width of the caption's longest line in the control's font: for layouts that follow the texts.
  int text_width() const;

 protected:
  using Control::Control;

 private:
  std::string caption_;
};

/// A text. Without a back colour it is transparent.
class Label : public Captioned {
 public:
  explicit Label(Container* parent, const std::string& caption = {});

  void set_alignment(Alignment alignment);
  /// The text stands in the middle of the height instead of at the top.
  void set_middle(bool middle);
  /// Breaks lines at the label's width. A text that has no room all the same ends in an ellipsis.
  void set_word_wrap(bool wrap);
  bool word_wrap() const { return word_wrap_; }
  /// The label takes the size of its caption; with word wrap its height only, at the width that it has then.
  void set_auto_size(bool auto_size);
  /// Height that the caption needs at the present width.
  int text_height() const;

 protected:
  void AppearanceChanged() override;

 private:
  void Paint(QPainter& painter) const;

  Alignment alignment_ = Alignment::kLeft;
  bool middle_ = false;
  bool word_wrap_ = false;
  bool auto_size_ = false;
};

/// A picture. It takes the picture's size, unless it stretches the picture to its own.
class Image : public Control {
 public:
  explicit Image(Container* parent, const Picture& picture = {});

  const Picture& picture() const { return picture_; }
  void set_picture(const Picture& picture);
  void set_stretch(bool stretch);

 private:
  void Paint(QPainter& painter) const;

  Picture picture_;
  bool stretch_ = false;
};

enum class ShapeKind { kRectangle, kRounded, kOval };

/// A figure that fills its bounds, with the back colour inside and the fore colour as its line. Clicks go through it.
class Shape : public Control {
 public:
  explicit Shape(Container* parent, ShapeKind kind = ShapeKind::kRectangle);

  /// Width of the line, 0 for none.
  void set_line_width(int pixels);
  /// Radius of a rounded figure's corners.
  void set_corner(int pixels);

 private:
  void Paint(QPainter& painter) const;

  ShapeKind kind_;
  int line_width_ = 1;
  int corner_ = 8;
};

/// A container without a look of its own, or with the border and ground of a panel.
class Frame : public Container {
 public:
  explicit Frame(Container* parent);

  void set_border(bool border);

 private:
  void Paint(QPainter& painter) const;

  bool border_ = false;
};

/// A container with a surface on it. Give the surface a size and paint on it; the box shows it from its upper left
/// corner and repaints only what has changed. To scroll a large surface, put a box of the surface's size inside a
/// smaller container and move it: that paints nothing on the surface.
class PictureBox : public Container {
 public:
  explicit PictureBox(Container* parent);

  Surface& surface() { return surface_; }

 private:
  void Paint(QPainter& painter) const;

  Surface surface_;
};

/// A push button. It reports on_click for the mouse, Space, and Enter.
class Button : public Captioned {
 public:
  explicit Button(Container* parent, const std::string& caption = {});

  void set_picture(const Picture& picture);
  /// Does what a click does.
  void Click();

 protected:
  void AppearanceChanged() override;
  bool handles_mouse() const override { return true; }
  bool takes_enter() const override { return true; }
};

/// A check box. on_click follows a change by the user.
class CheckBox : public Captioned {
 public:
  explicit CheckBox(Container* parent, const std::string& caption = {});

  /// 1 when checked, else 0.
  int value() const;
  void set_value(int value);

 protected:
  void AppearanceChanged() override;
  bool handles_mouse() const override { return true; }
};

enum class Orientation { kHorizontal, kVertical };

/// A scroll bar. Its value stays within min and max; a max below min counts as min.
class ScrollBar : public Control {
 public:
  ScrollBar(Container* parent, Orientation orientation);

  int min() const;
  int max() const;
  int value() const;
  void set_min(int min);
  void set_max(int max);
  void set_value(int value);
  /// Steps of the arrows and of a click beside the grip, 1 unless set. The grip is as long as the large step's share.
  void set_small_change(int step);
  void set_large_change(int step);

  /// Called after each change of the value, by the user (while the grip is dragged, too) or by set_value.
  std::function<void()> on_change;

 protected:
  bool handles_mouse() const override { return true; }
};

}  // namespace platform

#pragma once

#include <vector>

#include "platform/control.h"
#include "platform/controls.h"

/// A row of labels along the top of a form that are clicked for a menu or a window. By keyboard: F10, or Alt with the
/// first letter of a caption, goes there; the arrows step, and Space, Enter and the arrow down click.
class MenuBar {
 public:
  static constexpr int kHeight = 34;  // logical pixels

  /// The labels from left to right. Their on_click says what they do.
  explicit MenuBar(std::vector<platform::Label*> labels);

  /// Places the labels after their captions have changed.
  void Place();
  /// True when the key was one of the bar's. Keys come here before anybody else looks at them.
  bool KeyDown(const platform::KeyEvent& event);

 private:
  int Focused() const;

  std::vector<platform::Label*> labels_;
};

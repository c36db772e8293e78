#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/picture.h"

class QEventLoop;

namespace platform {

class Button;

enum class WindowState { kNormal = 0, kMinimised = 1, kMaximised = 2 };

/// The border decides what the user can do with a window: a dialog of fixed size, one that can be sized and maximised,
/// or a bare area without a title.
enum class Border { kFixed, kSizable, kNone };

/// A window. Width and height are those of its inside. A form is hidden until it is shown and lives on when it is
/// closed: closing it hides it. Forms are made after the Application and destroyed before it.
class Form : public Container {
 public:
  explicit Form(Border border = Border::kFixed, int width = 320, int height = 240);
  ~Form() override;

  /// All forms that exist, oldest first.
  static const std::vector<Form*>& All();

  /// The title, in the application's default charset.
  const std::string& caption() const { return caption_; }
  void set_caption(const std::string& caption);
  void set_icon(const Picture& picture);

  void Resize(int width, int height) override;
  /// The smallest size that the user can give a sizable form.
  void set_min_size(int width, int height);
  WindowState window_state() const;
  /// Also kept for a form that is hidden.
  void set_window_state(WindowState state);

  void Show() { set_visible(true); }
  void Hide() { set_visible(false); }
  void set_visible(bool visible) override;
  /// Shows the form above all others, which take no input meanwhile, and returns once it is hidden. Timers run on.
  void ShowModal();
  /// Shows the form and returns once it is painted, without taking input: for what stands in front during long work.
  void ShowNow();
  /// What the close button of the window does: asks on_close_query and hides the form.
  void Close();

  /// Every key goes to the key state and to on_key_down and to no control: arrows and Tab do not move the focus, Space
  /// and Enter press no button.
  void set_keys_go_to_game(bool on) { keys_go_to_game_ = on; }
  /// The button that Enter presses, unless the control with the focus needs Enter itself (another button, a text box of
  /// many lines), and the one that Escape presses; a hidden one is pressed by neither. The form forgets neither button:
  /// they have to live as long as it does.
  void set_default_button(Button* button);
  void set_cancel_button(Button* button) { cancel_button_ = button; }

  /// Asked before the form is closed by its system button or by Close; false keeps it open.
  std::function<bool()> on_close_query;
  /// After the size or the window state has changed.
  std::function<void()> on_resize;
  /// Before any control gets the key.
  std::function<void(KeyEvent&)> on_key_down;

 private:
  friend struct Native;
  friend class FormWindow;

  /// True when the key has been dealt with.
  bool HandleKey(KeyEvent event, bool down);

  std::string caption_;
  Border border_;
  bool keys_go_to_game_ = false;
  bool placed_ = false;
  Button* default_button_ = nullptr;
  Button* cancel_button_ = nullptr;
  QEventLoop* modal_loop_ = nullptr;
};

}  // namespace platform

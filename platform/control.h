#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "platform/colour.h"

class QWidget;

namespace platform {

/// Bits of a mouse button mask.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;

/// Bits of a shift state.
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;

/// What the mouse did over a control. x and y are logical pixels from the control's upper left corner; while a button
/// is held they go on outside of the control, negative ones too.
struct MouseEvent {
  int button = 0;  // pressed or released: the one button concerned; moved: the mask of all buttons held
  int shift = 0;   // kShift, kCtrl, kAlt
  int x = 0;
  int y = 0;
};

/// The mouse wheel over a control.
struct WheelEvent {
  int steps = 0;  // notches; above 0 away from the user, which is up
  int shift = 0;  // kShift, kCtrl, kAlt
};

/// A key that went down, also by auto-repeat.
struct KeyEvent {
  int code = 0;           // virtual-key code
  int shift = 0;          // kShift, kCtrl, kAlt
  bool repeated = false;  // by auto-repeat
  bool handled = false;   // set by the handler: nobody else gets this key
};

/// Which code page the text of a control is in, by the number of its character set.
enum class Charset { kCentralEuropean = 238, kCyrillic = 204 };
Charset CharsetOf(CodePage page);

/// A font; the size is the height in logical pixels, 0 for the theme's.
struct Font {
  int size = 0;
  bool bold = false;
  bool italic = false;
  bool underline = false;

  friend bool operator==(const Font&, const Font&) = default;
};

/// The pointer's shape over a control.
enum class Pointer { kArrow, kHand };

class Container;

/// What every control has. All texts are single-byte text in the code page of the control's charset; all measures are
/// logical pixels, positions count from the container's upper left corner. A control is made inside its container and
/// shown at once; its container has to outlive it, so declare it behind its container.
class Control {
 public:
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  int left() const;
  int top() const;
  int width() const;
  int height() const;
  void set_left(int left) { MoveTo(left, top()); }
  void set_top(int top) { MoveTo(left(), top); }
  void set_width(int width) { Resize(width, height()); }
  void set_height(int height) { Resize(width(), height); }
  void MoveTo(int left, int top);
  virtual void Resize(int width, int height);
  void SetBounds(int left, int top, int width, int height);

  /// The control's own flag: it is on the screen when its containers are visible, too.
  bool visible() const;
  virtual void set_visible(bool visible);
  bool enabled() const;
  void set_enabled(bool enabled);

  /// Colours of text and ground; without one of its own a control takes the theme's. Labels, frames and shapes without
  /// a back colour are transparent.
  std::optional<Colour> fore_colour() const { return fore_colour_; }
  void set_fore_colour(std::optional<Colour> colour);
  std::optional<Colour> back_colour() const { return back_colour_; }
  void set_back_colour(std::optional<Colour> colour);

  const Font& font() const { return font_; }
  void set_font(const Font& font);
  Charset charset() const { return charset_; }
  void set_charset(Charset charset);

  /// In the application's default charset, as is the accessible name.
  void set_tool_tip(const std::string& text);
  const std::string& tool_tip() const { return tool_tip_; }
  /// What a screen reader says; without one it says the caption.
  void set_accessible_name(const std::string& name);
  void set_pointer(Pointer pointer);

  /// In front of or behind all its siblings. Siblings made later stand in front of earlier ones.
  void BringToFront();
  void SendToBack();
  /// Paints at once what has changed, without waiting for the event loop.
  void Refresh();
  void SetFocus();
  bool has_focus() const;
  /// Whether Tab stops here. Buttons, bars, lists and text boxes do so from the beginning. A painted control with a tab
  /// stop (a label as a link, a picture as a button) shows the focus, and Space and Enter click it.
  void set_tab_stop(bool on);
  /// Tab comes here from that control. Without it Tab goes through the controls in the order in which they were made.
  void set_tab_after(const Control& previous);

  /// Handlers; an absent one costs nothing. A click is a left button pressed and let go over the control, or a button
  /// pressed by keyboard. The second press of a double click is a press like any other, and without a handler for
  /// double clicks a click as well.
  std::function<void(const MouseEvent&)> on_mouse_down;
  std::function<void(const MouseEvent&)> on_mouse_move;
  std::function<void(const MouseEvent&)> on_mouse_up;
  std::function<void()> on_click;
  std::function<void()> on_double_click;
  /// The wheel over the control, or over one inside that does nothing with it.
  std::function<void(const WheelEvent&)> on_wheel;
  std::function<void()> on_got_focus;
  std::function<void()> on_lost_focus;

 protected:
  /// Takes the widget over. parent is null for a form.
  Control(Container* parent, QWidget* widget);

  QWidget* widget() const { return widget_; }
  const std::string& accessible_name() const { return accessible_name_; }
  /// Called after a change of font, charset or colours: take them over and paint anew.
  virtual void AppearanceChanged();
  /// True when Qt's widget does something with the mouse and keys by itself and reports clicks and double clicks, if it
  /// has any.
  virtual bool handles_mouse() const { return false; }
  /// True when Enter, with the focus here, is for this control and not for the form's default button.
  virtual bool takes_enter() const;

 private:
  friend struct Native;
  friend class EventTap;

  QWidget* widget_;
  Container* parent_;
  std::optional<Colour> fore_colour_;
  std::optional<Colour> back_colour_;
  Font font_;
  Charset charset_;
  std::string tool_tip_;
  std::string accessible_name_;
};

/// A control that holds others and clips them to its area.
class Container : public Control {
 public:
  /// The controls directly inside, oldest first.
  const std::vector<Control*>& controls() const { return controls_; }

 protected:
  using Control::Control;

 private:
  friend class Control;
  std::vector<Control*> controls_;
};

/// Calls visit for every control inside the container, at any depth. visit makes and destroys none.
void ForEachControl(const Container& container, const std::function<void(Control&)>& visit);

}  // namespace platform

#include "platform/control.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <QVariant>
#include <algorithm>

#include "platform/application.h"
#include "platform/key_state.h"
#include "platform/keys.h"
#include "platform/native.h"

namespace platform {

namespace {

constexpr char kControlProperty[] = "control";  // of a widget: the control that owns it

/// Where the mouse of a widget arrives: a widget that scrolls gets it by its area inside.
QWidget* MouseTarget(QWidget* widget) {
  auto* area = qobject_cast<QAbstractScrollArea*>(widget);
  return area ? area->viewport() : widget;
}

}  // namespace

Control* Native::ControlOf(const QWidget* widget) {
  return widget ? static_cast<Control*>(widget->property(kControlProperty).value<void*>()) : nullptr;
}

void Native::FocusMoved(const QWidget* from, const QWidget* to) {
  const Control* left = ControlOf(from);
  if (left && left->on_lost_focus) left->on_lost_focus();
  // Looked up only now: the first handler may have destroyed the control.
  if (QApplication::focusWidget() != to) return;
  const Control* entered = ControlOf(to);
  if (entered && entered->on_got_focus) entered->on_got_focus();
}

/// Turns Qt's events of one widget into calls of the control's handlers.
class EventTap : public QObject {
 public:
  /// A painted control that the focus can reach: keys click it.
  static bool ClicksByKey(const Control& control) {
    return !control.handles_mouse() && control.on_click && control.widget_->focusPolicy() != Qt::NoFocus;
  }

  EventTap(QWidget* target, Control* control) : QObject(target), control_(control) { target->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    // Qt asks here first and only then whether the widget is enabled.
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    if (mouse && !control_->widget_->isEnabled()) return false;
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        return Press(static_cast<QMouseEvent&>(*event));
      case QEvent::MouseMove:
        return Move(static_cast<QMouseEvent&>(*event));
      case QEvent::MouseButtonRelease:
        return Release(static_cast<QMouseEvent&>(*event));
      case QEvent::Wheel:
        return Wheel(static_cast<QWheelEvent&>(*event));
      case QEvent::KeyPress:
        return watched == control_->widget_ && Key(static_cast<QKeyEvent&>(*event));
      default:
        return false;
    }
  }

 private:
  MouseEvent Describe(const QMouseEvent& event, int button) const {
    const auto* target = static_cast<const QWidget*>(parent());
    const QPoint origin = target == control_->widget_ ? QPoint() : target->pos();
    // The whole part, as a control counts its pixels; rounding would put the last half pixel outside.
    return {button, ShiftMask(event.modifiers()), origin.x() + qFloor(event.position().x()),
            origin.y() + qFloor(event.position().y())};
  }

  bool Press(const QMouseEvent& event) {
    const bool second = event.type() == QEvent::MouseButtonDblClick;
    doubled_ = second && event.button() == Qt::LeftButton && !control_->handles_mouse() && control_->on_double_click;
    if (control_->on_mouse_down) control_->on_mouse_down(Describe(event, ButtonMask(event.button())));
    if (doubled_) control_->on_double_click();
    return !control_->handles_mouse();
  }

  bool Move(const QMouseEvent& event) {
    if (control_->on_mouse_move) control_->on_mouse_move(Describe(event, ButtonMask(event.buttons())));
    return !control_->handles_mouse();
  }

  bool Release(const QMouseEvent& event) {
    const MouseEvent mouse = Describe(event, ButtonMask(event.button()));
    const bool click = event.button() == Qt::LeftButton && !doubled_ && !control_->handles_mouse() &&
                       control_->widget_->rect().contains(mouse.x, mouse.y);
    doubled_ = false;
    if (control_->on_mouse_up) control_->on_mouse_up(mouse);
    if (click && control_->on_click) control_->on_click();
    return !control_->handles_mouse();
  }

  bool Wheel(const QWheelEvent& event) {
    if (!control_->on_wheel) return false;
    constexpr int kNotch = 120;  // fine wheels give less at a time
    turned_ += event.angleDelta().y();
    const int steps = turned_ / kNotch;
    turned_ -= steps * kNotch;
    if (steps != 0) control_->on_wheel({steps, ShiftMask(event.modifiers())});
    return true;
  }

  bool Key(const QKeyEvent& event) {
    const int code = VirtualKey(event);
    const bool clicks = ClicksByKey(*control_) && control_->has_focus() && (code == kKeySpace || code == kKeyEnter);
    if (clicks && !event.isAutoRepeat()) control_->on_click();
    return clicks;
  }

  Control* control_;
  bool doubled_ = false;
  int turned_ = 0;  // of the wheel, less than a notch
};

Control::Control(Container* parent, QWidget* widget)
    : widget_(widget), parent_(parent), charset_(Application::default_charset()) {
  if (parent_) {
    parent_->controls_.push_back(this);
    widget_->setParent(parent_->widget_);
  }
  QWidget* target = MouseTarget(widget_);
  target->setMouseTracking(true);
  widget_->setFont(ToQt(font_));
  widget_->setProperty(kControlProperty, QVariant::fromValue<void*>(this));
  new EventTap(target, this);
  QObject::connect(widget_, &QObject::destroyed, [this] { widget_ = nullptr; });
  if (parent_) widget_->show();
}

Control::~Control() {
  if (!widget_) return;
  if (parent_) std::erase(parent_->controls_, this);
  widget_->disconnect();
  widget_->setProperty(kControlProperty, {});  // while it goes it still loses the focus
  // Without the application, at the very end of the program, Qt has taken the windows down already.
  if (QApplication::instance()) delete widget_;
}

int Control::left() const { return widget_->x(); }
int Control::top() const { return widget_->y(); }
int Control::width() const { return widget_->width(); }
int Control::height() const { return widget_->height(); }

void Control::MoveTo(int left, int top) { widget_->move(left, top); }

void Control::Resize(int width, int height) { widget_->resize(width, height); }

void Control::SetBounds(int left, int top, int width, int height) {
  MoveTo(left, top);
  Resize(width, height);
}

bool Control::visible() const { return !widget_->isHidden(); }

void Control::set_visible(bool visible) { widget_->setVisible(visible); }

bool Control::enabled() const { return widget_->isEnabledTo(widget_->parentWidget()); }

void Control::set_enabled(bool enabled) { widget_->setEnabled(enabled); }

void Control::set_fore_colour(std::optional<Colour> colour) {
  if (colour == fore_colour_) return;
  fore_colour_ = colour;
  AppearanceChanged();
}

void Control::set_back_colour(std::optional<Colour> colour) {
  if (colour == back_colour_) return;
  back_colour_ = colour;
  AppearanceChanged();
}

void Control::set_font(const Font& font) {
  if (font == font_) return;
  font_ = font;
  widget_->setFont(ToQt(font_));
  AppearanceChanged();
}

void Control::set_charset(Charset charset) {
  if (charset == charset_) return;
  charset_ = charset;
  AppearanceChanged();
}

void Control::set_tool_tip(const std::string& text) {
  tool_tip_ = text;
  const QString glyphs = ToGlyphs(text, Application::default_charset());
  // As plain text, whatever it looks like.
  widget_->setToolTip(glyphs.isEmpty() ? QString() : "<span>" + glyphs.toHtmlEscaped() + "</span>");
}

void Control::set_accessible_name(const std::string& name) {
  accessible_name_ = name;
  widget_->setAccessibleName(ToGlyphs(name, Application::default_charset()));
}

void Control::set_pointer(Pointer pointer) {
  widget_->setCursor(pointer == Pointer::kHand ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void Control::BringToFront() { widget_->raise(); }
void Control::SendToBack() { widget_->lower(); }
void Control::Refresh() { widget_->repaint(); }
void Control::SetFocus() {
  Native::FocusChosen(widget_->window());
  widget_->setFocus();
}
bool Control::has_focus() const { return widget_->hasFocus(); }

void Control::set_tab_stop(bool on) {
  // A click moves the focus only to where keys do more than click.
  widget_->setFocusPolicy(!on ? Qt::NoFocus : handles_mouse() ? Qt::StrongFocus : Qt::TabFocus);
}

void Control::set_tab_after(const Control& previous) { QWidget::setTabOrder(previous.widget_, widget_); }

bool Control::takes_enter() const { return EventTap::ClicksByKey(*this); }

void Control::AppearanceChanged() { widget_->update(); }

void ForEachControl(const Container& container, const std::function<void(Control&)>& visit) {
  for (Control* control : container.controls()) {
    visit(*control);
    if (const auto* inner = dynamic_cast<const Container*>(control)) ForEachControl(*inner, visit);
  }
}

}  // namespace platform

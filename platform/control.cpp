#include "platform/control.h"

#include <QApplication>
#include <QMouseEvent>
#include <algorithm>

#include "platform/application.h"
#include "platform/native.h"

namespace platform {

/// Turns Qt's events of one widget into calls of the control's handlers.
class MouseTap : public QObject {
 public:
  MouseTap(QWidget* widget, Control* control) : QObject(widget), control_(control) { widget->installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        return Press(static_cast<QMouseEvent&>(*event));
      case QEvent::MouseMove:
        return Move(static_cast<QMouseEvent&>(*event));
      case QEvent::MouseButtonRelease:
        return Release(static_cast<QMouseEvent&>(*event));
      case QEvent::FocusIn:
        if (control_->on_got_focus) control_->on_got_focus();
        return false;
      case QEvent::FocusOut:
        if (control_->on_lost_focus) control_->on_lost_focus();
        return false;
      default:
        return false;
    }
  }

 private:
  static MouseEvent Describe(const QMouseEvent& event, int button) {
    // The whole part, as a control counts its pixels; rounding would put the last half pixel outside.
    return {button, ShiftMask(event.modifiers()), qFloor(event.position().x()), qFloor(event.position().y())};
  }

  bool Press(const QMouseEvent& event) {
    const bool second = event.type() == QEvent::MouseButtonDblClick;
    doubled_ = second && event.button() == Qt::LeftButton && control_->on_double_click;
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

  Control* control_;
  bool doubled_ = false;
};

Control::Control(Container* parent, QWidget* widget)
    : widget_(widget), parent_(parent), charset_(Application::default_charset()) {
  if (parent_) {
    parent_->controls_.push_back(this);
    widget_->setParent(parent_->widget_);
  }
  widget_->setMouseTracking(true);
  widget_->setFont(ToQt(font_));
  new MouseTap(widget_, this);
  QObject::connect(widget_, &QObject::destroyed, [this] { widget_ = nullptr; });
  if (parent_) widget_->show();
}

Control::~Control() {
  if (!widget_) return;
  if (parent_) std::erase(parent_->controls_, this);
  widget_->disconnect();
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
void Control::SetFocus() { widget_->setFocus(); }
bool Control::has_focus() const { return widget_->hasFocus(); }

void Control::AppearanceChanged() { widget_->update(); }

void ForEachControl(const Container& container, const std::function<void(Control&)>& visit) {
  for (Control* control : container.controls()) {
    visit(*control);
    if (const auto* inner = dynamic_cast<const Container*>(control)) ForEachControl(*inner, visit);
  }
}

}  // namespace platform

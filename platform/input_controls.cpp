// Controls that Qt's own widgets carry out: buttons, check boxes, scroll bars.

#include <QApplication>
#include <QCheckBox>
#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>

#include "platform/application.h"
#include "platform/controls.h"
#include "platform/native.h"

namespace platform {

namespace {

/// Takes over caption and colours into a button of any kind.
void Dress(const Captioned& control, QAbstractButton& button) {
  button.setText(ToPlainCaption(control.caption(), control.charset()));
  const Theme& theme = Application::theme();
  QPalette palette = QApplication::palette(&button);
  if (control.back_colour()) palette.setColor(QPalette::Button, ToQt(*control.back_colour()));
  for (const QPalette::ColorRole role : {QPalette::ButtonText, QPalette::WindowText}) {
    palette.setColor(role, ToQt(control.fore_colour().value_or(theme.text)));
    palette.setColor(QPalette::Disabled, role, ToQt(theme.muted_text));
  }
  button.setPalette(palette);
}

/// Qt's own bar goes to the left on the right arrow: it takes that for the wheel.
class ArrowBar : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool sideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (orientation() == Qt::Horizontal && sideways) {
      triggerAction(event->key() == Qt::Key_Right ? SliderSingleStepAdd : SliderSingleStepSub);
    } else {
      QScrollBar::keyPressEvent(event);
    }
  }
};

}  // namespace

Button::Button(Container* parent, const std::string& caption) : Captioned(parent, new QPushButton) {
  auto* button = static_cast<QPushButton*>(widget());
  button->setAutoDefault(true);
  QObject::connect(button, &QPushButton::clicked, [this] {
    if (on_click) on_click();
  });
  Resize(120, 32);
  set_caption(caption);
}

void Button::set_picture(const Picture& picture) {
  auto* button = static_cast<QPushButton*>(widget());
  QPixmap pixmap = QPixmap::fromImage(Native::Image(picture));
  pixmap.setDevicePixelRatio(picture.ratio());
  button->setIcon(QIcon(pixmap));
  button->setIconSize(QSize(picture.width(), picture.height()));
}

void Button::Click() { static_cast<QPushButton*>(widget())->click(); }

void Button::AppearanceChanged() {
  Dress(*this, *static_cast<QPushButton*>(widget()));
  Control::AppearanceChanged();
}

CheckBox::CheckBox(Container* parent, const std::string& caption) : Captioned(parent, new QCheckBox) {
  QObject::connect(static_cast<QCheckBox*>(widget()), &QCheckBox::clicked, [this] {
    if (on_click) on_click();
  });
  Resize(200, 24);
  set_caption(caption);
}

int CheckBox::value() const { return static_cast<QCheckBox*>(widget())->isChecked() ? 1 : 0; }

void CheckBox::set_value(int value) { static_cast<QCheckBox*>(widget())->setChecked(value != 0); }

void CheckBox::AppearanceChanged() {
  Dress(*this, *static_cast<QCheckBox*>(widget()));
  Control::AppearanceChanged();
}

ScrollBar::ScrollBar(Container* parent, Orientation orientation)
    : Control(parent, new ArrowBar(orientation == Orientation::kHorizontal ? Qt::Horizontal : Qt::Vertical)) {
  auto* bar = static_cast<QScrollBar*>(widget());
  bar->setFocusPolicy(Qt::StrongFocus);
  bar->setRange(0, 100);
  bar->setPageStep(1);
  // Inverted, as Qt has it, the left arrow would move a bar to the right.
  bar->setInvertedControls(orientation == Orientation::kVertical);
  QObject::connect(bar, &QScrollBar::valueChanged, [this] {
    if (on_change) on_change();
  });
}

int ScrollBar::min() const { return static_cast<QScrollBar*>(widget())->minimum(); }
int ScrollBar::max() const { return static_cast<QScrollBar*>(widget())->maximum(); }
int ScrollBar::value() const { return static_cast<QScrollBar*>(widget())->value(); }
void ScrollBar::set_min(int min) { static_cast<QScrollBar*>(widget())->setMinimum(min); }
void ScrollBar::set_max(int max) { static_cast<QScrollBar*>(widget())->setMaximum(std::max(max, min())); }
void ScrollBar::set_value(int value) { static_cast<QScrollBar*>(widget())->setValue(value); }
void ScrollBar::set_small_change(int step) { static_cast<QScrollBar*>(widget())->setSingleStep(step); }
void ScrollBar::set_large_change(int step) { static_cast<QScrollBar*>(widget())->setPageStep(step); }

}  // namespace platform

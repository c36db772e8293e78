#include "platform/form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QIcon>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "platform/application.h"
#include "platform/controls.h"
#include "platform/keys.h"
#include "platform/native.h"
#include "platform/timer.h"

namespace platform {

namespace {

std::vector<Form*>& AllForms() {
  static std::vector<Form*> forms;
  return forms;
}

Qt::WindowFlags FlagsOf(Border border) {
  switch (border) {
    case Border::kSizable:
      return Qt::Window;
    case Border::kNone:
      return Qt::Window | Qt::FramelessWindowHint;
    case Border::kFixed:
      break;
  }
  return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
         Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
}

/// Ends the event loop once the program has no window any more through which anybody could end it.
void QuitWhenNothingShows() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  if (std::none_of(windows.begin(), windows.end(), [](const QWidget* window) { return window->isVisible(); })) {
    QCoreApplication::exit(0);
  }
}

}  // namespace

/// The window of a form.
class FormWindow : public Canvas {
 public:
  explicit FormWindow(Form* form) : form_(form) {}

  /// Of a hidden form: what has the focus when it is shown again. Qt itself forgets it when the desktop is late and
  /// activates the window just after it was hidden.
  QPointer<QWidget> kept_focus;

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->setAccepted(!form_->on_close_query || form_->on_close_query());
  }
  void hideEvent(QHideEvent* event) override {
    Canvas::hideEvent(event);
    if (event->spontaneous()) return;  // minimised
    if (form_->modal_loop_) form_->modal_loop_->quit();
    QMetaObject::invokeMethod(qApp, QuitWhenNothingShows, Qt::QueuedConnection);
  }
  void resizeEvent(QResizeEvent* event) override {
    Canvas::resizeEvent(event);
    if (form_->on_resize) form_->on_resize();
  }
  void changeEvent(QEvent* event) override {
    Canvas::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && form_->on_resize) form_->on_resize();
  }

 private:
  Form* form_;
};

QWidget* FrontWindow(const QWidget* except) {
  QWidget* active = QApplication::activeWindow();
  if (active && active != except && active->isVisible()) return active;
  for (auto form = AllForms().rbegin(); form != AllForms().rend(); ++form) {
    QWidget* window = Native::Widget(**form);
    if (window != except && window->isVisible()) return window;
  }
  return nullptr;
}

Form* Native::FormOf(const QObject* window) {
  for (Form* form : AllForms()) {
    if (Widget(*form)->windowHandle() == window) return form;
  }
  return nullptr;
}

void Native::FocusChosen(QWidget* window) {
  if (auto* form = dynamic_cast<FormWindow*>(window)) form->kept_focus = nullptr;
}

bool Native::HandleKey(Form& form, KeyEvent event, bool down) { return form.HandleKey(event, down); }

Form::Form(Border border, int width, int height) : Container(nullptr, new FormWindow(this)), border_(border) {
  auto* window = static_cast<FormWindow*>(widget());
  window->setWindowFlags(FlagsOf(border));
  window->setAttribute(Qt::WA_OpaquePaintEvent);
  window->paint = [this](QPainter& painter) {
    painter.fillRect(QRect(0, 0, this->width(), this->height()),
                     ToQt(back_colour().value_or(Application::theme().background)));
  };
  AllForms().push_back(this);
  Form::Resize(width, height);
}

Form::~Form() { std::erase(AllForms(), this); }

const std::vector<Form*>& Form::All() { return AllForms(); }

void Form::set_caption(const std::string& caption) {
  caption_ = caption;
  widget()->setWindowTitle(ToGlyphs(caption, Application::default_charset()));
}

void Form::set_icon(const Picture& picture) {
  widget()->setWindowIcon(QIcon(QPixmap::fromImage(Native::Image(picture))));
}

void Form::Resize(int width, int height) {
  if (border_ == Border::kSizable) {
    widget()->resize(width, height);
  } else {
    widget()->setFixedSize(width, height);
  }
}

void Form::set_min_size(int width, int height) { widget()->setMinimumSize(width, height); }

WindowState Form::window_state() const {
  if (widget()->isMinimized()) return WindowState::kMinimised;
  return widget()->isMaximized() ? WindowState::kMaximised : WindowState::kNormal;
}

void Form::set_window_state(WindowState state) {
  widget()->setWindowState(state == WindowState::kMaximised   ? Qt::WindowMaximized
                           : state == WindowState::kMinimised ? Qt::WindowMinimized
                                                              : Qt::WindowNoState);
}

void Form::set_visible(bool visible) {
  auto* window = static_cast<FormWindow*>(widget());
  if (!visible) {
    if (window->isVisible()) window->kept_focus = window->focusWidget();
    window->hide();
    return;
  }
  if (window->kept_focus) window->kept_focus->setFocus();
  window->kept_focus = nullptr;
  if (!placed_) {
    placed_ = true;
    const QWidget* front = FrontWindow(window);
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    const QRect around = front ? front->geometry() : screen;
    QRect place(QPoint(), window->size());
    place.moveCenter(around.center());
    constexpr int kTitleBar = 30;  // about what the desktop adds on top
    place.moveTop(std::min(place.top(), screen.bottom() + 1 - place.height() - kTitleBar));
    constexpr int kBorder = 1;  // and at either side
    place.moveLeft(std::min(place.left(), screen.right() + 1 - place.width() - kBorder));
    window->move(std::max(place.left(), 0), std::max(place.top(), 0));
  }
  if (window->isVisible()) window->raise();
  window->show();
  window->activateWindow();
}

void Form::ShowModal() {
  QWidget* window = widget();
  QWidget* owner = FrontWindow(window);
  window->hide();
  window->setWindowModality(Qt::ApplicationModal);
  if (owner) {
    window->winId();  // makes the window handle
    window->windowHandle()->setTransientParent(owner->window()->windowHandle());
  }
  Show();
  QEventLoop loop;
  modal_loop_ = &loop;
  if (visible()) loop.exec();
  modal_loop_ = nullptr;
  window->setWindowModality(Qt::NonModal);
  window->windowHandle()->setTransientParent(nullptr);
  if (owner && owner->isVisible()) owner->activateWindow();
}

void Form::ShowNow() {
  const TimerPause pause;
  placed_ = false;  // in front of whatever is in front now
  Show();
  QElapsedTimer waited;
  waited.start();
  constexpr int kLongestWait = 500;  // milliseconds, should the desktop never show the window
  do {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  } while (!widget()->windowHandle()->isExposed() && waited.elapsed() < kLongestWait);
  Refresh();
}

void Form::Close() { widget()->close(); }

void Form::set_default_button(Button* button) {
  for (Button* each : {default_button_, button}) {
    if (each) static_cast<QPushButton*>(Native::Widget(*each))->setDefault(each == button);
  }
  default_button_ = button;
}

bool Form::HandleKey(KeyEvent event, bool down) {
  const int code = event.code;
  if (down && on_key_down) {
    on_key_down(event);
    if (event.handled) return true;
  }
  if (keys_go_to_game_) return true;
  if (!down) return false;
  const Control* focus = Native::ControlOf(QApplication::focusWidget());
  const bool enter_is_taken = focus && Native::TakesEnter(*focus);
  Button* button = code == kKeyEscape                     ? cancel_button_
                   : code == kKeyEnter && !enter_is_taken ? default_button_
                                                          : nullptr;
  // A button that nobody sees is not there for the keyboard either.
  if (!button || !Native::Widget(*button)->isVisible()) return false;
  button->Click();
  return true;
}

}  // namespace platform

#include "platform/testing.h"

#include <sys/mman.h>
#include <unistd.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/key_state.h"
#include "platform/native.h"

namespace platform::user {

namespace {

Qt::KeyboardModifiers Modifiers(int shift) {
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, shift & kShift);
  modifiers.setFlag(Qt::ControlModifier, shift & kCtrl);
  modifiers.setFlag(Qt::AltModifier, shift & kAlt);
  return modifiers;
}

Qt::MouseButtons Buttons(int mask) {
  Qt::MouseButtons buttons;
  buttons.setFlag(Qt::LeftButton, mask & kLeftButton);
  buttons.setFlag(Qt::RightButton, mask & kRightButton);
  buttons.setFlag(Qt::MiddleButton, mask & kMiddleButton);
  return buttons;
}

Qt::MouseButton OneButton(int mask) {
  return mask == kLeftButton ? Qt::LeftButton : mask == kRightButton ? Qt::RightButton : Qt::MiddleButton;
}

void SendKey(QEvent::Type type, int code, int shift, bool auto_repeat) {
  // A press waits until a window has the input; the key that has closed one is let go over none.
  if (type == QEvent::KeyPress) WaitUntil([] { return QGuiApplication::focusWindow() != nullptr; });
  QWindow* window = QGuiApplication::focusWindow();
  if (!window) return;
  const QtKey key = QtKeyOf(code);
  const QString text = key.key == Qt::Key_Space ? " " : QString();
  qt_handleKeyEvent(window, type, key.key, key.modifiers | Modifiers(shift), text, auto_repeat);
  QCoreApplication::processEvents();
}

void SendMouse(const QWidget& widget, QEvent::Type type, const QPoint& place, Qt::MouseButton button,
               Qt::MouseButtons held, int shift = 0) {
  const QWidget* window = widget.window();
  const QPoint inside = widget.mapTo(window, place);
  // Far enough apart that two clicks become a double click only when they are meant to.
  static int time = 0;
  time += type == QEvent::MouseButtonPress ? 1000 : 1;
  qt_handleMouseEvent(window->windowHandle(), inside, window->mapToGlobal(inside), held, button,
                      type == QEvent::MouseButtonDblClick ? QEvent::MouseButtonPress : type, Modifiers(shift), time);
  QCoreApplication::processEvents();
}

void SendMouse(const Control& control, QEvent::Type type, int x, int y, Qt::MouseButton button, Qt::MouseButtons held,
               int shift = 0) {
  SendMouse(*Native::Widget(control), type, QPoint(x, y), button, held, shift);
}

/// The innermost open menu or null.
QMenu* OpenMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

/// What an item shows, without its shortcut.
QString CaptionOf(const QAction& action) { return action.text().section(u'\t', 0, 0).replace("&&", "&"); }

void ActOnceInFront(const QPointer<QWidget>& before, std::function<void()> action) {
  QWidget* front = QApplication::activeModalWidget();
  if (front && front != before) {
    if (front->windowHandle() == QGuiApplication::focusWindow()) {
      action();
      return;
    }
    front->activateWindow();  // as a desktop does when the box above has gone
  }
  Later(5, [before, action = std::move(action)]() mutable { ActOnceInFront(before, std::move(action)); });
}

}  // namespace

void UseOffscreen(int width, int height) {
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
  const QByteArray scale = qgetenv("QT_SCALE_FACTOR");
  const int ratio = std::max(scale.toInt(), 1);
  const QJsonObject screen{{"name", "offscreen"},
                           {"x", 0},
                           {"y", 0},
                           {"width", width * ratio},
                           {"height", height * ratio},
                           {"logicalDpi", 96},
                           {"logicalBaseDpi", 96},
                           {"dpr", 1}};
  const QByteArray text = QJsonDocument(QJsonObject{{"screens", QJsonArray{screen}}}).toJson();
  // The platform reads its screens from a file. One in memory leaves nothing behind, however the program ends.
  const int file = memfd_create("screens", 0);
  if (file < 0 || write(file, text.data(), static_cast<std::size_t>(text.size())) != text.size()) {
    qFatal("cannot describe the offscreen screen");
  }
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=/proc/self/fd/" + QByteArray::number(file));
}

void PressKey(int code, int shift, bool auto_repeat) { SendKey(QEvent::KeyPress, code, shift, auto_repeat); }
void ReleaseKey(int code, int shift, bool auto_repeat) { SendKey(QEvent::KeyRelease, code, shift, auto_repeat); }
void TapKey(int code, int shift) {
  PressKey(code, shift);
  ReleaseKey(code, shift);
}

void Type(const std::string& utf8) {
  const QString text = QString::fromStdString(utf8);
  for (const char32_t code : text.toUcs4()) {
    QWindow* window = QGuiApplication::focusWindow();
    if (!window) return;
    const QString character = QString::fromUcs4(&code, 1);
    const int key = code < 128 ? character.toUpper()[0].unicode() : int{Qt::Key_unknown};
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      qt_handleKeyEvent(window, type, key, Qt::NoModifier, character, false);
    }
    QCoreApplication::processEvents();
  }
}

void SetClipboard(const std::string& utf8) { QApplication::clipboard()->setText(QString::fromStdString(utf8)); }
void EmptyClipboard() { QApplication::clipboard()->setMimeData(new QMimeData); }
std::string Clipboard() { return QApplication::clipboard()->text().toStdString(); }

void PressMouse(const Control& control, int x, int y, int button, int shift) {
  SendMouse(control, QEvent::MouseButtonPress, x, y, OneButton(button), Buttons(button), shift);
}
void ReleaseMouse(const Control& control, int x, int y, int button, int shift) {
  SendMouse(control, QEvent::MouseButtonRelease, x, y, OneButton(button), Qt::NoButton, shift);
}
void MoveMouse(const Control& control, int x, int y, int held) {
  SendMouse(control, QEvent::MouseMove, x, y, Qt::NoButton, Buttons(held));
}
void Click(const Control& control, int x, int y, int button) {
  PressMouse(control, x, y, button);
  ReleaseMouse(control, x, y, button);
}
void DoubleClick(const Control& control, int x, int y) {
  Click(control, x, y);
  SendMouse(control, QEvent::MouseButtonDblClick, x, y, Qt::LeftButton, Qt::LeftButton);
  ReleaseMouse(control, x, y);
}
void Click(const Control& control) { Click(control, control.width() / 2, control.height() / 2); }

void TurnWheel(const Control& control, int steps, int parts) {
  QWidget* widget = Native::Widget(control);
  QWidget* window = widget->window();
  const QPoint place = widget->mapTo(window, widget->rect().center());
  for (int part = 0; part < parts; ++part) {
    QWheelEvent event(place, window->mapToGlobal(place), {}, {0, 120 * steps / parts}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window->windowHandle(), &event);  // which keeps the event one of the user
  }
  QCoreApplication::processEvents();
}

void SetProgramActive(bool active) {
  QApplicationStateChangeEvent event(active ? Qt::ApplicationActive : Qt::ApplicationInactive);
  QCoreApplication::sendEvent(qApp, &event);
}

void Wait(int milliseconds) { QTest::qWait(milliseconds); }

bool WaitUntil(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 10000); }

void Later(int milliseconds, std::function<void()> action) {
  QTimer::singleShot(milliseconds, qApp, std::move(action));
}

void WhenFront(std::function<void()> action) { ActOnceInFront(QApplication::activeModalWidget(), std::move(action)); }

void WhenMenuIsOpen(std::function<void()> action) {
  if (OpenMenu()) {
    action();
  } else {
    Later(5, [action = std::move(action)]() mutable { WhenMenuIsOpen(std::move(action)); });
  }
}

std::vector<std::string> MenuCaptions() {
  std::vector<std::string> captions;
  if (const QMenu* menu = OpenMenu()) {
    for (const QAction* action : menu->actions()) {
      captions.push_back(action->isSeparator() ? "-" : CaptionOf(*action).toStdString());
    }
  }
  return captions;
}

bool ClickMenuItem(const std::string& caption) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* menu = qobject_cast<QMenu*>(widget);
    if (!menu || !menu->isVisible()) continue;
    for (QAction* action : menu->actions()) {
      if (CaptionOf(*action) != QString::fromStdString(caption)) continue;
      const QPoint place = menu->actionGeometry(action).center();
      SendMouse(*menu, QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton);
      SendMouse(*menu, QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
      SendMouse(*menu, QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
      return true;
    }
  }
  return false;
}

bool HasInput(const Form& form) {
  const QWindow* window = Native::Widget(form)->windowHandle();
  return window && window == QGuiApplication::focusWindow();
}

Picture Grab(const Control& control) {
  QWidget* widget = Native::Widget(control);
  const QImage image = widget->grab().toImage();
  return Native::MakePicture(image, widget->width(), widget->height(), qRound(image.devicePixelRatio()));
}

Picture GrabFront() {
  QWidget* popup = QApplication::activePopupWidget();
  QWidget* front = popup ? popup : QApplication::activeModalWidget();
  if (!front) return {};
  const QImage image = front->grab().toImage();
  return Native::MakePicture(image, front->width(), front->height(), qRound(image.devicePixelRatio()));
}

long long PaintedPixels() { return std::exchange(Canvas::painted_pixels, 0); }

}  // namespace platform::user

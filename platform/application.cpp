#include "platform/application.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QPointer>
#include <QScreen>
#include <QThread>
#include <QTranslator>
#include <QWindow>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "base/fault.h"
#include "base/text.h"
#include "platform/form.h"
#include "platform/key_state.h"
#include "platform/look.h"
#include "platform/message_box.h"
#include "platform/native.h"

namespace platform {

namespace {

struct Settings {
  Theme theme;
  Charset charset = Charset::kCentralEuropean;
};

Settings& State() {
  static Settings settings;
  return settings;
}

/// Tells the user what went wrong and ends the program.
[[noreturn]] void EndWith(const Fault& fault) {
  static bool reporting = false;
  if (!reporting) {
    reporting = true;
    const Charset charset = Application::default_charset();
    ShowMessageBox({ShownFault(fault, PageOf(charset)), ToBytes(QCoreApplication::applicationName(), charset),
                    BoxButtons::kOk, BoxIcon::kCritical});
  }
  Application::Quit(1);
}

/// Runs something and catches what escapes it: the one place where a fault of the program ends.
template <typename Call>
auto Guarded(Call call) {
  try {
    return call();
  } catch (const Fault& fault) {
    EndWith(fault);
  } catch (const std::exception& error) {
    EndWith(Fault(error.what()));
  }
}

class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    return Guarded([&] { return QApplication::notify(receiver, event); });
  }
};

/// Sees every key of the program before anybody else does.
class KeyTap : public QObject {
 public:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::ApplicationStateChange) {
      SetProgramActive(static_cast<QApplicationStateChangeEvent*>(event)->applicationState() == Qt::ApplicationActive);
      return false;
    }
    // A key comes to its window first and from there to the widget with the focus: here it counts once, at the window.
    if (!receiver->isWindowType()) return false;
    if (event->type() == QEvent::WindowBlocked) KeysGoUnseen();
    if (event->type() == QEvent::WindowUnblocked || event->type() == QEvent::FocusIn) KeysAreSeenAgain();
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<QKeyEvent&>(*event);
    FeedKey(key);
    if (QApplication::activePopupWidget()) return false;
    Form* form = Native::FormOf(receiver);
    return form && Native::HandleKey(*form, {VirtualKey(key), ShiftMask(key.modifiers()), key.isAutoRepeat()},
                                     event->type() == QEvent::KeyPress);
  }
};

/// A tile has to be a whole number of device pixels: ratios that the desktop gives in fractions become whole ones.
void WantWholeRatios() {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
}

}  // namespace

struct Application::Desktop {
  Desktop(int& argc, char** argv) : application((WantWholeRatios(), argc), argv) {}

  GuardedApplication application;
  KeyTap keys;
};

Application::Application(int& argc, char** argv, const std::string& name, const Theme& theme)
    : desktop_(new Desktop(argc, argv)) {
  State().theme = theme;
  // Every place that the mouse reports counts: who draws leaves a trail of them. Set when the application is there, for
  // the desktop's part of it turns it on.
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  QCoreApplication::setApplicationName(QString::fromStdString(name));
  // Forms are hidden and shown in turn; Form decides when nothing is left.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  set_language(QLocale::system().name().toStdString());
  QApplication::setStyle(new Look);
  QApplication::setPalette(PaletteOf(theme));
  QApplication::setFont(ToQt(Font{}));
  qApp->installEventFilter(&desktop_->keys);
  // Told when both widgets know it, and not for a menu or list that pops up.
  QObject::connect(qApp, &QApplication::focusChanged, Native::FocusMoved);
}

Application::~Application() { delete desktop_; }

int Application::Run(const std::function<void()>& start) {
  QMetaObject::invokeMethod(
      qApp, [start] { start(); }, Qt::QueuedConnection);
  return QCoreApplication::exec();
}

void Application::Quit(int code) {
  std::fflush(nullptr);
  std::quick_exit(code);
}

void Application::ProcessEvents() { QCoreApplication::processEvents(); }

void Application::PaintAndSleep(int milliseconds) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);  // of controls that have just been shown
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) QCoreApplication::sendPostedEvents(window, QEvent::UpdateRequest);
  }
  QThread::msleep(static_cast<unsigned long>(milliseconds));
}

int Application::ScreenWidth() { return QApplication::primaryScreen()->geometry().width(); }
int Application::ScreenHeight() { return QApplication::primaryScreen()->geometry().height(); }

// The highest of all screens; a window on a coarser one shows its pictures scaled down.
int Application::PixelRatio() { return static_cast<int>(std::ceil(qApp->devicePixelRatio())); }

Charset Application::default_charset() { return State().charset; }
void Application::set_default_charset(Charset charset) { State().charset = charset; }
void Application::set_language(const std::string& code) {
  static QPointer<QTranslator> translator;
  delete translator;
  translator = new QTranslator(qApp);
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (translator->load("qtbase_" + QString::fromStdString(code), folder))
    QCoreApplication::installTranslator(translator);
}

const Theme& Application::theme() { return State().theme; }

void Application::set_icon(const Picture& picture) {
  QApplication::setWindowIcon(QIcon(QPixmap::fromImage(Native::Image(picture))));
}

}  // namespace platform

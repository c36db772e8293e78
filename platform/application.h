#pragma once

#include <functional>
#include <string>

#include "platform/control.h"
#include "platform/picture.h"
#include "platform/theme.h"

namespace platform {

/// The program's one connection to the desktop. Made first in main, before any form.
class Application {
 public:
  /// name: shown by the desktop, and the title of the box that reports a fault.
  Application(int& argc, char** argv, const std::string& name, const Theme& theme = {});
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// Calls start and then handles events until Quit, or until no form is visible any more (nobody could end the program
  /// then). An exception that leaves start or any handler is reported in a box and ends the program with code 1.
  int Run(const std::function<void()>& start);

  /// Ends the program at once, from any state: nothing is asked, nothing behind the call runs.
  [[noreturn]] static void Quit(int code);

  /// Handles the events that wait.
  static void ProcessEvents();
  /// Paints what has changed, then stands still for some milliseconds and takes no input.
  static void PaintAndSleep(int milliseconds);

  /// Size of the main screen in logical pixels.
  static int ScreenWidth();
  static int ScreenHeight();
  /// Device pixels a logical pixel, a whole number from 1 on: pictures rendered at this ratio are crisp on every
  /// screen.
  static int PixelRatio();

  /// The code page of window titles, tool tips, boxes and menus, and of controls made from now on.
  static Charset default_charset();
  static void set_default_charset(Charset charset);

  /// The language of the words that come with the desktop layer: buttons of boxes, file dialogs, the menus of text
  /// boxes. code: such as "cs"; the desktop's own until this is called. Without an installed translation they are
  /// English.
  static void set_language(const std::string& code);

  static const Theme& theme();

  /// The icon of all windows that have none of their own.
  static void set_icon(const Picture& picture);

 private:
  struct Desktop;
  Desktop* desktop_;
};

}  // namespace platform

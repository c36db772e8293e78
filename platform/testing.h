#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/form.h"
#include "platform/picture.h"

/// Drives forms as a user does, for tests and tools: events go through Qt's own queue from the window on. Works on the
/// offscreen platform.
namespace platform::user {

/// Makes the offscreen platform the default one, with a screen of so many logical pixels. Call before the Application
/// is made; an environment that names a platform is left as it is. QT_SCALE_FACTOR gives the screen more device pixels.
void UseOffscreen(int width = 1280, int height = 800);

/// Keys of the window that has the input, by virtual-key code; shift is the state to report.
void PressKey(int code, int shift = 0, bool auto_repeat = false);
void ReleaseKey(int code, int shift = 0, bool auto_repeat = false);
void TapKey(int code, int shift = 0);

/// Types a text, UTF-8, a key for each character.
void Type(const std::string& utf8);
/// The desktop's clipboard, UTF-8.
void SetClipboard(const std::string& utf8);
std::string Clipboard();
/// Leaves nothing in it, not even an empty text: as at a fresh login, or when the program that copied has gone.
void EmptyClipboard();

/// The mouse over a control. held: mask of the buttons held while it moves.
void PressMouse(const Control& control, int x, int y, int button = kLeftButton, int shift = 0);
void ReleaseMouse(const Control& control, int x, int y, int button = kLeftButton, int shift = 0);
void MoveMouse(const Control& control, int x, int y, int held = 0);
void Click(const Control& control, int x, int y, int button = kLeftButton);
void DoubleClick(const Control& control, int x, int y);
void Click(const Control& control);  // in its middle
/// Turns the wheel over the middle of a control by so many notches, above 0 up. A fine wheel sends each in several
/// parts.
void TurnWheel(const Control& control, int steps, int parts = 1);

/// The desktop gives the input to another program, or gives it back.
void SetProgramActive(bool active);

/// Handles events for so many milliseconds.
void Wait(int milliseconds);
/// Handles events until the condition holds; false after ten seconds without.
bool WaitUntil(const std::function<bool()>& condition);
/// Runs something from the event loop later, whether timers stand still or not: while a box or a modal form is open.
void Later(int milliseconds, std::function<void()> action);
/// Runs something from the event loop once a box or modal form has the input, another than now.
void WhenFront(std::function<void()> action);
/// Runs something from the event loop once a menu is open. Call before it is shown.
void WhenMenuIsOpen(std::function<void()> action);
/// The items of the innermost open menu as they are shown, UTF-8, separators as "-".
std::vector<std::string> MenuCaptions();
/// Clicks an item of an open menu by its caption, UTF-8; false when none has it.
bool ClickMenuItem(const std::string& caption);
/// The form has the input of the keyboard.
bool HasInput(const Form& form);

/// What a control looks like now, with all controls inside.
Picture Grab(const Control& control);
/// The menu, drop-down, box or dialog in front, as a picture; empty when there is none.
Picture GrabFront();

/// Device pixels painted on forms and painted controls since the last call.
long long PaintedPixels();

}  // namespace platform::user

#pragma once

#include <functional>
#include <string>

namespace platform {

enum class BoxButtons {
  kOk,
  kYesNo,
  kYesDefaultNo,  // Enter answers kNo: for what cannot be undone
  kYesNoCancel,
};
enum class BoxIcon { kNone, kInformation, kExclamation, kQuestion, kCritical };
enum class BoxAnswer { kOk, kYes, kNo, kCancel };

/// What a box shows. Text and title are in the application's default charset.
struct MessageBox {
  std::string text;
  std::string title;
  BoxButtons buttons = BoxButtons::kOk;
  BoxIcon icon = BoxIcon::kNone;
  int key = 0;  // virtual-key code of a key that closes the box as Enter does, when it is struck and let go; 0: none
};

/// Shows a modal box and returns the button pressed. Escape and the close button answer the last button: kOk, kNo or
/// kCancel. All timers stand still until the box is closed. A text that the screen has no room for is cut with "…".
BoxAnswer ShowMessageBox(const MessageBox& box);

/// For tests: answers boxes in place of the user. An empty function brings the real boxes back.
using BoxResponder = std::function<BoxAnswer(const MessageBox&)>;
void SetBoxResponder(BoxResponder responder);

}  // namespace platform

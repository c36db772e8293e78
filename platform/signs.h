#pragma once

// For the sources of this folder alone: small pictures that Qt's boxes and dialogs ask the style for.

#include <QIcon>
#include <QStyle>

namespace platform {

/// A sign of a message box or file dialog in the program's look, sharp at every size; null for all that it has not.
QIcon SignOf(QStyle::StandardPixmap kind);

}  // namespace platform

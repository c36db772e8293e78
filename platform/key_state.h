#pragma once

// For the sources of this folder alone: what feeds the key state.

#include <QKeyEvent>

namespace platform {

/// The virtual-key code of a key event, 0 for a key that has none.
int VirtualKey(const QKeyEvent& event);

/// Takes a press or release into the key state. Auto-repeat tells that a key is down, which may have been lost sight
/// of, and is no press.
void FeedKey(const QKeyEvent& event);

/// Lets go of all keys and forgets all presses.
void ReleaseAllKeys();

/// Qt drops what comes to a window behind a modal one, the release of a key too. Forgets all presses; what is held
/// stays held if the desktop can be asked about it later, otherwise until auto-repeat tells it anew.
void KeysGoUnseen();
/// A window has the input again: lets go of the keys that came up unseen.
void KeysAreSeenAgain();

/// The desktop says whether the program has the input: without it all keys are let go.
void SetProgramActive(bool active);
/// True, too, when the desktop has said nothing yet.
bool ProgramActive();

/// A Qt key, with its modifiers, that gives a virtual-key code.
struct QtKey {
  int key = 0;
  Qt::KeyboardModifiers modifiers;
};
QtKey QtKeyOf(int code);

}  // namespace platform

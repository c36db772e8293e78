#include "platform/keys.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <algorithm>
#include <bitset>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "platform/key_state.h"

namespace platform {

namespace {

struct Special {
  int qt;
  int code;
};

// The first entry of a code is the one that QtKeyOf gives.
constexpr Special kSpecials[] = {
    {Qt::Key_Backspace, kKeyBackspace}, {Qt::Key_Tab, kKeyTab},       {Qt::Key_Backtab, kKeyTab},
    {Qt::Key_Return, kKeyEnter},        {Qt::Key_Enter, kKeyEnter},   {Qt::Key_Shift, kKeyShift},
    {Qt::Key_Control, kKeyCtrl},        {Qt::Key_Alt, kKeyAlt},       {Qt::Key_Pause, kKeyPause},
    {Qt::Key_Escape, kKeyEscape},       {Qt::Key_Space, kKeySpace},   {Qt::Key_PageUp, kKeyPageUp},
    {Qt::Key_PageDown, kKeyPageDown},   {Qt::Key_End, kKeyEnd},       {Qt::Key_Home, kKeyHome},
    {Qt::Key_Left, kKeyLeft},           {Qt::Key_Up, kKeyUp},         {Qt::Key_Right, kKeyRight},
    {Qt::Key_Down, kKeyDown},           {Qt::Key_Insert, kKeyInsert}, {Qt::Key_Delete, kKeyDelete},
};

constexpr Special kPadOperators[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107}, {Qt::Key_Minus, 109}, {Qt::Key_Period, 110}, {Qt::Key_Slash, 111},
};

/// Letters and digits by their place on a PC keyboard, for layouts without Latin letters or digits of their own (the
/// key of "P" pauses the game under a Cyrillic layout, too). X11 and Wayland count keys alike.
int CodeOfPlace(quint32 scan_code) {
  struct Row {
    quint32 first;
    std::string_view codes;
  };
  for (const Row& row : {Row{10, "1234567890"}, Row{24, "QWERTYUIOP"}, Row{38, "ASDFGHJKL"}, Row{52, "ZXCVBNM"}}) {
    if (scan_code >= row.first && scan_code < row.first + row.codes.size()) return row.codes[scan_code - row.first];
  }
  return 0;
}

bool program_active = true;

struct KeyState {
  std::unordered_map<quint64, int> down;  // code of each physical key that is held
  std::bitset<256> pressed;               // since the last question
};

KeyState& State() {
  static KeyState state;
  return state;
}

/// A key is known by its place: what a place gives can change while it is held (NumLock, Shift on the numeric pad).
quint64 PlaceOf(const QKeyEvent& event) {
  if (event.nativeScanCode() != 0) return event.nativeScanCode();
  return quint64{1} << 32 | static_cast<quint64>(VirtualKey(event));
}

/// Where the desktop can be asked which keys are down, which is on X11 alone; otherwise null.
xcb_connection_t* X11Connection() {
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

}  // namespace

int VirtualKey(const QKeyEvent& event) {
  const int key = event.key();
  const bool pad = event.modifiers() & Qt::KeypadModifier;
  if (pad && key >= Qt::Key_0 && key <= Qt::Key_9) return kNumpad0 + key - Qt::Key_0;
  if (pad) {
    for (const Special& special : kPadOperators) {
      if (special.qt == key) return special.code;
    }
  }
  for (const Special& special : kSpecials) {
    if (special.qt == key) return special.code;
  }
  if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return kF1 + key - Qt::Key_F1;
  return CodeOfPlace(event.nativeScanCode());
}

QtKey QtKeyOf(int code) {
  if (code >= kNumpad0 && code <= kNumpad0 + 9) return {Qt::Key_0 + code - kNumpad0, Qt::KeypadModifier};
  if (code >= kF1 && code < kF1 + 24) return {Qt::Key_F1 + code - kF1, {}};
  const auto* special = std::find_if(std::begin(kSpecials), std::end(kSpecials),
                                     [code](const Special& candidate) { return candidate.code == code; });
  return {special != std::end(kSpecials) ? special->qt : code, {}};
}

void FeedKey(const QKeyEvent& event) {
  if (event.type() == QEvent::KeyRelease) {
    if (!event.isAutoRepeat()) State().down.erase(PlaceOf(event));
    return;
  }
  const int code = VirtualKey(event);
  if (code == 0) return;
  State().down[PlaceOf(event)] = code;
  if (!event.isAutoRepeat()) State().pressed.set(static_cast<std::size_t>(code));
}

void ReleaseAllKeys() { State() = {}; }

void KeysGoUnseen() {
  State().pressed.reset();
  if (!X11Connection()) State().down.clear();
}

void KeysAreSeenAgain() {
  xcb_connection_t* connection = X11Connection();
  if (!connection || State().down.empty()) return;
  const std::unique_ptr<xcb_query_keymap_reply_t, decltype(&std::free)> reply(
      xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr), std::free);
  if (!reply) return;
  std::erase_if(State().down, [&reply](const auto& key) {
    const quint64 place = key.first;  // a bit for each, eight to a byte
    return place / 8 >= std::size(reply->keys) || (reply->keys[place / 8] >> place % 8 & 1) == 0;
  });
}

void SetProgramActive(bool active) {
  program_active = active;
  if (!active) ReleaseAllKeys();
}

bool ProgramActive() { return program_active; }

bool Held(int code) {
  if (code < 0 || code > 255) return false;
  KeyState& state = State();
  const bool pressed = state.pressed.test(static_cast<std::size_t>(code));
  state.pressed.reset(static_cast<std::size_t>(code));
  return pressed ||
         std::any_of(state.down.begin(), state.down.end(), [code](const auto& place) { return place.second == code; });
}

}  // namespace platform

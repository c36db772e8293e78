#pragma once

#include <map>
#include <stdexcept>
#include <string>

#include "platform/keys.h"
#include "platform/testing.h"

/// Strikes a key by its name, with the keys held before it: "F5", "Ctrl+S", "Shift+Insert", "Page Down" as "PageDown".
inline void Strike(std::string name) {
  using namespace platform;
  static const std::map<std::string, int> kNames = {
      {"Up", kKeyUp},         {"Down", kKeyDown},     {"Left", kKeyLeft},   {"Right", kKeyRight},
      {"Home", kKeyHome},     {"End", kKeyEnd},       {"Tab", kKeyTab},     {"PageUp", kKeyPageUp},
      {"Enter", kKeyEnter},   {"Escape", kKeyEscape}, {"Space", kKeySpace}, {"PageDown", kKeyPageDown},
      {"Insert", kKeyInsert}, {"Delete", kKeyDelete}};
  int shift = 0;
  for (const auto& [prefix, mask] : std::map<std::string, int>{{"Ctrl+", kCtrl}, {"Shift+", kShift}, {"Alt+", kAlt}}) {
    if (!name.starts_with(prefix)) continue;
    shift |= mask;
    name.erase(0, prefix.size());
  }
  if (const auto key = kNames.find(name); key != kNames.end()) {
    user::TapKey(key->second, shift);
  } else if (name.size() == 1) {
    user::TapKey(name[0], shift);
  } else if (name.size() > 1 && name[0] == 'F') {
    user::TapKey(kF1 - 1 + std::stoi(name.substr(1)), shift);
  } else {
    throw std::runtime_error("there is no key " + name);
  }
}

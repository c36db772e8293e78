#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"

/// What is wrong with the place of a control's text: "" when it has room.
inline std::string Cramped(const platform::Captioned& control) {
  constexpr int kInButton = 16;    // the button's edges
  constexpr int kInCheckBox = 28;  // the mark and the gap behind it
  if (control.caption().empty()) return "";
  int room = control.width();
  if (dynamic_cast<const platform::Button*>(&control) != nullptr) room -= kInButton;
  if (dynamic_cast<const platform::CheckBox*>(&control) != nullptr) room -= kInCheckBox;
  if (control.text_width() <= room) return "";
  const auto* label = dynamic_cast<const platform::Label*>(&control);
  if (label != nullptr && label->text_height() > label->font().size * 14 / 10 &&
      label->text_height() <= label->height())
    return "";  // it is broken into lines
  return "\"" + control.caption() + "\" needs " + std::to_string(control.text_width()) + " of " + std::to_string(room);
}

/// The same for all texts of a form.
inline std::vector<std::string> CrampedTexts(const platform::Form& form) {
  std::vector<std::string> found;
  platform::ForEachControl(form, [&found](platform::Control& control) {
    const auto* text = dynamic_cast<const platform::Captioned*>(&control);
    if (text != nullptr && !Cramped(*text).empty()) found.push_back(Cramped(*text));
  });
  return found;
}

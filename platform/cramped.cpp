#include "platform/cramped.h"

#include <algorithm>

namespace platform {

Cramped RoomOf(const Captioned& control) {
  constexpr int kInButton = 16;    // pixels that the button's edges take
  constexpr int kInCheckBox = 28;  // the mark and the gap behind it
  if (control.caption().empty()) return {&control, 0};
  if (const auto* label = dynamic_cast<const Label*>(&control); label != nullptr && label->word_wrap()) {
    return {&control, std::max(label->text_height() - label->height(), 0), true};
  }
  int room = control.width();
  if (dynamic_cast<const Button*>(&control) != nullptr) room -= kInButton;
  if (dynamic_cast<const CheckBox*>(&control) != nullptr) room -= kInCheckBox;
  return {&control, std::max(control.text_width() - room, 0)};
}

std::vector<Cramped> CrampedTexts(const Form& form) {
  std::vector<Cramped> found;
  ForEachControl(form, [&found](Control& control) {
    const auto* text = dynamic_cast<const Captioned*>(&control);
    if (text == nullptr) return;
    const Cramped cramped = RoomOf(*text);
    if (cramped.pixels > 0) found.push_back(cramped);
  });
  return found;
}

}  // namespace platform

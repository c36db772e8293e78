#pragma once

#include <vector>

#include "platform/controls.h"
#include "platform/form.h"

namespace platform {

/// A text that its control cuts off.
struct Cramped {
  const Captioned* control = nullptr;
  int pixels = 0;     // logical ones that it lacks
  bool high = false;  // it lacks them in height: its lines are broken at the control's width
};

/// What the caption of a control lacks; 0 pixels when it has its room.
Cramped RoomOf(const Captioned& control);

/// All captions of a form that are cut off, also those that are not seen at the moment.
std::vector<Cramped> CrampedTexts(const Form& form);

}  // namespace platform

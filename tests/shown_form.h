#pragma once

#include "platform/form.h"
#include "platform/testing.h"

/// A form on the screen with the input.
struct ShownForm : platform::Form {
  ShownForm() : Form(platform::Border::kSizable, 400, 300) {
    Show();
    platform::user::WaitUntil([this] { return platform::user::HasInput(*this); });
  }
};

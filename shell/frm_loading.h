#pragma once

#include "platform/controls.h"
#include "platform/form.h"

/// The small window that stands in front while something takes its time.
class FrmLoading : public platform::Form {
 public:
  FrmLoading();

  /// Texts of the language in force.
  void SetLW();

  platform::Frame Frame1{this};
  platform::Label Label1{&Frame1};
};

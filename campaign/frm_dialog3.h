#pragma once

#include <string>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/text_box.h"

/// Asks for the name of a new player.
class FrmDialog3 : public platform::Form {
 public:
  FrmDialog3();

  void OKButton_Click();
  /// Texts of the language in force.
  void SetLW();

  std::string Vysledek;  // what was typed when the button was pressed

  platform::TextBox Text1{this};
  platform::Button OKButton{this, "OK"};
};

#pragma once

#include <string>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/text_box.h"

/// The congratulation of a set, to be read by the player or written by the author.
class FrmDialog2 : public platform::Form {
 public:
  FrmDialog2();

  /// Gets the form ready for writing: what is in Text1 goes to Vysledek.
  void SetG();
  /// Gets the form ready for reading: it shows Vysledek.
  void ShowG();
  void OKButton_Click();
  void CancelButton_Click();
  /// Texts of the language in force.
  void SetLW();

  std::string Vysledek;  // the text shown, then the text written; empty when writing was given up

  platform::TextBox Text1{this, platform::TextLines::kMany};
  platform::Button OKButton{this, "OK"};
  platform::Button CancelButton{this};
};

#pragma once

#include <string>

#include "campaign/forms.h"
#include "cave/set_file.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/text_box.h"

/// The set editor.
class FrmSada : public platform::Form {
 public:
  /// programFolder: where the pictures lie.
  FrmSada(const std::string& programFolder, const Forms& forms);

  /// Makes the rows.
  void FrmLoad();
  /// Texts of the language in force.
  void SetLW();
  /// A new set of one small cave. What was there before is gone without a question.
  void mnuNew_Click();
  /// Opens the selected cave in the cave editor.
  void mnuEdit_Click();
  /// Takes the selected cave back from the cave editor.
  void SetKKKtoK(const std::string& caveText);

  platform::TextBox Text3{this};  // name of the set

 private:
  const Forms& forms_;
};

#pragma once

#include <string>

#include "campaign/forms.h"
#include "platform/controls.h"
#include "platform/form.h"

/// The cave editor.
class FrmMain : public platform::Form {
 public:
  /// programFolder: where the pictures lie.
  FrmMain(const std::string& programFolder, const Forms& forms);

  /// Prepares the palette.
  void FrmLoad();
  /// Opens a cave for editing; whoever calls shows the form. Throws Fault when the text is damaged.
  void OpenCave(const std::string& caveText);
  /// Hands the cave back to the set editor and shows that.
  void VratKomnatu();
  /// Starts the test play again.
  void HraRest();
  /// Fills the properties dialog from the cave.
  void SetProps();
  /// Takes the properties dialog's values over.
  void VlOK_Click();
  /// Gems, in one column and one row more than the cave has.
  int SpoctiDrh() const;
  /// Cells inside the cave that hold this character.
  int NuOfOb(char tag) const;
  /// Texts of the language in force, those of the properties dialog as well.
  void SetLWEd();

  platform::Frame Ram{this};
  platform::PictureBox EditKom{&Ram};

 private:
  const Forms& forms_;
};

#pragma once

#include <string>

#include "platform/controls.h"
#include "platform/form.h"

/// What the program is, who made it, and where there is more of it.
class FrmAbout : public platform::Form {
 public:
  FrmAbout();

  /// Texts and logo of the language in force.
  void SetLW(const platform::Picture& logo);

  platform::Image Image1{this};   // the logo
  platform::Label Label1{this};   // version
  platform::Label Label2{this};   // dates of the work
  platform::Label Label5{this};   // licence
  platform::Label Label3{this};   // credits
  platform::Label Label9{this};   // their second half
  platform::Label Label8{this};   // what the web pages offer
  platform::Label Label14{this};  // the end of it
  platform::Label Label6{this};   // host of the game
  platform::Label Label7{this};   // hosts and mail of the author
  platform::Label Label10{this};
  platform::Label Label4{this};
  platform::Button Command1{this, "OK"};

 private:
  void Place();
};

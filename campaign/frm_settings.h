#pragma once

#include <array>
#include <functional>
#include <string>

#include "base/settings.h"
#include "platform/controls.h"
#include "platform/form.h"

/// The settings: it holds their values for the whole program as its fields and lets the player change them. The fields
/// change only when the button is pressed, so closing the window by itself loses nothing and takes nothing over.
class FrmSettings : public platform::Form, public Settings {
 public:
  /// programFolder: where the pictures lie.
  explicit FrmSettings(const std::string& programFolder);

  /// Takes the stored values over. On the first start there are none: the defaults are stored, then.
  void ReadValues();
  /// Puts the fields into the controls.
  void SetSett();
  /// Texts of the language in force.
  void SetLW();
  void Command1_Click();

  /// Told when the player has taken new values over.
  std::function<void()> settingsTaken;

  platform::Label Label1{this};
  platform::ScrollBar HScroll1{this, platform::Orientation::kHorizontal};  // speed of play
  platform::Label Label2{this};
  platform::ScrollBar HScroll2{this, platform::Orientation::kHorizontal};  // speed of a replay
  /// Which end of each bar is slow, and which is fast.
  std::array<platform::Image, 4> imgSpeed{platform::Image{this}, platform::Image{this}, platform::Image{this},
                                          platform::Image{this}};
  platform::CheckBox Check1{this};  // animate amoeba and slime
  platform::CheckBox Check2{this};  // pause after thirty seconds
  platform::CheckBox Check3{this};  // sound
  platform::CheckBox Check4{this};  // joystick
  platform::Button Command1{this};

 private:
  void Place();
  void WriteValues() const;
};

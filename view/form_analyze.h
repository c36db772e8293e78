#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "engine/hra.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/timer.h"

/// The score of a won cave, written out as the sum that it is. It closes itself when a countdown was started and has
/// run down.
class FormAnalyze : public platform::Form {
 public:
  /// programFolder: where the pictures lie.
  explicit FormAnalyze(const std::string& programFolder);

  /// Fills in the sum and its result. bonus: the mark of a bonus cave is shown; its points are not part of the sum
  /// here.
  void ShowSum(const WinSum& sum, bool bonus);
  /// Starts the countdown from n seconds, 1..255.
  void NastavCas(std::uint8_t n);
  void Command1_Click();
  void Timer1_Timer();
  /// Texts of the language in force.
  void SetLW();

  /// Shows what comes next, called when the screen closes.
  std::function<void()> leave;

  std::array<platform::Label, 6> Label1{platform::Label{this}, platform::Label{this}, platform::Label{this},
                                        platform::Label{this}, platform::Label{this}, platform::Label{this}};
  std::array<platform::Label, 6> lblValue{platform::Label{this}, platform::Label{this}, platform::Label{this},
                                          platform::Label{this}, platform::Label{this}, platform::Label{this}};
  platform::Shape shpLine{this};
  platform::Image Image1{this};    // the bonus mark
  platform::Label lblBonus{this};  // and its points
  platform::Label Label2{this};    // the sum
  platform::Label Label3{this};    // the result
  platform::Label Label4{this};    // seconds of the countdown; a click keeps the screen
  platform::Button Command1{this};
  platform::Timer Timer1{1000};

 private:
  void Place();

  std::uint8_t count_ = 0;
};

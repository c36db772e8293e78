#pragma once

#include <array>
#include <string>

#include "base/lang_str.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/text_box.h"
#include "shell/forms.h"

/// The properties of the cave under edit. The cave editor fills the controls each time before it shows the form, and
/// takes their values over on "OK"; the form itself keeps nothing. Values out of limits are not refused but set to the
/// limit, and the author is told.
class FrmFormality : public platform::Form {
 public:
  /// programFolder: where the pictures lie.
  FrmFormality(const std::string& programFolder, const Forms& forms);

  /// Lets the number fields take digits only. Called once, before the form is first shown.
  void FrmLoad();
  /// Texts of the language in force; moves each help button right of its label.
  void SetLW();

  void Command1_Click();    // "OK": corrects the values, tells what was corrected, hands over
  void Command2_Click();    // gives up
  void Command3_Click();    // what a bonus cave is
  void Command4_Click();    // how many gems there are
  void Command5_Click();    // how time becomes points
  void Command6_Click();    // what comes after the magic wall's time
  void Command7_Click();    // what the slime's permeability means
  void Command8_Click();    // when the amoeba turns to stone
  void HScroll1_Change();   // shows the colour chosen
  bool Form_QueryUnload();  // gives up, too

  void set_visible(bool visible) override;

  // --- Controls --------------------

  platform::Shape shpTexts{this, platform::ShapeKind::kRounded};
  platform::Shape shpRules{this, platform::ShapeKind::kRounded};
  platform::Shape shpLook{this, platform::ShapeKind::kRounded};
  platform::Label Label4{this};
  platform::TextBox Text3{this};  // name
  platform::Button Command3{this};
  platform::Label Label6{this};
  platform::TextBox Text4{this, platform::TextLines::kMany};  // description
  platform::Label Label8{this};
  platform::TextBox Text6{this};  // gems needed
  platform::Button Command4{this};
  platform::Label Label7{this};
  platform::TextBox Text5{this};  // total time
  platform::Button Command5{this};
  platform::Label Label11{this};
  platform::TextBox Text9{this};  // points for a gem before the exit opens
  platform::Label Label12{this};
  platform::TextBox Text10{this};  // and after that
  platform::Label Label9{this};
  platform::TextBox Text7{this};  // magic wall time
  platform::Button Command6{this};
  platform::Label Label10{this};
  platform::TextBox Text8{this};  // amoeba time
  platform::Button Command8{this};
  platform::Label Label13{this};
  platform::TextBox Text11{this};  // slime permeability
  platform::Button Command7{this};
  platform::Label Label3{this};
  platform::ScrollBar HScroll1{this, platform::Orientation::kHorizontal};  // colour
  platform::Image Picture1{this};                                          // its preview
  platform::Label Label1{this};
  platform::TextBox Text1{this};  // width
  platform::Label Label2{this};
  platform::TextBox Text2{this};  // height
  platform::Button Command1{this, "OK"};
  platform::Button Command2{this};

 private:
  /// A field with its label, and the button that helps with it, if there is one.
  struct Row {
    platform::TextBox* field;
    platform::Label* label;
    text::Row text;  // row of the language files
    platform::Button* help = nullptr;
    text::Row helpText{};
  };

  void SetLimits();
  void TieControls();
  void Place();
  int ContentWidth() const;
  void PlaceRow(const Row& row, int top, int contentWidth);
  void Inform(text::Row titleRow, const std::string& text) const;

  std::string folder_;
  const Forms& forms_;
  const std::array<Row, 2> texts_ = {
      {{&Text3, &Label4, text::kCaveName, &Command3, text::kBonusHelp}, {&Text4, &Label6, text::kCaveDescription}}};
  const std::array<Row, 7> rules_ = {{{&Text6, &Label8, text::kGemsNeeded, &Command4, text::kCountGemsHelp},
                                      {&Text5, &Label7, text::kTotalTime, &Command5, text::kTimeHelp},
                                      {&Text9, &Label11, text::kPointsBeforeExit},
                                      {&Text10, &Label12, text::kPointsAfterExit},
                                      {&Text7, &Label9, text::kMagicTime, &Command6, text::kMagicHelp},
                                      {&Text8, &Label10, text::kAmoebaTime, &Command8, text::kPetrifyHelp},
                                      {&Text11, &Label13, text::kSlimePermeability, &Command7, text::kSlimeHelp}}};
  const std::array<Row, 2> size_ = {{{&Text1, &Label1, text::kCaveWidth}, {&Text2, &Label2, text::kCaveHeight}}};
};

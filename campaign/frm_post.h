#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "campaign/progress.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/text_box.h"
#include "shell/forms.h"

/// The overview of one set for one player: its caves with their scores, what is open, what is still to be won. The set
/// that is shown is part of the form and stays loaded until the next one.
class FrmPoSt : public platform::Form, public Progress {
 public:
  /// programFolder: where the pictures and the help lie.
  FrmPoSt(const std::string& programFolder, const Forms& forms);

  /// Makes the rows.
  void FrmLoad();
  /// Reads a set and what the player has reached in it, and shows the form instead of the start screen. Throws Fault,
  /// which ends the program, when the set or one of the records is damaged.
  void LoadColl(const std::string& path);
  /// Texts of the language in force.
  void SetLWPost();

  /// Selects cave n; any other number than that of a cave does nothing.
  void lblCave_Click(int n);
  void lblScore_Click(int i) { lblCave_Click(i); }
  void VScroll1_Change();
  void Form_KeyDown(platform::KeyEvent& event);
  bool Form_QueryUnload();
  void Command1_Click();  // replay
  void Command2_Click();  // play
  void Command3_Click();  // congratulation
  void Command4_Click();  // contest
  void Label3_Click();    // mail to the author

  /// The selected cave has been won: takes its score over, opens what follows and selects the next one.
  void Prosel();
  /// Adds up the scores and counts what is still to be won.
  void CelkSkore();

  std::int16_t AktK = 0;   // the selected cave, from 1 on
  std::string MailAutora;  // empty when the set tells no address
  platform::Colour BarvaZamcena;
  platform::Colour BarvaOtevrena;
  platform::Colour BarvaProsla;
  platform::Colour BarvaCizi;

  // --- Controls --------------------

  platform::Shape shpHead{this, platform::ShapeKind::kRounded};
  platform::Label Label4{this};  // name of the set
  platform::Label Label3{this};  // its author
  platform::Label Label5{this};  // what Label2 is
  platform::Label Label2{this};  // total score
  platform::Shape shpList{this, platform::ShapeKind::kRounded};
  platform::Frame Picture1{this};  // shows ten rows of Picture2
  platform::Frame Picture2{&Picture1};
  platform::Shape shpAktK{&Picture2};  // the selected row
  platform::ScrollBar VScroll1{this, platform::Orientation::kVertical};
  platform::Label Label6{this};                                  // how many caves are left
  platform::TextBox Label1{this, platform::TextLines::kMany};    // description of the set
  platform::Shape shpCard{this, platform::ShapeKind::kRounded};  // the selected cave
  platform::Image Image1{this};                                  // mark of a bonus cave
  platform::Label lblName{this};
  platform::Label lblDescr{this};
  platform::Label lblZzn{this};  // file name of its record
  platform::Button Command2{this};
  platform::Button Command1{this};
  platform::Button Command3{this};
  platform::Button Command4{this};

  // Rows 1 to 99; there is no row 0.
  using Column = std::array<std::unique_ptr<platform::Label>, 100>;
  Column lblNum;
  Column lblCave;
  Column lblScore;

 private:
  void Place();
  void ShowSet(const std::string& path);
  void ShowMail();
  void ShowRow(std::size_t row);
  void ShowNoCave();
  void ShowCard(int n);
  void PlaceDescription();
  void PresetGame(const CaveRecord& cave);
  void MarkRow(int n);
  bool HasRow(int n) const { return n >= 1 && n <= kHighestCaveNumber && lblCave[static_cast<std::size_t>(n)]; }

  std::string folder_;
  const Forms& forms_;
};

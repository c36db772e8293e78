#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/list_controls.h"
#include "platform/timer.h"
#include "shell/forms.h"

/// What of the start screen's shape is there: while the panel is open the badge of the contests is not.
enum class StartShape { kPanelOpen = 1, kResting = 2 };

/// Gives a window the shape of the start screen.
void OknoStart(platform::Form& window, StartShape shape);

/// The start screen: players and sets to choose from, and the ways to replays, editor, help and out of the program.
class FrmStart2 : public platform::Form {
 public:
  /// programFolder: where the pictures, languages and the help lie.
  FrmStart2(const std::string& programFolder, const Forms& forms);

  /// Reads the settings; asks for the language on the first start.
  void FindSett();
  /// Lists sets and players; the folders have to be set. Asks for a name while there is no player.
  void FrmLoad();
  /// Fills List1. A set that cannot be read gets a garbled or an empty name.
  void FindColls();
  /// Fills List2 and selects the last player. Throws Fault when no folder for players can be made.
  void FindPlrs();
  /// Opens a set from anywhere, after asking whether to copy it. path becomes that of the copy. Throws Fault when it
  /// cannot be copied or read.
  void AnotherColl(std::string& path);
  /// Plays a record from anywhere.
  void AnotherRepl(const std::string& path);
  /// Texts of the language in force.
  void SetLW();

  void Image3_MouseDown(int button, int x, int y);  // play
  void Image4_MouseDown(int button, int x, int y);  // replay
  void Image5_MouseDown(int button, int x, int y);  // editor
  void Image6_MouseDown(int button, int x, int y);  // help
  void Image4_MouseMove();                          // closes the panel a second later
  void Image5_MouseMove();
  void Image6_MouseMove();
  void Image10_MouseMove();  // keeps it open
  void Image1_Click();       // contests
  void Label1_Click();
  void Label2_Click();
  void Label3_Click();
  void Label4_Click();
  void Command1_Click();  // new player
  void Command2_Click();  // a set from anywhere
  void Command3_Click();  // play the selected set
  void List2_Click();
  void Label7_Click();  // ends the program
  void Picture4_Click();
  bool Form_QueryUnload();
  void Label9_Click();  // language
  void Timer1_Timer();
  void Form_KeyDown(platform::KeyEvent& event);

  std::function<void()> openEditor;  // shows the set editor with a new set

  std::vector<std::string> File1;  // paths of the sets, row by row those of List1

  // --- Controls --------------------

  platform::Image imgDisc{this};
  platform::Image Image7{this};    // the logo of the language
  platform::Label Label8_2{this};  // version
  platform::Label Label8_3{this};  // contests, behind the badge
  platform::Image Image1{this};    // contests, the badge
  platform::Label Label8_4{this};  // upon the badge
  platform::Image Image3{this};
  platform::Label Label1{this};
  platform::Image Image4{this};
  platform::Label Label2{this};
  platform::Image Image5{this};
  platform::Label Label3{this};
  platform::Image Image6{this};
  platform::Label Label4{this};
  platform::Frame Picture4{this};
  platform::Shape shpKonec{&Picture4, platform::ShapeKind::kRounded};
  platform::Label Label7{&Picture4};
  platform::Frame Picture5{this};
  platform::Shape shpLanguage{&Picture5, platform::ShapeKind::kRounded};
  platform::Label Label9{&Picture5};
  platform::Frame Picture1{this};      // the panel
  platform::Image Image10{&Picture1};  // its ground
  platform::Image Image11{&Picture1};  // the logos of the languages 1 to 3, never shown themselves
  platform::Image Image12{&Picture1};
  platform::Image Image13{&Picture1};
  platform::Label Label5{&Picture1};
  platform::ComboBox List2{&Picture1};
  platform::Button Command1{&Picture1};
  platform::Label Label6{&Picture1};
  platform::ListBox List1{&Picture1};
  platform::Button Command2{&Picture1};
  platform::Button Command3{&Picture1};
  platform::Timer Timer1{1000};

 private:
  void FindLanguage();
  bool AskForPlayer();
  void ShowPanel(bool open);
  void MakeControls();
  void LoadPictures();
  void Place();
  void PlacePanel();
  void MakeDraggable();

  std::string folder_;
  const Forms& forms_;
  platform::MouseEvent grip_;  // where the mouse holds the window
};

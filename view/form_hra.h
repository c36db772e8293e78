#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/settings.h"
#include "engine/hra.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/joystick.h"
#include "platform/timer.h"
#include "view/cave_painter.h"
#include "view/joystick.h"
#include "view/tile_pictures.h"

class Fault;
class FormAnalyze;

/// The window of a running cave. It owns the game and carries out what the game asks of its surroundings. One instance
/// lives to the end of the program; other forms call its procedures and read its fields.
class FormHra : public platform::Form {
 public:
  /// programFolder: where the pictures and all other data lie. settings are read at each use and must outlive the form.
  FormHra(std::string programFolder, const Settings& settings);

  // --- Entry points --------------------

  /// Tile size and layout for the screen.
  void FrmLoad();
  /// Sets up cave number n of the set in SetFile, "*1" or "*2" for a new one. Throws Fault when the file cannot be read
  /// or its cave is damaged. A number that the set does not have gives a cave of no cells, as an empty text does.
  void OpenCave(int n);
  /// Sets a cave up from its text; it waits for Command1_Click then. An empty text hides the form and the overview.
  void PaintCave(const std::string& caveText);
  void Command1_Click();  // "Start"
  void Command3_Click();  // "Restart (Ctrl+R)"
  void Command4_Click();  // settings
  void RestartGame_Click();
  void EndGame_Click();
  /// Plays the record in CurrentFile. One that cannot be begun is told in a box, and the game is left; one that breaks
  /// off is told when it does, and its last picture stands; one that ends before the exit just ends.
  void Replay();
  /// Writes the record of the cave just won, unless it was not to be recorded. score: with the points of a bonus cave.
  /// While it cannot be written the player is asked whether to try again.
  void SaveRecord(int score);
  void Form_Resize();
  bool Form_QueryUnload();
  void tmrHra_Timer();
  void tmrMsg_Timer();
  /// Shows a message for three seconds, set smaller or cut when the window has no room for it. colour: 0xBBGGRR.
  void ShowMessage(const std::string& text, std::uint32_t colour);
  /// Position of the surface that centres a cell, as far as the cave reaches. In logical pixels.
  double idleft(int x) const;
  double idtop(int y) const;
  /// Takes the speed of play, or of a replay while one runs, over from the settings.
  void SetSpeed();
  /// Texts of the language in force.
  void SetLW();

  // --- Fields that other forms read and write --------------------

  Hra game;
  std::string SetFile = "/";  // path of the set being played; "/" means none
  std::string CurrentFile;    // path of the record that Replay plays
  std::string SetName;        // in the code page of the texts, as are the next two
  std::string PlayerName;
  std::string CaveName;
  int WinScore = 0;    // of the last win, with the points of a bonus cave
  double TileTw = 50;  // logical pixels of a tile
  double TileTh = 50;

  // What the rest of the program does for the game; set by whoever shows the form.
  std::function<void()> restartCave;   // start the cave again
  std::function<void()> hideOverview;  // there is no cave
  std::function<void()> caveWon;       // neither in a replay nor in a test play; the tick that won has run to its end
  FormAnalyze* frmAnalyze = nullptr;   // shows the score; absent: it is not shown
  std::function<void()> leave;         // the game was ended: show what comes next
  std::function<void()> showSettings;  // modal

  // --- Controls --------------------

  platform::Frame Frame1{this};  // everything; centred in the window
  platform::Shape shpPanel{&Frame1, platform::ShapeKind::kRounded};
  platform::Image imgCas{&Frame1};
  platform::Label Label1{&Frame1};
  platform::Label lblCas{&Frame1};
  platform::Image imgSebr{&Frame1};
  platform::Label Label2{&Frame1};
  platform::Label lblSebr{&Frame1};
  platform::Image imgTreba{&Frame1};
  platform::Label Label4{&Frame1};
  platform::Label lblTreba{&Frame1};
  platform::Image imgBz{&Frame1};
  platform::Label Label7{&Frame1};
  platform::Label lblBz1{&Frame1};
  platform::Image imgBody{&Frame1};
  platform::Label lblBody{&Frame1};
  platform::Label lblName{&Frame1};
  platform::Shape shpRam{&Frame1};
  platform::Frame Ram{&Frame1};  // the window on the cave, 19 x 11 tiles
  platform::PictureBox KOMNATA{&Ram};
  platform::Image pctBlesk{&Ram};
  platform::Frame Picture5{&Ram};  // waits for "Start"
  platform::Label lblStart{&Picture5};
  platform::Label lblDescr{&Picture5};
  platform::Button Command1{&Picture5};
  platform::Frame Picture8{&Ram};  // nobody is left to move: how to go on
  platform::Image imgMrtvej{&Picture8};
  platform::Label lblRestart{&Picture8};
  platform::Frame Picture6{&Frame1};  // the message of the moment
  platform::Shape shpO7{&Picture6, platform::ShapeKind::kRounded};
  platform::Label Message1{&Picture6};
  platform::PictureBox Psi{&Frame1};                              // one small dog for each hero
  platform::Shape Picture7{&Frame1, platform::ShapeKind::kOval};  // the light that pulses while the game runs
  platform::Image imgLamp{&Frame1};                               // its ring and glass
  platform::CheckBox chkRec{&Frame1};
  platform::Image Image2{&Frame1};  // a replay is running
  platform::Label Label5{&Frame1};  // of this set
  platform::Button Command3{&Frame1};
  platform::Button Command4{&Frame1};
  platform::Button EndGame{&Frame1};
  platform::Timer tmrHra;
  platform::Timer tmrMsg{3000};
  platform::Timer tmrSeconds;  // has no handler and is only ever stopped

 private:
  void MakeHooks();
  void MakeControls();
  void LoadPictures(int iconSize);
  void PlaceCounters();
  void FitName();
  void FitMessage();
  void PlaceFooter();
  void PlaceOverlays();
  void PlaceStartPanel();
  void PaintPanels();
  void ShowCounters();
  void ShowHint();
  void ReadCave(const CaveRecord& record);
  void DrawStrip();
  void PaintStrip(int hero, int picture);
  void PaintTransfer(int step, int picture);
  void MoveSurface(double left, double top);
  void ScrollFreely();
  void Flash();
  void ShowPause(const std::string& text, const std::string& title);
  void StopTick();
  void KeyDown(platform::KeyEvent& event);
  int ReadJoystick(platform::JoystickRecord& record);
  void WinGame();
  std::string RecordPath() const;
  void StartReplay();
  void ClearScreen();
  bool ReadReplayLine(std::string& line);
  void TellReplayFault(const std::string& what);
  void LeaveTestPlay(const Fault& fault);
  void TellFault(const Fault& fault);

  std::string folder_;
  const Settings& settings_;
  Hooks hooks_;
  std::unique_ptr<TilePictures> pictures_;
  std::array<platform::Picture, picture::kCount> small_;  // those of the strip
  CavePainter painter_{KOMNATA.surface()};
  platform::Joystick joystick_;
  JoyStick joyStick_{[this](platform::JoystickRecord& record) { return ReadJoystick(record); }};
  double left_ = 0;  // of the surface in Ram, logical pixels
  double top_ = 0;
  std::array<int, 5> scrollAge_{};  // ticks for which an arrow key has been held in free scrolling
  std::vector<std::string> replayLines_;
  std::size_t replayNext_ = 0;
  bool wonInThisTick_ = false;
  bool stoppedByMinimise_ = false;
  bool restartAsked_ = false;  // Ctrl+R went down since the last tick
};

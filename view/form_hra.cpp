// The game window's part of a game: what the rules ask for, carried out on the screen.

#include "view/form_hra.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "cave/names.h"
#include "engine/recording.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "platform/sound.h"
#include "view/caption.h"
#include "view/colours.h"
#include "view/form_analyze.h"
#include "view/sounds.h"

namespace {

constexpr int kStripStep = 25;  // logical pixels of a hero in the strip
constexpr platform::Colour kLampOut = platform::Rgb(0x2A1010);

platform::Colour ScreenColour(std::uint32_t bbggrr) {
  return {static_cast<std::uint8_t>(bbggrr & 0xFF), static_cast<std::uint8_t>(bbggrr >> 8 & 0xFF),
          static_cast<std::uint8_t>(bbggrr >> 16 & 0xFF)};
}

std::uint64_t ClockOfTheDay() {
  return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

}  // namespace

FormHra::FormHra(std::string programFolder, const Settings& settings)
    : Form(platform::Border::kSizable), folder_(std::move(programFolder)), settings_(settings) {
  MakeHooks();
  MakeControls();
  game.hooks = &hooks_;
  game.settings = &settings_;
  game.random = Random(ClockOfTheDay());
}

void FormHra::MakeHooks() {
  hooks_.layOut = [this] {
    FrmLoad();
    Picture8.set_visible(false);
  };
  hooks_.caveRead = [this](const CaveRecord& record) { ReadCave(record); };
  hooks_.loadTint = [this](int tint) {
    pictures_->LoadTint(tint);
    PaintPanels();
  };
  hooks_.sizeCave = [this](int columns, int rows) {
    painter_.Reset(*pictures_, columns, rows);
    KOMNATA.Resize(columns * pictures_->size(), rows * pictures_->size());
  };
  hooks_.showStrip = [this] { DrawStrip(); };
  hooks_.setInterval = [this](int milliseconds) { tmrHra.set_interval(milliseconds); };
  hooks_.paintCell = [this](int x, int y, int picture) { painter_.PaintCell(x, y, picture); };
  hooks_.paintCellTop = [this](int x, int y, int picture, int halves) { painter_.PaintCellTop(x, y, picture, halves); };
  hooks_.paintOverlay = [this](int x, int y, int picture) { painter_.PaintOverlay(x, y, picture); };
  hooks_.paintTransfer = [this](int step, int picture) { PaintTransfer(step, picture); };
  hooks_.paintStrip = [this](int hero, int picture) { PaintStrip(hero, picture); };
  hooks_.showCell = [this](int x, int y) { MoveSurface(idleft(x), idtop(y)); };
  hooks_.scrollFreely = [this] { ScrollFreely(); };
  hooks_.showMessage = [this](const std::string& text, std::uint32_t colour) { ShowMessage(text, colour); };
  hooks_.flash = [this] {
    ShowCounters();
    Flash();
  };
  hooks_.pulse = [this](std::uint32_t colour) { Picture7.set_back_colour(ScreenColour(colour)); };
  hooks_.tickDone = [this] { ShowCounters(); };
  hooks_.playSound = [this](int sound, bool yielding) {
    platform::PlayWave(folder_ + "/" + SoundFile(sound), yielding);
  };
  hooks_.playCountdown = [this](int seconds) { platform::PlayWave(folder_ + "/" + CountdownFile(seconds)); };
  hooks_.keyHeld = [](int virtualKey) { return platform::Held(virtualKey); };
  hooks_.dropKeys = [] {
    for (int code = 0; code < 256; ++code) platform::Held(code);
  };
  hooks_.clock = ClockOfTheDay;
  hooks_.startTimer = [this] { tmrHra.Start(); };
  hooks_.stopTimer = [this] { StopTick(); };
  hooks_.pause = [this] {
    ShowCounters();
    ShowBox(LangStr[97], HeroName);
  };
  hooks_.idlePause = [this] {
    ShowCounters();
    ShowBox(LangStr[100], LangStr[98]);
  };
  hooks_.readReplayLine = [this](std::string& line) { return ReadReplayLine(line); };
  hooks_.won = [this] { WinGame(); };
  hooks_.restart = [this] { Command3_Click(); };
}

// --- Entry points --------------------

void FormHra::OpenCave(int n) {
  pctBlesk.set_visible(false);
  const std::string text = LoadCaveText(SetFile, n);
  game.PlayingReplay = false;
  game.TestPlay = false;
  try {
    PaintCave(text);
  } catch (const Fault& fault) {
    throw Fault("cave " + std::to_string(n) + ": " + fault.what(), SetFile);
  }
}

void FormHra::PaintCave(const std::string& caveText) {
  if (caveText.empty()) Hide();
  game.PaintCave(caveText);
  chkRec.set_value(game.chkRec);
  chkRec.set_enabled(!game.TestPlay);
  chkRec.set_visible(!game.PlayingReplay);
  Image2.set_visible(game.PlayingReplay);
  Label5.set_visible(game.PlayingReplay);
  Picture7.set_back_colour(kLampOut);
  ShowCounters();
  game.ZornéPole();
  PlaceStartPanel();
  Picture5.set_visible(true);
}

void FormHra::Command1_Click() {
  Picture5.set_visible(false);
  Picture8.set_visible(false);
  Command3.set_visible(true);
  game.Command1_Click();
}

void FormHra::Command3_Click() { RestartGame_Click(); }

void FormHra::RestartGame_Click() {
  restartAsked_ = false;
  game.RecordBuffer.clear();
  if (!game.PlayingReplay) {
    if (restartCave) restartCave();
    return;
  }
  game.Score = 0;
  Replay();
}

void FormHra::Command4_Click() {
  const bool running = tmrHra.enabled();
  tmrHra.Stop();
  if (showSettings) showSettings();
  game.ProjedKlv();  // what was pressed in the dialog moves nobody
  tmrHra.set_enabled(running);
}

void FormHra::SetSpeed() {
  const int speed = game.PlayingReplay ? settings_.RychlostZ : settings_.Rychlost;
  tmrHra.set_interval((speed - 1) * 20 + 1);
}

void FormHra::EndGame_Click() {
  StopTick();
  tmrSeconds.Stop();
  Hide();
  if (leave) leave();
}

/// Stops the tick for good: a window that comes back from its icon does not start it again.
void FormHra::StopTick() {
  tmrHra.Stop();
  stoppedByMinimise_ = false;
  restartAsked_ = false;
}

bool FormHra::Form_QueryUnload() {
  EndGame_Click();
  return false;  // the form lives on, hidden
}

void FormHra::Form_Resize() {
  Frame1.MoveTo((width() - Frame1.width()) / 2, (height() - Frame1.height()) / 2);
  if (window_state() == platform::WindowState::kMinimised) {
    stoppedByMinimise_ = stoppedByMinimise_ || tmrHra.enabled();
    tmrHra.Stop();
  } else if (stoppedByMinimise_) {
    stoppedByMinimise_ = false;
    tmrHra.Start();
  }
}

// A win may set up the next cave, so it is told only when the tick has run to its end.
void FormHra::tmrHra_Timer() {
  try {
    game.tmrHra_Timer();
  } catch (const Fault& fault) {
    if (!game.PlayingReplay) throw;
    TellReplayFault("line " + std::to_string(replayNext_ + kFirstTickLine - 1) + ": " + fault.what());
    return;
  }
  ShowHint();
  if (restartAsked_ && !wonInThisTick_) Command3_Click();
  if (!wonInThisTick_) return;
  wonInThisTick_ = false;
  if (!game.PlayingReplay && !game.TestPlay && caveWon) caveWon();
}

void FormHra::KeyDown(platform::KeyEvent& event) {
  if (event.repeated) return;  // a key still held from the cave before starts nothing
  switch (event.code) {
    case platform::kKeyEnter:
    case platform::kKeySpace:
      if (Picture5.visible()) Command1_Click();
      break;
    case platform::kKeyEscape:
      EndGame_Click();
      break;
    case platform::kF1 + 9:
      Command4_Click();
      break;
    case key::kR:
      // The tick sees the two keys only while they are held. A chord struck and let go between two ticks counts, too.
      restartAsked_ = restartAsked_ || (tmrHra.enabled() && (event.shift & platform::kCtrl) != 0);
      break;
    default:
      break;
  }
}

// --- What the rules ask for --------------------

void FormHra::ReadCave(const CaveRecord& record) {
  CaveName = record.Name;
  lblName.set_caption(record.Name);
  FitName();
  lblStart.set_caption(record.Name);
  lblDescr.set_caption(record.Description);
  const CaveMode mode = game.PlayingReplay ? CaveMode::kReplay : game.TestPlay ? CaveMode::kTestPlay : CaveMode::kPlay;
  set_caption(CaveCaption(PlayerName, record.Name, mode));
}

void FormHra::DrawStrip() {
  Psi.surface().Reset(9 * kStripStep, kStripStep, pictures_->ratio(), platform::Application::theme().background);
  for (int i = 1; i <= game.HeroCount; ++i) {
    const bool alive = game.Heroes[static_cast<std::size_t>(i)].alive != 0;
    PaintStrip(i, !alive                  ? picture::kMrtvejPes
                  : i == game.CurrentHero ? picture::kSinglePes
                                          : picture::kMultiPes + i - 1);
  }
  Psi.set_visible(game.HeroCount != 1);
}

void FormHra::PaintStrip(int hero, int picture) {
  const int left = kStripStep * (hero - 1);
  Psi.surface().Fill({left, 0, kStripStep, kStripStep}, platform::Application::theme().background);
  Psi.surface().Copy(small_[static_cast<std::size_t>(picture)], left, 0);
}

// The object shrinks on the entrance and grows on the exit, a quarter of a tile in each of the four ticks.
void FormHra::PaintTransfer(int step, int picture) {
  const int quarters = step - 1;
  painter_.PaintShrunk(game.TeleportSource.x, game.TeleportSource.y, picture, 4 - quarters);
  painter_.PaintShrunk(game.TeleportTarget.x, game.TeleportTarget.y, picture, quarters);
}

void FormHra::MoveSurface(double left, double top) {
  left_ = left;
  top_ = top;
  const int x = static_cast<int>(std::lround(left));
  const int y = static_cast<int>(std::lround(top));
  painter_.SetWindow({-x, -y, Ram.width(), Ram.height()});
  if (KOMNATA.left() != x || KOMNATA.top() != y) KOMNATA.MoveTo(x, y);
}

double FormHra::idleft(int x) const {
  const double left = std::min(-((x + 0.5) - 19 / 2.0) * TileTw, 0.0);
  return std::max(left, 19 * TileTw - game.CaveWidth * TileTw);
}

double FormHra::idtop(int y) const {
  const double top = std::min(-((y + 0.5) - 11 / 2.0) * TileTh, 0.0);
  return std::max(top, 11 * TileTh - game.CaveHeight * TileTh);
}

// The newest held arrow key moves the view. The ages are its own, so that looking around never changes how a hero
// steps.
void FormHra::ScrollFreely() {
  int best = 1000;
  int pick = 0;
  for (int i = 1; i <= 4; ++i) {
    int& age = scrollAge_[static_cast<std::size_t>(i)];
    age = platform::Held(key::kLeft + i - 1) ? age + 1 : 0;
    if (age > 0 && age < best) {
      best = age;
      pick = key::kLeft + i - 1;
    }
  }
  const double step = 1.5 * TileTw;
  const double left = left_ + (pick == key::kLeft ? step : pick == key::kRight ? -step : 0);
  const double top = top_ + (pick == key::kUp ? step : pick == key::kDown ? -step : 0);
  MoveSurface(std::min(std::max(left, -(game.CaveWidth - 19) * TileTw), 0.0),
              std::min(std::max(top, -(game.CaveHeight - 11) * TileTh), 0.0));
}

void FormHra::ShowMessage(const std::string& text, std::uint32_t colour) {
  Picture6.set_visible(false);
  Message1.set_caption(text);
  Message1.set_fore_colour(ScreenColour(colour));
  Message1.set_width(Message1.text_width());
  Picture6.set_width(Message1.width() + 60);
  shpO7.set_width(Picture6.width() - 30);
  shpO7.set_left(15);
  Message1.set_left(30);
  Picture6.set_left((Frame1.width() - Picture6.width()) / 2);
  Picture6.set_visible(true);
  tmrMsg.Start();
}

void FormHra::tmrMsg_Timer() {
  Picture6.set_visible(false);
  tmrMsg.Stop();
}

void FormHra::Flash() {
  if (!visible()) return;
  pctBlesk.set_visible(true);
  pctBlesk.BringToFront();
  platform::Application::PaintAndSleep(5);
  pctBlesk.set_visible(false);
}

void FormHra::ShowBox(const std::string& text, const std::string& title) {
  platform::ShowMessageBox({text, title, platform::BoxButtons::kOk, platform::BoxIcon::kInformation});
}

void FormHra::ShowCounters() {
  lblCas.set_caption(Digits(game.lblCas, 3));
  lblSebr.set_caption(Digits(game.Collected, 3));
  lblTreba.set_caption(Digits(game.Need, 3));
  lblBz1.set_caption(Digits(game.PointsNow, 2));
  lblBody.set_caption(Digits(game.Score, 5));
  if (lblCas.text_width() > lblCas.width() || lblBz1.text_width() > lblBz1.width()) PlaceCounters();
}

/// When nobody is left to move, or the time is out, tells how to go on.
void FormHra::ShowHint() {
  const bool stuck =
      !game.Won && !game.PlayingReplay &&
      (!(game.TimeLimit > game.ElapsedTime) ||
       std::none_of(game.Heroes.begin(), game.Heroes.end(), [](const HeroRecord& hero) { return hero.alive != 0; }));
  if (Picture8.visible() != stuck) Picture8.set_visible(stuck);
}

// --- Winning, recording, replay --------------------

// The screen with the score is modal: the tick stands still in its middle until it is closed, and runs on to its end
// then.
void FormHra::WinGame() {
  replayLines_.clear();
  wonInThisTick_ = true;
  const bool bonus = JeBonus(lblName.caption());
  SaveRecord(game.Sum.Score() + (bonus ? kBonusPoints : 0));
  if (frmAnalyze == nullptr) return;
  frmAnalyze->ShowSum(game.Sum, bonus);
  if (!game.PlayingReplay && !game.TestPlay) frmAnalyze->NastavCas(3);
  frmAnalyze->ShowModal();
}

std::string FormHra::RecordPath() const {
  const std::string name = CistyNazev(SetName + " - " + CaveName);
  return CestaHraci + "/" + ToUtf8(PlayerName, CodePage::k1250) + "/" + ToUtf8(name, CodePage::k1250) + ".zbr";
}

// A record that cannot be written is not given up: the player can make room and try again. The old one stands
// meanwhile.
void FormHra::SaveRecord(int score) {
  if (game.chkRec != 1) return;
  tmrHra.Stop();
  game.ProjedKlv();
  for (;;) {
    try {
      WriteFile(RecordPath(), RecordText(SetName, score, PlayerName, game.RecordBuffer));
      return;
    } catch (const Fault& fault) {
      const std::string text = FromUtf8(fault.message() + "\n\nTry again?", CodePage::k1250);
      const auto answer =
          platform::ShowMessageBox({text, caption(), platform::BoxButtons::kYesNo, platform::BoxIcon::kExclamation});
      if (answer != platform::BoxAnswer::kYes) return;
    }
  }
}

void FormHra::Replay() {
  try {
    StartReplay();
  } catch (const Fault& fault) {
    TellReplayFault(fault.what());
    EndGame_Click();  // there is no cave to look at
  }
}

void FormHra::StartReplay() {
  Recording recording = ReadRecording(ReadFile(CurrentFile));
  Label5.set_caption(recording.setName);
  KOMNATA.surface().Reset(KOMNATA.width(), KOMNATA.height(), platform::Application::PixelRatio());
  Picture6.set_visible(false);
  if (recording.player != PlayerName) {
    platform::ShowMessageBox({LangStr[107] + "\r\n  " + recording.player, LangStr[106], platform::BoxButtons::kOk,
                              platform::BoxIcon::kExclamation});
  }
  game.Score = 0;
  SetName = recording.setName;
  game.PlayingReplay = true;
  replayLines_ = std::move(recording.ticks);
  replayNext_ = 0;
  PaintCave(recording.caveText);
  SetSpeed();
  Image2.set_visible(true);
  Command1_Click();
}

bool FormHra::ReadReplayLine(std::string& line) {
  if (replayNext_ >= replayLines_.size()) {
    if (!game.Won) throw Fault("The record ends before the exit is reached.");
    return false;
  }
  line = replayLines_[replayNext_++];
  return true;
}

void FormHra::TellReplayFault(const std::string& what) {
  tmrHra.Stop();
  const std::string text = FromUtf8(Fault(what, CurrentFile).message(), CodePage::k1250);
  platform::ShowMessageBox({text, caption(), platform::BoxButtons::kOk, platform::BoxIcon::kExclamation});
}

// A win in the game window: the score, the record, and the replay of a record.

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "cave/names.h"
#include "engine/recording.h"
#include "platform/application.h"
#include "platform/message_box.h"
#include "view/form_analyze.h"
#include "view/form_hra.h"

// The screen with the score is modal: the tick stands still in its middle until it is closed, and runs on to its end
// then.
void FormHra::WinGame() {
  replayLines_.clear();
  wonInThisTick_ = true;
  const bool bonus = JeBonus(lblName.caption());
  if (frmAnalyze != nullptr) frmAnalyze->ShowSum(game.Sum, bonus);
  WinScore = game.Sum.Score() + (bonus ? kBonusPoints : 0);
  SaveRecord(WinScore);
  if (frmAnalyze == nullptr) return;
  if (!game.PlayingReplay && !game.TestPlay) frmAnalyze->NastavCas(3);
  frmAnalyze->ShowModal();
}

std::string FormHra::RecordPath() const {
  return PlayerFolder(PlayerName) + "/" + ToUtf8(RecordName(SetName, CaveName), CodePage::k1250);
}

// A record that cannot be written is not given up: the player can make room and try again. The old one stands
// meanwhile.
void FormHra::SaveRecord(int score) {
  if (game.chkRec != 1) return;
  tmrHra.Stop();
  game.ProjedKlv();
  for (;;) {
    try {
      MakeFolder(PlayerFolder(PlayerName));  // somebody may have taken it away meanwhile
      WriteFile(RecordPath(), RecordText(SetName, score, PlayerName, game.RecordBuffer));
      return;
    } catch (const Fault& fault) {
      const std::string text = ShownFault(fault, PageInForce()) + "\n\nTry again?";
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
  // Without a text there is no cave, and no window to come back from.
  if (recording.caveText.empty()) throw Fault("line 3: The record holds no cave.");
  // An empty line begins the replay again. As the first one it would do so for ever, with every box on the way.
  if (!recording.ticks.empty() && recording.ticks.front().empty()) {
    throw Fault("line " + std::to_string(kFirstTickLine) + ": The record holds no tick.");
  }
  Label5.set_caption(Shortened(recording.setName));
  ClearScreen();
  if (recording.player != PlayerName) {
    platform::ShowMessageBox({LangStr[text::kForeignReplay] + "\r\n  " + Shortened(recording.player),
                              LangStr[text::kForeignReplayTitle], platform::BoxButtons::kOk,
                              platform::BoxIcon::kExclamation});
  }
  game.Score = 0;
  SetName = recording.setName;
  game.PlayingReplay = true;
  replayLines_ = std::move(recording.ticks);
  replayNext_ = 0;
  try {
    PaintCave(recording.caveText);
  } catch (const Fault& fault) {
    throw Fault("line 3: " + std::string(fault.what()));
  }
  SetSpeed();
  Image2.set_visible(true);
  Command1_Click();
}

/// The window without a cave, for the question before a replay.
void FormHra::ClearScreen() {
  KOMNATA.SetBounds(0, 0, Ram.width(), Ram.height());
  KOMNATA.surface().Reset(Ram.width(), Ram.height(), platform::Application::PixelRatio());
  for (platform::Control* control :
       std::initializer_list<platform::Control*>{&Picture5, &Picture6, &Picture8, &Psi, &chkRec}) {
    control->set_visible(false);
  }
}

// The lines may end before the exit is reached: the show is over then, and its last picture stands.
bool FormHra::ReadReplayLine(std::string& line) {
  if (replayNext_ >= replayLines_.size()) return false;
  line = replayLines_[replayNext_++];
  return true;
}

void FormHra::TellReplayFault(const std::string& what) {
  tmrHra.Stop();
  TellFault(Fault(what, CurrentFile));
}

void FormHra::TellFault(const Fault& fault) {
  platform::ShowMessageBox(
      {ShownFault(fault, PageInForce()), caption(), platform::BoxButtons::kOk, platform::BoxIcon::kExclamation});
}

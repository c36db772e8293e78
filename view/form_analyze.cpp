#include "view/form_analyze.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/lang_str.h"
#include "base/text.h"
#include "engine/recording.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "view/tile_pictures.h"

namespace {

// The labels in the order of their rows: gems, their points, further gems, their points, time, heroes.
constexpr std::array<std::size_t, 6> kRows = {0, 4, 3, 5, 1, 2};

}  // namespace

FormAnalyze::FormAnalyze(const std::string& programFolder) {
  for (platform::Label& value : lblValue) {
    value.set_alignment(platform::Alignment::kRight);
    value.set_font({18, true, false, false});
  }
  Label2.set_font({20, false, false, false});
  Label2.set_middle(true);
  Label3.set_font({34, true, false, false});
  Label3.set_middle(true);
  Label3.set_alignment(platform::Alignment::kRight);
  Label3.set_fore_colour(platform::Application::theme().accent);
  Label4.set_font({20, true, false, false});
  Label4.set_middle(true);
  Label4.set_alignment(platform::Alignment::kCentre);
  Label4.set_pointer(platform::Pointer::kHand);
  shpLine.set_back_colour(platform::Application::theme().button);
  shpLine.set_line_width(0);
  Image1.set_picture(
      LoadExtra(programFolder + "/pictures", picture::kBonus, 50, 50, platform::Application::PixelRatio()));
  lblBonus.set_caption("+ " + std::to_string(kBonusPoints));
  lblBonus.set_font({18, true, false, false});
  lblBonus.set_fore_colour(platform::Application::theme().accent);
  lblBonus.set_middle(true);
  ShowSum({}, false);
  Command1.set_caption("OK");
  Command1.on_click = [this] { Command1_Click(); };
  Label4.on_click = [this] { Timer1.Stop(); };
  Timer1.on_timer = [this] { Timer1_Timer(); };
  on_close_query = [this] {
    Command1_Click();
    return false;
  };
  // A player comes here with keys still held; only keys that are not part of playing do something.
  set_keys_go_to_game(true);
  on_key_down = [this](platform::KeyEvent& event) {
    if (event.code == platform::kKeyEnter || event.code == platform::kKeyEscape) Command1_Click();
    if (event.code == 'P') Timer1.Stop();
  };
}

void FormAnalyze::ShowSum(const WinSum& sum, bool bonus) {
  const std::string dot = Cp1250(" · ");
  lblValue[0].set_caption(Digits(sum.need, 3));
  lblValue[4].set_caption(dot + Digits(sum.pointsBefore, 2));
  lblValue[3].set_caption(Digits(sum.over, 3));
  lblValue[5].set_caption(dot + Digits(sum.pointsAfter, 2));
  lblValue[1].set_caption(Digits(sum.secondsLeft, 3));
  lblValue[2].set_caption(dot + std::to_string(sum.aliveHeroes));
  Label2.set_caption(lblValue[0].caption() + lblValue[4].caption() + " + " + lblValue[3].caption() +
                     lblValue[5].caption() + " + " + lblValue[1].caption() + lblValue[2].caption() + " = ");
  Label3.set_caption(Digits(sum.Score(), 5));
  Image1.set_visible(bonus);
  lblBonus.set_visible(bonus);
  Label4.set_caption("");
  Place();
}

void FormAnalyze::NastavCas(std::uint8_t n) {
  count_ = n;
  Label4.set_caption(std::to_string(count_));
  Timer1.Start();
}

void FormAnalyze::Timer1_Timer() {
  --count_;
  if (count_ == 0) Command1_Click();
  Label4.set_caption(std::to_string(count_));
}

void FormAnalyze::Command1_Click() {
  Timer1.Stop();
  Hide();
  if (leave) leave();
}

void FormAnalyze::SetLW() {
  set_caption(LangStr[text::kScoreTitle]);
  for (std::size_t i = 0; i < Label1.size(); ++i) Label1[i].set_caption(LangStr[text::kGemsBeforeExit + i]);
  Place();
}

void FormAnalyze::Place() {
  constexpr int kEdge = 24;
  constexpr int kRow = 30;
  constexpr int kValue = 90;
  int caption = 300;
  for (const platform::Label& label : Label1) caption = std::max(caption, label.text_width() + 2);
  const int result = std::max(120, Label3.text_width() + 2);
  const int inner = std::max(caption + kValue, Label2.text_width() + result + 10);
  int top = kEdge;
  for (std::size_t row = 0; row < kRows.size(); ++row) {
    Label1[kRows[row]].SetBounds(kEdge, top + 3, caption, kRow);
    lblValue[kRows[row]].SetBounds(kEdge + inner - kValue, top, kValue, kRow);
    top += kRow + (row % 2 == 1 ? 8 : 0);
  }
  shpLine.SetBounds(kEdge, top, inner, 2);
  top += 12;
  Label2.SetBounds(kEdge, top, inner - result, 48);
  Label3.SetBounds(kEdge + inner - result, top, result, 48);
  top += 62;
  Image1.MoveTo(kEdge, top);
  lblBonus.SetBounds(kEdge + 54, top + 6, lblBonus.text_width() + 2, 38);
  Command1.SetBounds(kEdge + (inner - 140) / 2, top + 6, 140, 38);
  Label4.SetBounds(kEdge + inner - 60, top + 6, 60, 38);
  Resize(inner + 2 * kEdge, top + 50 + kEdge);
}

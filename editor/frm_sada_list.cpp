// The set editor's list of caves.

#include <algorithm>

#include "base/language.h"
#include "cave/cave_text.h"
#include "editor/frm_sada.h"
#include "editor/frm_sada_rows.h"
#include "platform/application.h"
#include "platform/keys.h"

namespace {

constexpr platform::Colour kSelected = platform::Rgb(0x54361F);

}  // namespace

void FrmSada::GetNames(int index) {
  Poc[1] = true;
  for (int i = 1; i <= kHighestCaveNumber; ++i) ShowRow(i);
  VScroll1.set_max(PocetK - kRowsShown);
  VScroll1.set_enabled(PocetK > kRowsShown);
  lblCave_Click(std::min(index, PocetK - 1) + 1);
}

void FrmSada::ShowRow(int i) {
  const auto row = static_cast<std::size_t>(i);
  const bool there = i <= PocetK;
  if (there) {
    platform::Label& cave = *lblCave[row];
    cave.set_caption(ParseCaveText(KomText[row]).Name);
    cave.set_tool_tip(cave.text_width() > cave.width() ? cave.caption() : "");  // of a name that is cut short
    lblPoc[row]->set_caption(Poc[row] ? std::string(1, LanguageLetter) : "");
  }
  shpPoc[row]->set_visible(there);
  for (Column* column : {&lblNum, &lblCave, &lblPoc}) (*column)[row]->set_visible(there);
}

void FrmSada::lblCave_Click(int i) {
  if (i < 1 || i > PocetK) return;
  MarkRow(AktK, false);
  AktK = static_cast<std::uint8_t>(i);
  MarkRow(AktK, true);
  const int first = VScroll1.value();
  VScroll1.set_value(std::clamp(first, i - kRowsShown, i - 1));
  preview.ShowCave(KomText[AktK]);
}

void FrmSada::MarkRow(int i, bool selected) {
  if (i == 0) return;
  const auto row = static_cast<std::size_t>(i);
  const auto ground = selected ? std::optional(kSelected) : std::nullopt;
  lblCave[row]->set_back_colour(ground);
  lblPoc[row]->set_back_colour(ground);
  const platform::Theme& theme = platform::Application::theme();
  lblNum[row]->set_fore_colour(selected ? theme.text : theme.muted_text);
  shpAktK.set_back_colour(kSelected);
  shpAktK.SetBounds(0, lblCave[row]->top(), lblCave[row]->left(), kRow);
}

// A flag alone is no change to be asked about. That is meant.
void FrmSada::lblPoc_Click(int i) {
  const auto row = static_cast<std::size_t>(i);
  Poc[row] = !Poc[row];
  lblPoc[row]->set_caption(Poc[row] ? std::string(1, LanguageLetter) : "");
}

void FrmSada::VScroll1_Change() { Picture2.set_top(-kRow * VScroll1.value()); }

bool FrmSada::ListKeyDown(const platform::KeyEvent& event) {
  if (event.shift != 0) return false;
  switch (event.code) {
    case platform::kKeyUp:
      lblCave_Click(AktK - 1);
      break;
    case platform::kKeyDown:
      lblCave_Click(AktK + 1);
      break;
    case platform::kKeyPageUp:
      lblCave_Click(std::max(AktK - kRowsShown, 1));
      break;
    case platform::kKeyPageDown:
      lblCave_Click(std::min<int>(AktK + kRowsShown, PocetK));
      break;
    case platform::kKeyHome:
      lblCave_Click(1);
      break;
    case platform::kKeyEnd:
      lblCave_Click(PocetK);
      break;
    case platform::kKeyEnter:
      List1_DblClick();
      break;
    case platform::kKeySpace:
      if (lblPoc[AktK]->enabled()) lblPoc_Click(AktK);
      break;
    case platform::kKeyDelete:
      mnuDelete_Click();
      break;
    default:
      return false;
  }
  return true;
}

#include "shell/frm_loading.h"

#include "base/lang_str.h"

namespace {

constexpr int kWidth = 240;
constexpr int kHeight = 84;

}  // namespace

FrmLoading::FrmLoading() : Form(platform::Border::kNone, kWidth, kHeight) {
  Frame1.SetBounds(0, 0, kWidth, kHeight);
  Frame1.set_border(true);
  Label1.SetBounds(8, 8, kWidth - 16, kHeight - 16);
  Label1.set_alignment(platform::Alignment::kCentre);
  Label1.set_middle(true);
  Label1.set_font({20, true, false, false});
  set_caption("Pracuji...");
  Label1.set_caption("Pracuji...");
  on_close_query = [] { return false; };  // who has shown it hides it
}

void FrmLoading::SetLW() {
  set_caption(LangStr[text::kWorking]);
  Label1.set_caption(LangStr[text::kWorking]);
}

#include "shell/frm_dialog2.h"

#include "base/lang_str.h"

namespace {

constexpr int kEdge = 16;
constexpr int kWidth = 520;
constexpr int kText = 246;  // nine lines
constexpr int kButtonWidth = 120;
constexpr int kButtonHeight = 36;

}  // namespace

FrmDialog2::FrmDialog2() : Form(platform::Border::kFixed, kWidth, kText + kButtonHeight + 3 * kEdge) {
  Text1.SetBounds(kEdge, kEdge, kWidth - 2 * kEdge, kText);
  Text1.set_font({16, false, false, false});
  const int top = kText + 2 * kEdge;
  OKButton.SetBounds(kWidth - kEdge - 2 * kButtonWidth - 10, top, kButtonWidth, kButtonHeight);
  CancelButton.SetBounds(kWidth - kEdge - kButtonWidth, top, kButtonWidth, kButtonHeight);
  OKButton.on_click = [this] { OKButton_Click(); };
  CancelButton.on_click = [this] { CancelButton_Click(); };
  on_close_query = [this] {
    if (!Text1.locked()) CancelButton_Click();  // closing the window gives up what was written
    return true;
  };
  ShowG();
}

void FrmDialog2::SetG() {
  Text1.set_locked(false);
  CancelButton.set_visible(true);
  OKButton.set_left(CancelButton.left() - 10 - kButtonWidth);
  set_default_button(nullptr);
  set_cancel_button(&CancelButton);
  Text1.SetFocus();
}

void FrmDialog2::ShowG() {
  Text1.set_locked(true);
  Text1.set_text(Vysledek);
  CancelButton.set_visible(false);
  OKButton.set_left((kWidth - kButtonWidth) / 2);
  set_default_button(&OKButton);
  set_cancel_button(&OKButton);
  OKButton.SetFocus();
}

void FrmDialog2::OKButton_Click() {
  Vysledek = Text1.text();
  Hide();
}

void FrmDialog2::CancelButton_Click() {
  Vysledek.clear();
  Hide();
}

void FrmDialog2::SetLW() {
  set_caption(LangStr[text::kCongratulation]);
  CancelButton.set_caption(LangStr[text::kCancel]);
  Text1.set_accessible_name(LangStr[text::kCongratulation]);
}

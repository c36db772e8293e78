#include "campaign/frm_dialog3.h"

#include "base/code_page.h"
#include "base/lang_str.h"
#include "platform/keys.h"

FrmDialog3::FrmDialog3() : Form(platform::Border::kFixed, 360, 64) {
  constexpr int kEdge = 16;
  Text1.SetBounds(kEdge, kEdge, 218, 34);
  Text1.set_font({16, false, false, false});
  Text1.set_keeps_unknown(true);
  OKButton.SetBounds(kEdge + 228, kEdge, 100, 34);
  OKButton.on_click = [this] { OKButton_Click(); };
  set_default_button(&OKButton);
  // Closed without the button it takes no name.
  on_close_query = [this] {
    Text1.set_text("");
    return true;
  };
  on_key_down = [this](platform::KeyEvent& event) {
    if (event.code == platform::kKeyEscape) Close();
  };
  set_caption(Cp1250("Jméno nového hráče :"));
}

// Hidden and shown again, the button gives the focus up: the next name is typed without a click.
void FrmDialog3::OKButton_Click() {
  for (int flip = 0; flip < 2; ++flip) OKButton.set_visible(!OKButton.visible());
  Vysledek = Text1.text();
  Hide();
}

void FrmDialog3::SetLW() {
  set_caption(LangStr[text::kNewPlayerName]);
  Text1.set_accessible_name(LangStr[text::kNewPlayerName]);
}

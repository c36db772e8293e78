// What the set editor does with the caves of a set, and its keys; files, list and looks stand in files of their own.

#include "editor/frm_sada.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "base/lang_str.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "editor/frm_main.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "shell/frm_dialog2.h"
#include "shell/frm_loading.h"

namespace {

constexpr int kBodyDigits = 5;

/// The number that a text starts with; 0 when it starts with none.
double ValueOf(const std::string& text) {
  double value = 0;
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  std::from_chars(text.data() + first, text.data() + text.size(), value, std::chars_format::fixed);
  return std::isfinite(value) ? value : 0;
}

}  // namespace

// --- Caves --------------------

/// The flag shows in a control that nobody sees.
void FrmSada::SetChanged(bool changed) {
  Changed = changed;
  Chg.set_value(changed ? 1 : 0);
}

void FrmSada::mnuCaves_Click() { mnuPaste.set_enabled(!Schranka.empty()); }

void FrmSada::AddCave(const std::string& caveText) {
  if (Add(caveText)) GetNames(PracK - 1);
}

void FrmSada::mnuAdd_Click(int Index) {
  AddCave(LoadCaveText("*" + std::to_string(Index + 1), 0));
  SetChanged(true);
}

void FrmSada::mnuCopy_Click() { Schranka = KomText[AktK]; }

void FrmSada::mnuPaste_Click() {
  AddCave(Schranka);
  SetChanged(true);
}

void FrmSada::mnuUp_Click() {
  if (!MoveUp()) return;
  GetNames(PracK - 2);
  SetChanged(true);
}

// Counts as a change even when nothing moves. That is meant.
void FrmSada::mnuDown_Click() {
  SetChanged(true);
  if (MoveDown()) GetNames(AktK);
}

void FrmSada::mnuDelete_Click() {
  if (PocetK == 1) return;
  const std::string question =
      LangStr[text::kDeleteCaveBefore] + " '" + lblCave[AktK]->caption() + "' " + LangStr[text::kDeleteCaveBehind];
  const platform::MessageBox box{question, LangStr[text::kDeleteCaveTitle], platform::BoxButtons::kYesDefaultNo,
                                 platform::BoxIcon::kQuestion};
  if (platform::ShowMessageBox(box) != platform::BoxAnswer::kYes) return;
  Delete();
  GetNames(AktK - 1);
  SetChanged(true);
}

void FrmSada::mnuEdit_Click() {
  FrmMain& editor = *forms_.frmMain;
  forms_.frmLoading->ShowNow();
  editor.SetLWEd();
  platform::Surface& surface = editor.EditKom.surface();
  surface.Fill({0, 0, surface.width(), surface.height()}, platform::Colour{});
  platform::Application::PaintAndSleep(0);
  PracK = AktK;
  try {
    editor.OpenCave(KomText[static_cast<std::size_t>(PracK)]);
  } catch (const Fault& fault) {
    forms_.frmLoading->Hide();
    Tell(fault);
    return;
  }
  Hide();
  forms_.frmLoading->Hide();
  editor.SetLWEd();
  editor.Show();
  SetChanged(true);
}

void FrmSada::SetKKKtoK(const std::string& caveText) {
  PracK = AktK;
  KomText[static_cast<std::size_t>(PracK)] = caveText;
  GetNames(0);
  lblCave_Click(PracK);
  List1.SetFocus();
}

// --- Texts --------------------

void FrmSada::mnuGratulace_Click() {
  FrmDialog2& dialog = *forms_.frmDialog2;
  dialog.Text1.set_text(Gratulace);
  dialog.SetG();
  dialog.ShowModal();
  if (dialog.Vysledek.empty()) return;  // given up, or emptied: the old text stays
  SetChanged(true);
  Gratulace = dialog.Vysledek;
}

void FrmSada::Text1_Change() {
  Author = Text1.text();
  SetChanged(true);
}

void FrmSada::Text2_Change() {
  Mail = Text2.text();
  SetChanged(true);
}

void FrmSada::Text3_Change() {
  Name = Text3.text();
  SetChanged(true);
}

void FrmSada::Text4_Change() {
  Description = Text4.text();
  SetChanged(true);
}

void FrmSada::txtBody_GotFocus() { txtBody.Select(0, kBodyDigits); }

// The points are kept for nobody: no file holds them. That is meant.
void FrmSada::txtBody_LostFocus() {
  SetChanged(true);
  if (ValueOf(txtBody.text()) < 0) txtBody.set_text("0");
  const double value = ValueOf(txtBody.text());
  txtBody.set_text(Digits(static_cast<int>(std::lround(value)), kBodyDigits));
  PocBody = value;
}

// --- Keys --------------------

void FrmSada::Form_KeyDown(platform::KeyEvent& event) {
  event.handled = bar_.KeyDown(event) || MenuKeyDown(event) || (List1.has_focus() && ListKeyDown(event));
}

bool FrmSada::MenuKeyDown(const platform::KeyEvent& event) {
  const int code = event.code;
  const bool ctrl = event.shift == platform::kCtrl;
  if (code == platform::kKeyInsert && ctrl) {
    mnuCopy_Click();
    return false;  // a field copies its text as well
  } else if (code == platform::kKeyInsert && event.shift == platform::kShift) {
    if (!Schranka.empty()) mnuPaste_Click();
    return false;  // and a field pastes text
  } else if (code == 'G' && ctrl) {
    mnuGratulace_Click();
  } else if (code == 'N' && ctrl) {
    mnuNew_Click();
  } else if (code == 'O' && ctrl) {
    mnuOpen_Click();
  } else if (code == 'S' && ctrl) {
    mnuSave_Click();
  } else if (code == platform::kF1 + 2) {
    mnuAdd_Click(0);
  } else if (code == platform::kF1 + 3) {
    mnuEdit_Click();
  } else if (code == platform::kF1 + 4) {
    mnuUp_Click();
  } else if (code == platform::kF1 + 5) {
    mnuDown_Click();
  } else if (code == platform::kF1 + 7) {
    mnuDelete_Click();
  } else {
    return false;
  }
  return true;
}

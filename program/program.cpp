#include "program/program.h"

#include <utility>

#include "base/language.h"
#include "campaign/players.h"
#include "platform/application.h"

namespace {

constexpr const char* kNoSet = "/";

Program* running = nullptr;

/// Gives all texts and lists the Cyrillic charset. Nothing takes it back before the next start.
void SetLFont() {
  for (platform::Form* form : platform::Form::All()) {
    platform::ForEachControl(*form, [](platform::Control& control) {
      const bool concerned = dynamic_cast<platform::Label*>(&control) || dynamic_cast<platform::Button*>(&control) ||
                             dynamic_cast<platform::CheckBox*>(&control) ||
                             dynamic_cast<platform::ListBox*>(&control) || dynamic_cast<platform::TextBox*>(&control);
      if (concerned) control.set_charset(platform::Charset::kCyrillic);
    });
  }
}

}  // namespace

Program::Program(std::string folder, std::string executable, std::string dataFolder)
    : frmSettings(folder),
      frmAnalyze(folder),
      hra(folder, frmSettings),
      frmPoSt(folder, forms),
      frmStart2(folder, forms),
      frmSada(folder, forms),
      frmMain(folder, forms),
      frmFormality(folder, forms),
      folder_(std::move(folder)),
      executable_(std::move(executable)),
      dataFolder_(std::move(dataFolder)) {
  forms = {&frmSettings, &hra,      &frmAnalyze,        &frmPoSt, &frmStart2, &frmDialog2,  &frmDialog3,
           &frmLoading,  &frmSLang, &helpMenu.mnuHelpP, &frmSada, &frmMain,   &frmFormality};
  TieForms();
  if (static bool told = false; !std::exchange(told, true)) {
    OnSetLW([] {
      if (running) running->SetLW();
    });
    OnSetLFont([] {
      SetLFont();
      if (running) running->SetLW();  // the same texts are of another width now, and some have their place by it
    });
  }
  running = this;
}

Program::~Program() { running = nullptr; }

/// What the game asks of the forms around it.
void Program::TieForms() {
  hra.frmAnalyze = &frmAnalyze;
  hra.leave = [this] { ShowAfterGame(); };
  hra.restartCave = [this] {
    if (hra.game.TestPlay) {
      frmMain.HraRest();
    } else {
      frmPoSt.Command2_Click();
    }
  };
  hra.hideOverview = [this] { frmPoSt.Hide(); };
  hra.caveWon = [this] { frmPoSt.Prosel(); };
  hra.showSettings = [this] {
    frmSettings.SetSett();
    frmSettings.ShowModal();
  };
  frmAnalyze.leave = [this] {
    hra.tmrHra.Stop();
    hra.Hide();
    ShowAfterGame();
  };
  frmSettings.settingsTaken = [this] { hra.SetSpeed(); };
  helpMenu.showAbout = [this] { frmAbout.ShowModal(); };
  frmStart2.openEditor = [this] {
    frmSada.Show();
    frmStart2.Hide();
    frmSada.mnuNew_Click();
  };
  // The start screen is loaded anew, so that its list of sets is fresh.
  frmSada.leave = [this] {
    frmStart2.FrmLoad();
    frmSada.Hide();
    frmStart2.Show();
  };
  frmSLang.showStart = [this] { frmStart2.Show(); };
}

/// A test play leads back to its author, whatever was played before it.
void Program::ShowAfterGame() {
  if (hra.game.TestPlay) {
    frmMain.SetLWEd();
    frmMain.Show();
  } else if (hra.SetFile == kNoSet) {
    frmStart2.List2_Click();  // a record from anywhere was played by nobody; the player is back now
    frmStart2.Show();
  } else {
    frmPoSt.SetLWPost();
    frmPoSt.Show();
  }
}

void Program::Main() {
  frmStart2.FindSett();
  frmLoading.ShowNow();
  SetFolders(folder_, executable_, dataFolder_);
  frmStart2.FrmLoad();
  hra.FrmLoad();
  frmPoSt.FrmLoad();
  frmSada.FrmLoad();
  frmFormality.FrmLoad();
  frmMain.FrmLoad();
  frmLoading.Hide();
  frmStart2.Show();
}

void Program::SetLW() {
  platform::Application::set_language(LogoNumber == 1 ? "cs" : LogoNumber == 3 ? "ru" : "en");
  platform::Application::set_default_charset(platform::CharsetOf(PageInForce()));
  hra.SetLW();
  frmAnalyze.SetLW();
  frmSettings.SetLW();
  frmStart2.SetLW();
  frmDialog2.SetLW();
  frmDialog3.SetLW();
  frmLoading.SetLW();
  frmSLang.SetLW();
  helpMenu.SetLW();
  frmAbout.SetLW(frmStart2.Image7.picture());
  frmPoSt.SetLWPost();
  frmSada.SetLW();
  frmMain.SetLWEd();
}

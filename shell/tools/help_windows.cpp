// help_windows: pictures of the program's windows for the help, as a player finds them after a few caves.

#include <iostream>
#include <string>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/language.h"
#include "campaign/players.h"
#include "cave/scramble.h"
#include "engine/recording.h"
#include "own_home.h"
#include "platform/application.h"
#include "platform/testing.h"
#include "shell/program.h"

namespace {

constexpr const char* kUsage =
    "Usage: help_windows LANGUAGE.zbl PLAYER PREFIX\n"
    "\n"
    "Saves pictures of the windows in a language: start, overview, settings, both editors and the properties of a\n"
    "cave, each with PREFIX before its name. The player has won the first caves of the shipped set.\n";

constexpr int kCavesWon = 5;
constexpr int kSelected = 6;
constexpr int kEdited = 10;

/// The shipped record of a cave as the player's own.
void CopyRecord(const FrmPoSt& overview, std::size_t cave, const std::string& player) {
  const std::string name = RecordName(overview.Name, overview.KomRec[cave].Name);
  const Recording shipped =
      ReadRecording(ReadFile(FindPath(std::string(ZORBIK_PROGRAM_DATA "/Záznamy/") + ToUtf8(name, CodePage::k1250))));
  std::string buffer = Scramble(shipped.caveText) + "\r\n";
  for (const std::string& tick : shipped.ticks) buffer += tick + "\r\n";
  WriteFile(PlayerFolder(player) + "/" + ToUtf8(name, CodePage::k1250),
            RecordText(shipped.setName, shipped.score, player, buffer));
}

void Save(const platform::Form& form, const std::string& file) {
  platform::user::Wait(50);
  platform::user::Grab(form).SavePng(file);
}

void ShootEditors(Program& program, const std::string& prefix) {
  program.frmSada.OpenColl(ZORBIK_PROGRAM_DATA "/Komnaty/Komnaty.zb");
  program.frmSada.lblCave_Click(kEdited);
  program.frmSada.Show();
  Save(program.frmSada, prefix + "editor_set.png");
  program.frmSada.mnuEdit_Click();
  Save(program.frmMain, prefix + "editor_cave.png");
  program.frmMain.SetProps();
  program.frmFormality.Show();
  Save(program.frmFormality, prefix + "properties.png");
  program.frmFormality.Hide();
  program.frmMain.Hide();
}

void Shoot(const std::string& language, const std::string& player, const std::string& prefix) {
  const OwnHome home(language, player);
  Program program(ZORBIK_PROGRAM_DATA, "zorbik", home.data());
  program.Main();
  program.frmStart2.Label1_Click();
  Save(program.frmStart2, prefix + "start.png");

  const std::string name = FromUtf8(player, PageInForce());
  program.frmStart2.Command3_Click();
  for (std::size_t cave = 1; cave <= kCavesWon; ++cave) CopyRecord(program.frmPoSt, cave, name);
  program.frmStart2.Command3_Click();
  program.frmPoSt.lblCave_Click(kSelected);
  Save(program.frmPoSt, prefix + "overview.png");

  ShootEditors(program, prefix);

  program.frmSettings.SetSett();
  program.frmSettings.Show();
  Save(program.frmSettings, prefix + "settings.png");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << kUsage;
    return 2;
  }
  platform::user::UseOffscreen(1024, 768);
  platform::Application application(argc, argv, "help_windows");
  try {
    Shoot(argv[1], argv[2], argv[3]);
  } catch (const Fault& fault) {
    std::cerr << "help_windows: " << fault.message() << '\n';
    return 1;
  }
  return 0;
}

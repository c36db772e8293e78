// help_windows: pictures of the program's windows for the help, as a player finds them after a few caves.

#include <algorithm>
#include <string>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/language.h"
#include "campaign/players.h"
#include "cave/names.h"
#include "cave/scramble.h"
#include "cave/set_file.h"
#include "engine/recording.h"
#include "own_home.h"
#include "platform/application.h"
#include "platform/testing.h"
#include "program/program.h"
#include "tools/command_line.h"

namespace {

const std::string kSets = ZORBIK_PROGRAM_DATA "/Komnaty/";
constexpr std::size_t kCavesWon = 5;
constexpr int kSelected = 6;
constexpr int kEdited = 10;
constexpr std::size_t kPack = 18;

struct Arguments {
  std::string language;
  std::string set;
  std::string player;
  std::string prefix;
  std::string record;
};

/// The shipped record of a cave as the player's own in the set that the overview shows. The records are those of the
/// Czech set; the same caves have other texts in another language.
std::string OwnRecord(const FrmPoSt& overview, std::size_t cave, const std::string& player) {
  PlayedSet czech;
  LoadColl(kSets + "Komnaty.zb", czech);
  const std::string name = ToUtf8(RecordName(czech.Name, czech.KomRec[cave].Name), CodePage::k1250);
  const Recording shipped = ReadRecording(ReadFile(FindPath(ZORBIK_PROGRAM_DATA "/Záznamy/" + name)));
  std::string buffer = Scramble(overview.KomText[cave]) + "\r\n";
  for (const std::string& tick : shipped.ticks) buffer += tick + "\r\n";
  return RecordText(overview.Name, shipped.score, player, buffer);
}

void WinCaves(const FrmPoSt& overview, const std::string& player) {
  for (std::size_t cave = 1; cave <= kCavesWon; ++cave) {
    const std::string name = ToUtf8(RecordName(overview.Name, overview.KomRec[cave].Name), CodePage::k1250);
    WriteFile(PlayerFolder(player) + "/" + name, OwnRecord(overview, cave, player));
  }
}

void Save(const platform::Form& form, const std::string& file) {
  platform::user::Wait(50);
  platform::user::Grab(form).SavePng(file);
}

void ShootEditors(Program& program, const Arguments& words) {
  program.frmSada.OpenColl(kSets + words.set);
  program.frmSada.lblCave_Click(kEdited);
  program.frmSada.Show();
  Save(program.frmSada, words.prefix + "editor_set.png");
  program.frmSada.mnuEdit_Click();
  Save(program.frmMain, words.prefix + "editor_cave.png");
  program.frmMain.SetProps();
  program.frmFormality.Show();
  Save(program.frmFormality, words.prefix + "properties.png");
  program.frmFormality.Hide();
  program.frmMain.Hide();
}

void Shoot(const Arguments& words) {
  const OwnHome home(words.language, words.player);
  Program program(ZORBIK_PROGRAM_DATA, "zorbik", home.data());
  program.Main();
  FrmStart2& start = program.frmStart2;
  start.Label1_Click();
  const auto set = std::find(start.File1.begin(), start.File1.end(), kSets + words.set);
  if (set == start.File1.end()) throw Fault("There is no such set.", kSets + words.set);
  start.List1.set_list_index(static_cast<int>(set - start.File1.begin()));
  Save(start, words.prefix + "start.png");

  const std::string player = FromUtf8(words.player, PageInForce());
  start.Command3_Click();
  WinCaves(program.frmPoSt, player);
  WriteFile(words.record, OwnRecord(program.frmPoSt, kPack, player));
  start.Command3_Click();
  program.frmPoSt.lblCave_Click(kSelected);
  Save(program.frmPoSt, words.prefix + "overview.png");

  ShootEditors(program, words);

  program.frmSettings.SetSett();
  program.frmSettings.Show();
  Save(program.frmSettings, words.prefix + "settings.png");
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Saves pictures of the program's windows, as a player finds them after a few caves.", "help_windows");
  Arguments words;
  app.add_option("LANGUAGE.zbl", words.language)->required();
  app.add_option("SET.zb", words.set, "the set for beginners in this language, whose first caves are won")->required();
  app.add_option("PLAYER", words.player)->required();
  app.add_option("PREFIX", words.prefix, "stands before the name of each picture")->required();
  app.add_option("RECORD.zbr", words.record, "is written, for a picture of the game: the pack of dogs")->required();
  return RunCommand(app, argc, argv, [&] {
    platform::user::UseOffscreen(1024, 768);
    platform::Application application(argc, argv, "help_windows");
    Shoot(words);
    return 0;
  });
}

#pragma once

// A user's desk for tests of the whole program: its folder, its players, sets and records.

#include <filesystem>
#include <memory>
#include <string>

#include "base/code_page.h"
#include "base/files.h"
#include "base/folders.h"
#include "cave/names.h"
#include "cave/scramble.h"
#include "engine/recording.h"
#include "kit/boxes.h"
#include "kit/caves.h"
#include "kit/temp_folder.h"
#include "platform/registry.h"
#include "platform/testing.h"
#include "program/program.h"
#include "shell/registry_values.h"

inline const std::string kData = ZORBIK_PROGRAM_DATA;

/// A folder "game" with the program's data and no player or set, and a store of its own for the settings.
class Desk : public TempFolder {
 public:
  Desk() {
    namespace fs = std::filesystem;
    platform::Registr::SetFolder(Path("config"));
    for (const char* folder : {"config", "game/Komnaty"}) fs::create_directories(Path(folder));
    fs::create_symlink(kData + "/pictures", Path("game/pictures"));
    for (const char* language : {"cestina.zbl", "english.zbl", "russian.zbl"}) {
      fs::copy_file(kData + "/" + language, Path(std::string("game/") + language));
    }
  }

  void AddSet(const std::string& file, EditedSet set) const { SaveColl(Path("game/Komnaty/" + file), set); }
  void AddPlayer(const std::string& name) const { std::filesystem::create_directories(Path("game/Hráči/" + name)); }
  /// A record of a cave as SetOf makes it, in the folder of a player. number: behind the cave's text.
  void AddRecord(const std::string& folder, const std::string& set, const std::string& cave, const std::string& player,
                 int score, int number = 1, int seconds = 100) const {
    const std::string text = BuildCaveText(WonByOneStep(cave, seconds)) + CaveTail(number);
    WriteFile(Path("game/Hráči/" + folder + "/" + Utf8(RecordName(set, cave))),
              RecordText(set, score, player, Scramble(text) + "\r\n"));
  }

  /// Starts the program with its language chosen before.
  Program& Start(const std::string& language = "cestina.zbl") {
    CreateProgramKey();
    WriteText(registry::kJazyk, language);
    Run();
    return *program;
  }
  void Run(const std::string& executable = "zorbik", const std::string& dataFolder = {}) {
    program.reset();
    program = std::make_unique<Program>(Path("game"), executable, dataFolder);
    program->Main();
    platform::user::WaitUntil([this] { return platform::user::HasInput(program->frmStart2); });
  }
  /// Opens the set editor from the start screen.
  void OpenEditor() {
    platform::user::Click(program->frmStart2.Image5, 70, 30);
    platform::user::WaitUntil([this] { return platform::user::HasInput(program->frmSada); });
  }

  std::unique_ptr<Program> program;
};

#pragma once

// A user's desk for tests of the whole program: its folder, the answers to its boxes, the order of what is done.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/testing.h"
#include "shell/program.h"
#include "shell/registry_values.h"
#include "temp_folder.h"

inline std::string Utf8(const std::string& text) { return ToUtf8(text, CodePage::k1250); }

/// Answers boxes while it exists and keeps what they said.
class Boxes {
 public:
  explicit Boxes(std::vector<platform::BoxAnswer> answers = {}) : answers_(std::move(answers)) {
    platform::SetBoxResponder([this](const platform::MessageBox& box) {
      texts.push_back(Utf8(box.title + ": " + box.text));
      if (next_ < answers_.size()) return answers_[next_++];
      return box.buttons == platform::BoxButtons::kOk ? platform::BoxAnswer::kOk : platform::BoxAnswer::kNo;
    });
  }
  ~Boxes() { platform::SetBoxResponder({}); }
  Boxes(const Boxes&) = delete;
  Boxes& operator=(const Boxes&) = delete;

  std::vector<std::string> texts;

 private:
  std::vector<platform::BoxAnswer> answers_;
  std::size_t next_ = 0;
};

/// Does these things one after another, each with the box or dialog that is then in front.
inline void InTurn(std::vector<std::function<void()>> actions) {
  if (actions.empty()) return;
  platform::user::WhenFront([actions = std::move(actions)]() mutable {
    const auto first = actions.front();
    actions.erase(actions.begin());
    first();
    InTurn(std::move(actions));
  });
}

/// A folder with the program's data, one player, and a store of its own for the settings.
class EditorDesk : public TempFolder {
 public:
  /// Starts the program and opens the set editor from its start screen.
  explicit EditorDesk(const std::string& language = "cestina.zbl") {
    namespace fs = std::filesystem;
    platform::Registr::SetFolder(Path("config"));
    for (const char* folder : {"config", "game/Komnaty", "game/Hráči/Karel"}) fs::create_directories(Path(folder));
    const std::string data = ZORBIK_PROGRAM_DATA;
    fs::create_symlink(data + "/pictures", Path("game/pictures"));
    fs::copy_file(data + "/" + language, Path("game/" + language));
    CreateProgramKey();
    WriteText(registry::kJazyk, language);
    program = std::make_unique<Program>(Path("game"), "zorbik", "");
    program->Main();
    platform::user::WaitUntil([this] { return platform::user::HasInput(program->frmStart2); });
    OpenEditor();
  }
  void OpenEditor() {
    platform::user::Click(program->frmStart2.Image5, 70, 30);
    platform::user::WaitUntil([this] { return platform::user::HasInput(program->frmSada); });
  }

  std::unique_ptr<Program> program;
};

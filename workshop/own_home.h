#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/fault.h"
#include "shell/registry_values.h"

/// A folder of its own for all that the program writes while a tool runs it, gone in the end. The program finds a
/// language and a player there and asks for neither.
class OwnHome {
 public:
  /// language: the file's name. player: UTF-8.
  OwnHome(const std::string& language, const std::string& player) {
    std::string pattern = (std::filesystem::temp_directory_path() / "zorbik-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw Fault("There is no temporary folder.");
    path_ = pattern;
    setenv("XDG_CONFIG_HOME", (path_ / "config").c_str(), 1);
    CreateProgramKey();
    WriteText(registry::kJazyk, language);
    std::filesystem::create_directories(data() + "/Hráči/" + player);
  }
  ~OwnHome() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  OwnHome(const OwnHome&) = delete;
  OwnHome& operator=(const OwnHome&) = delete;

  /// The user's folder for data.
  std::string data() const { return (path_ / "data").string(); }

 private:
  std::filesystem::path path_;
};

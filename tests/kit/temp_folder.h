#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

/// An empty folder of a test's own, gone with all it holds at the end of the test.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zorbik-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string path() const { return path_.string(); }
  std::string Path(const std::string& name) const { return (path_ / name).string(); }

  /// Makes a file and the folders on the way to it.
  std::string Make(const std::string& name, const std::string& contents = "") const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(Path(name), std::ios::binary) << contents;
    return Path(name);
  }

 private:
  std::filesystem::path path_;
};

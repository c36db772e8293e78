#include "campaign/players.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/utf8.h"
#include "cave/names.h"
#include "engine/recording.h"

namespace {

constexpr std::size_t kTailLength = 5;  // "---" and two digits

/// The folder as it is there, be it in other case, or as it would be made.
std::string FolderIn(const std::string& parent, const std::string& name) {
  std::string folder = std::string(parent).append("/").append(name);
  const std::string found = FindPath(folder);
  return found.empty() ? folder : found;
}

/// The folder if a file lies in it, otherwise the program's own.
std::string FolderWithFiles(const std::string& programFolder, const std::string& name) {
  const std::string folder = FolderIn(programFolder, name) + "/";
  return ListFiles(folder, "").empty() ? programFolder + "/" : folder;
}

std::string_view Trim(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// A record does not tell the page of the name in it. Its own player wrote it in the page of his own name.
bool SamePlayer(std::string_view in_record, std::string_view player, CodePage page) {
  return ToLower(Trim(in_record), page) == ToLower(Trim(player), page);
}

}  // namespace

void SetFolders(const std::string& programFolder, std::string_view executable, const std::string& dataFolder) {
  const bool english = ToLower(executable.substr(0, 2), CodePage::k1250) == "bo";
  const std::string sets = english ? "Caves" : "Komnaty";
  CestaKomnaty = FolderWithFiles(programFolder, sets);
  CestaZaznamy = FolderWithFiles(programFolder, english ? "Records" : "Záznamy");
  CestaHraci = FolderIn(dataFolder.empty() ? programFolder : dataFolder, english ? "Players" : "Hráči");
  OwnSets = dataFolder.empty() ? CestaKomnaty : FolderIn(dataFolder, sets) + "/";
}

std::string UserDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return std::string(data) + "/zorbik";
  const char* home = std::getenv("HOME");
  return std::string(home != nullptr ? home : "") + "/.local/share/zorbik";
}

bool CanWriteTo(const std::string& folder) { return access(folder.c_str(), W_OK | X_OK) == 0; }

std::vector<std::string> ListPlayers() {
  std::vector<std::string> players;
  for (const std::string& folder : ListFolders(CestaHraci)) {
    for (const CodePage page : {CodePage::k1250, CodePage::k1251}) {
      const std::string name = FromUtf8(folder, page);
      if (ToUtf8(name, page) != folder) continue;
      players.push_back(name);
      break;
    }
  }
  return players;
}

bool MakePlayer(const std::string& player) {
  if (Trim(player).empty()) return false;
  const std::string folder = PlayerFolder(player);
  if (!FindPath(folder).empty()) return false;
  std::error_code error;
  return std::filesystem::create_directories(folder, error);
}

PlayerRecords::PlayerRecords(const std::string& player) : player_(player), page_(PlayerPage(player)) {
  folder_ = FindPath(PlayerFolder(player));
  if (folder_.empty()) return;
  for (std::string& file : ListFiles(folder_, ".zbr")) {
    std::u32string key = CaseKey(file);
    files_[std::move(key)].push_back(std::move(file));
  }
}

/// The name in small letters goes before the same one in other case.
std::string PlayerRecords::FileOf(const std::string& name) const {
  const auto files = files_.find(CaseKey(name));
  if (files == files_.end()) return {};
  const std::vector<std::string>& names = files->second;
  return std::find(names.begin(), names.end(), name) != names.end() ? name : names.front();
}

CaveRecordState PlayerRecords::Read(const std::string& setName, const std::string& caveName,
                                    std::string_view caveText) const {
  const std::string name = FileOf(ToUtf8(ToLower(RecordName(setName, caveName), CodePage::k1250), CodePage::k1250));
  if (name.empty()) return {};
  const std::string path = folder_ + "/" + name;
  Recording recording;
  try {
    recording = ReadRecording(ReadFile(path));
    if (recording.caveText.size() < kTailLength) throw Fault("Line 3 holds no cave.");
  } catch (const Fault& fault) {
    throw Fault(fault.what(), path);
  }
  const auto cells = [](std::string_view text) { return text.substr(0, text.size() - kTailLength); };
  if (cells(recording.caveText) != cells(caveText)) return {};
  return {SamePlayer(recording.player, player_, page_) ? Verdict::kOwn : Verdict::kForeign, recording.score};
}

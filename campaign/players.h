#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page.h"

// A player is a folder, and what a player has reached is nothing but the record files in it. Names are
// single-byte text, paths UTF-8.

/// Sets the folders of base/folders.h.
/// programFolder: the executable's, without "/" at its end. executable: its name; beginning with "bo", in capitals too,
/// it gets folders with English names. dataFolder: where players and own sets go instead when the program's folder
/// cannot be written; empty when it can.
void SetFolders(const std::string& programFolder, std::string_view executable, const std::string& dataFolder = {});

/// The user's folder for the data of this game, by the rules of the desktop: $XDG_DATA_HOME/zorbik, or
/// ~/.local/share/zorbik.
std::string UserDataFolder();

/// The program may make files in this folder.
bool CanWriteTo(const std::string& folder);

/// The players, sorted by their folders' names. Their names are in code page 1250 or, where that lacks a letter, in
/// 1251; see PlayerPage. A folder whose name neither page can tell is no player.
std::vector<std::string> ListPlayers();

/// Makes a player's folder. False when that fails, also when there is such a folder already, be it in other case, and
/// for a name of nothing but blanks.
bool MakePlayer(const std::string& player);

/// What a record says of a cave.
enum class Verdict {
  kNone,     // there is none, or it is of another cave
  kOwn,      // the player's own
  kForeign,  // another player's
};

struct CaveRecordState {
  Verdict verdict = Verdict::kNone;
  int score = 0;
};

/// The records of a player as they lie in the folder when this is made: it is listed once for a whole set.
class PlayerRecords {
 public:
  explicit PlayerRecords(const std::string& player);

  /// Reads what there is about a cave. caveText: the cave's line in its set, with its tail; the tail alone may differ.
  /// Throws Fault when the file has fewer than three lines or no cave in the third, or cannot be read.
  CaveRecordState Read(const std::string& setName, const std::string& caveName, std::string_view caveText) const;

 private:
  std::string FileOf(const std::string& name) const;

  std::string player_;
  CodePage page_;
  std::string folder_;
  std::map<std::u32string, std::vector<std::string>> files_;  // names of one key differ in case alone
};

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cave/cave_record.h"
#include "cave/cave_text.h"

// A cave set is a file of coded lines: title and start points; author and description; e-mail and format mark; the
// caves, each with its number behind "---"; the congratulation. Two readers take it apart, and they differ on purpose:
// the editor goes by the numbers of the caves, the player's overview by their order in the file.

/// The lines of a set file, decoded; single-byte texts that may hold any byte, line breaks included.
struct SetLines {
  std::string file;  // the path, for messages
  std::vector<std::string> lines;
};

/// Reads and decodes a set file; a file that was never coded gives some other text. Throws Fault when it cannot be
/// read.
SetLines ReadSetLines(const std::string& path);

/// Codes the lines and writes them safely. Throws Fault, and leaves the old file, when that fails.
void WriteSetLines(const std::string& path, const std::vector<std::string>& lines);

/// Takes a line apart that starts with a length: as many characters, or fewer when the line is shorter, and the rest.
/// False when there is no length.
bool SplitByLength(std::string_view line, std::string& first, std::string& rest);

/// The highest number of a cave: its tail has two digits.
inline constexpr int kHighestCaveNumber = 99;
/// The set editor adds caves up to this count.
inline constexpr int kMostCavesAdded = 91;
/// Title, author and mail; at least one line follows.
inline constexpr std::size_t kHeadLines = 3;

/// The character that makes a cave, 0..99, a start point, and the number that such a character stands for, which is out
/// of that range when it is no start point.
inline constexpr int kStartBase = 64;
constexpr char StartPoint(int number) { return static_cast<char>(number + kStartBase); }
constexpr int CaveOfStartPoint(char c) { return static_cast<unsigned char>(c) - kStartBase; }
constexpr bool IsStartPoint(char c) { return CaveOfStartPoint(c) >= 0 && CaveOfStartPoint(c) <= kHighestCaveNumber; }

/// The format mark of this format, and the lowest one of later formats.
inline constexpr char kMark = '0';
inline constexpr char kLaterMark = 'Q';

/// True when the line ends in "---" and two more characters, whatever these are.
bool HasCaveTail(std::string_view line);

/// True when the line ends in "---" and two digits, whose value is then put into number (0..99).
bool CaveNumberOf(std::string_view line, int& number);

/// A set under edit. It is kept from one file to the next: what a file does not mention stays as it was.
struct EditedSet {
  std::string Name;
  std::string Author;
  std::string Mail;
  std::string Description;
  std::uint8_t PocetK = 0;               // caves in the set, 0..99
  std::array<std::string, 101> KomText;  // cave texts without tails, from entry 1 on
  std::array<bool, 100> Poc{};           // true: the cave is a start point, open from the first visit
  std::string Gratulace;                 // said when the set is finished
};

/// The lines of a set as SaveColl writes them. Throws Fault when a name is longer than kLargestSmallNumber or the set
/// has more than kHighestCaveNumber caves.
std::vector<std::string> LinesOf(const EditedSet& set);

/// Writes the set; makes cave 1 a start point first. Throws Fault, and leaves the old file, when LinesOf does or the
/// file cannot be written.
void SaveColl(const std::string& path, EditedSet& set);

enum class OpenResult {
  kOpened,
  kLaterFormat,  // the format mark is none of ours: only the start points are read, all four texts are
                 // LangStr[text::kLaterFormatText]
};

/// Reads a set for the editor: each cave goes to the entry of its number, and entries of missing numbers keep what they
/// held; lines that are no caves are skipped; the last line is the congratulation even when it is a cave as well.
/// Throws Fault when the file cannot be read, has fewer than four lines or holds an impossible length or start point.
OpenResult OpenColl(const std::string& path, EditedSet& set);
OpenResult OpenColl(const SetLines& file, EditedSet& set);

/// States of a cave in `StavK`.
enum CaveState : std::uint8_t { Locked = 0, Open = 1, Passed = 2, ForeignRecord = 3 };

/// A set as it is played. It is kept from one file to the next, see Gratulace. About 420 kB: no place for it on a
/// stack.
struct PlayedSet {
  std::string Name;
  std::string Author;
  std::string Mail;
  std::string Description;
  std::uint8_t PocetK = 0;                // caves in the set, 0..98
  std::array<std::uint8_t, 100> StavK{};  // CaveState of each cave, from entry 1 on
  std::array<CaveRecord, 100> KomRec;     // the caves, from entry 1 on
  std::array<std::string, 100> KomText;   // their lines with tails; entry PocetK + 1 holds the congratulation
  std::string Gratulace;                  // said when the set is finished
};

/// Reads a set for playing: the caves are numbered in file order whatever their tails say, any format mark is accepted,
/// and `StavK` is Open for start points, Locked for all others. When the very last line is a cave, the congratulation
/// is what the entry of `KomText` behind it holds: nothing, or a text left there by a set loaded earlier. Throws Fault
/// when the file cannot be read, has fewer than four lines, holds an impossible length or start point, a damaged cave,
/// or more caves than fit.
void LoadColl(const std::string& path, PlayedSet& set);
void LoadColl(const SetLines& file, PlayedSet& set);

/// The name in the first line of a set file. Never fails: a broken file gives a garbled or an empty name.
std::string ReadSetName(const std::string& path);

/// The same for the coded first line itself.
std::string SetNameIn(std::string_view codedLine);

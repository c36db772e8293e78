#include "cave/set_file.h"

#include <algorithm>
#include <cstddef>

#include "base/fault.h"
#include "base/files.h"
#include "base/lang_str.h"
#include "cave/scramble.h"

namespace {

int CodeOf(char c) { return static_cast<unsigned char>(c); }

/// Hands out the lines of a set in order.
class Lines {
 public:
  explicit Lines(const SetLines& file) : file_(file) {}

  const std::string& Next() {
    if (AtEnd()) {
      Fail("The file ends before its line " + std::to_string(next_ + 1) + "; a set has at least " +
           std::to_string(kHeadLines + 1) + ".");
    }
    return file_.lines[next_++];
  }

  bool AtEnd() const { return next_ == file_.lines.size(); }

  [[noreturn]] void Fail(const std::string& what) const { throw Fault(what, file_.file); }

  [[noreturn]] void FailInLine(const std::string& what) const { Fail("Line " + std::to_string(next_) + ": " + what); }

 private:
  const SetLines& file_;
  std::size_t next_ = 0;
};

void SplitNext(Lines& lines, std::string& first, std::string& rest) {
  if (!SplitByLength(lines.Next(), first, rest)) {
    lines.FailInLine("it does not start with the length of a name. This is no cave set, or it is damaged.");
  }
}

void CheckStartPoint(const Lines& lines, char c) {
  if (IsStartPoint(c)) return;
  lines.FailInLine("it makes cave " + std::to_string(CaveOfStartPoint(c)) + " a start point; only 0 to " +
                   std::to_string(kHighestCaveNumber) + " are possible.");
}

/// Line 3: the e-mail address; gives back the format mark behind it.
char ReadMail(Lines& lines, std::string& mail) {
  const std::string& line = lines.Next();
  if (line.empty()) lines.FailInLine("it is empty, the format mark is missing.");
  mail = line.substr(0, line.size() - 1);
  return line.back();
}

/// Reads the first three lines into the texts of a set, calls start(n) for each start cave n, 0..99, and gives back the
/// format mark.
template <class Set, class Start>
char ReadHead(Lines& lines, Set& set, Start start) {
  std::string starts;
  SplitNext(lines, set.Name, starts);
  for (const char c : starts) {
    CheckStartPoint(lines, c);
    start(static_cast<std::size_t>(CaveOfStartPoint(c)));
  }
  SplitNext(lines, set.Author, set.Description);
  return ReadMail(lines, set.Mail);
}

CaveRecord ParseCave(const Lines& lines, const std::string& text) {
  try {
    return ParseCaveText(text);
  } catch (const Fault& fault) {
    lines.FailInLine(fault.what());
  }
}

}  // namespace

SetLines ReadSetLines(const std::string& path) {
  SetLines file{path, SplitLines(ReadFile(path))};
  for (std::string& line : file.lines) line = Unscramble(line);
  return file;
}

void WriteSetLines(const std::string& path, const std::vector<std::string>& lines) {
  std::string contents;
  for (const std::string& line : lines) contents += Scramble(line) + "\r\n";
  WriteFile(path, contents);
}

bool SplitByLength(std::string_view line, std::string& first, std::string& rest) {
  if (line.empty() || CodeOf(line.front()) < kSmallNumberBase) return false;
  const auto length = static_cast<std::size_t>(CodeOf(line.front()) - kSmallNumberBase);
  line.remove_prefix(1);
  first = line.substr(0, length);
  rest = line.substr(first.size());
  return true;
}

bool HasCaveTail(std::string_view line) {
  return line.size() >= kCaveTailLength && line.substr(line.size() - kCaveTailLength, 3) == "---";
}

bool CaveNumberOf(std::string_view line, int& number) {
  if (!HasCaveTail(line)) return false;
  const std::string_view digits = line.substr(line.size() - 2);
  if (digits.find_first_not_of("0123456789") != std::string_view::npos) return false;
  number = (digits[0] - '0') * 10 + (digits[1] - '0');
  return true;
}

std::vector<std::string> LinesOf(const EditedSet& set) {
  if (set.PocetK > kHighestCaveNumber) {
    throw Fault("The set has more than " + std::to_string(kHighestCaveNumber) + " caves.");
  }
  std::string starts;
  for (int i = 1; i <= set.PocetK; ++i) {
    if (set.Poc[static_cast<std::size_t>(i)]) starts += StartPoint(i);
  }
  std::vector<std::string> lines{WithLength(set.Name, "The name of the set") + starts,
                                 WithLength(set.Author, "The author's name") + set.Description, set.Mail + kMark};
  for (std::size_t i = 1; i <= set.PocetK; ++i) lines.push_back(set.KomText[i] + CaveTail(static_cast<int>(i)));
  lines.push_back(set.Gratulace);
  return lines;
}

void SaveColl(const std::string& path, EditedSet& set) {
  set.Poc[1] = true;
  std::vector<std::string> lines;
  try {
    lines = LinesOf(set);
  } catch (const Fault& fault) {
    throw Fault(fault.what(), path);
  }
  WriteSetLines(path, lines);
}

OpenResult OpenColl(const std::string& path, EditedSet& set) { return OpenColl(ReadSetLines(path), set); }

OpenResult OpenColl(const SetLines& file, EditedSet& set) {
  Lines lines(file);
  std::fill(set.Poc.begin() + 1, set.Poc.end(), false);
  const char mark = ReadHead(lines, set, [&set](std::size_t cave) { set.Poc[cave] = true; });
  if (CodeOf(mark) >= CodeOf(kLaterMark)) {
    for (std::string* text : {&set.Name, &set.Author, &set.Mail, &set.Description})
      *text = LangStr[text::kLaterFormatText];
    return OpenResult::kLaterFormat;
  }
  set.PocetK = 0;
  do {
    const std::string& line = lines.Next();
    if (int number = 0; CaveNumberOf(line, number)) {
      set.PocetK = std::max(set.PocetK, static_cast<std::uint8_t>(number));
      set.KomText[static_cast<std::size_t>(number)] = line.substr(0, line.size() - kCaveTailLength);
    }
    set.Gratulace = line;
  } while (!lines.AtEnd());
  return OpenResult::kOpened;
}

void LoadColl(const std::string& path, PlayedSet& set) { LoadColl(ReadSetLines(path), set); }

void LoadColl(const SetLines& file, PlayedSet& set) {
  Lines lines(file);
  std::fill(set.StavK.begin() + 1, set.StavK.end(), Locked);
  ReadHead(lines, set, [&set](std::size_t cave) { set.StavK[cave] = Open; });
  std::size_t caves = 0;
  const auto entry = [&](std::size_t i) -> std::string& {
    if (i >= set.KomText.size()) {
      lines.FailInLine("the set has too many caves; " + std::to_string(set.KomText.size() - 2) + " can be played.");
    }
    return set.KomText[i];
  };
  do {
    const std::string& line = lines.Next();
    entry(caves + 1) = line;  // a line that is no cave stays here until the next one takes its place
    if (!HasCaveTail(line)) continue;
    ++caves;
    set.KomRec[caves] = ParseCave(lines, line);
  } while (!lines.AtEnd());
  set.Gratulace = entry(caves + 1);
  set.PocetK = static_cast<std::uint8_t>(caves);
}

std::string ReadSetName(const std::string& path) {
  constexpr std::size_t longest = (1 + kLargestSmallNumber) * 3;  // three letters stand for a character
  try {
    const std::string start = ReadStart(path, longest);
    return SetNameIn(std::string_view(start).substr(0, start.find_first_of("\r\n")));
  } catch (const Fault&) {
    return {};
  }
}

std::string SetNameIn(std::string_view codedLine) {
  std::string name;
  std::string starts;
  SplitByLength(Unscramble(codedLine), name, starts);
  return name;
}

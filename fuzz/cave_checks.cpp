#include "cave_checks.h"

#include <memory>
#include <stdexcept>
#include <tuple>

#include "base/fault.h"
#include "cave/cave_text.h"
#include "cave/scramble.h"
#include "cave/set_file.h"
#include "cave/set_text.h"

namespace {

void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

std::vector<std::string> Split(std::string_view bytes) {
  std::vector<std::string> lines;
  while (!bytes.empty()) {
    const std::string_view line = bytes.substr(0, bytes.find(kLineSeparator));
    lines.emplace_back(line);
    bytes.remove_prefix(line.size() == bytes.size() ? line.size() : line.size() + 1);
  }
  return lines;
}

/// What a set under edit says to its reader: the fields, and the caves and start points of its caves.
void RequireSame(const EditedSet& a, const EditedSet& b) {
  const auto texts = [](const EditedSet& set) {
    return std::tie(set.Name, set.Author, set.Mail, set.Description, set.PocetK, set.Gratulace);
  };
  Require(texts(a) == texts(b), "a saved set has other texts");
  for (std::size_t i = 1; i <= a.PocetK; ++i) {
    Require(a.KomText[i] == b.KomText[i] && a.Poc[i] == b.Poc[i], "a saved set has other caves");
  }
}

void CheckEditor(const SetLines& file) {
  static EditedSet kept;  // as in the editor, where the set before is still there
  try {
    if (OpenColl(file, kept) != OpenResult::kOpened) return;
  } catch (const Fault& fault) {
    Require(fault.file() == file.file, "the fault does not name the file");
    return;
  }
  Require(kept.PocetK <= 99, "more caves than numbers");
  kept.Poc[1] = true;
  SetLines saved{"saved", LinesOf(kept)};
  EditedSet again;
  Require(OpenColl(saved, again) == OpenResult::kOpened, "a saved set is not opened");
  if (kept.PocetK > 0) RequireSame(kept, again);
}

void CheckOverview(const SetLines& file) {
  static const auto kept = std::make_unique<PlayedSet>();
  try {
    LoadColl(file, *kept);
  } catch (const Fault& fault) {
    Require(fault.file() == file.file, "the fault does not name the file");
    return;
  }
  Require(kept->PocetK <= 98, "more caves than fit");
  for (std::size_t i = 1; i <= kept->PocetK; ++i) {
    Require(HasCaveTail(kept->KomText[i]), "a cave without a tail");
    Require(kept->KomRec[i].Width <= kMaxWidth && kept->KomRec[i].Height <= kMaxHeight, "a giant cave");
  }
}

void CheckReadableForm(const std::vector<std::string>& lines) {
  for (const CodePage page : {CodePage::k1250, CodePage::k1251}) {
    CodePage pageBack = CodePage::k1250;
    const std::string text = SetToText(lines, page);
    Require(SetFromText(text, "text", &pageBack) == lines, "the readable form has lost something");
    Require(pageBack == page, "the readable form has another code page");
    Require(text.find('\r') == std::string::npos, "the readable form holds a bare control character");
  }
}

constexpr std::size_t kFirstCave = 3;  // its line in a set, from 0 on

/// A cave of a set less its name and description, its number with it.
std::string WithoutTexts(const std::string& line) {
  CaveRecord cave = ParseCaveText(std::string_view(line).substr(0, line.size() - kCaveTailLength));
  cave.Name.clear();
  cave.Description.clear();
  return BuildCaveText(cave) + line.substr(line.size() - kCaveTailLength);
}

}  // namespace

void CheckCaveText(std::string_view bytes) {
  Require(Unscramble(Scramble(bytes)) == bytes, "coding has changed the text");
  Require(Unscramble(bytes).size() <= (bytes.size() + 2) / 3, "decoding gives more than a character a group");
  SetNameIn(bytes);
  try {
    const std::string text = BuildCaveText(ParseCaveText(bytes));
    Require(BuildCaveText(ParseCaveText(text)) == text, "a cave changes when it is encoded and decoded");
  } catch (const Fault&) {
    return;
  }
}

void CheckSet(std::string_view bytes) {
  const SetLines file{"set.zb", Split(bytes)};
  CheckEditor(file);
  CheckOverview(file);
  CheckReadableForm(file.lines);
  if (!file.lines.empty()) SetNameIn(Scramble(file.lines[0]));
}

void CheckSetText(std::string_view text) {
  std::vector<std::string> lines;
  try {
    lines = SetFromText(text, "set.txt");
  } catch (const Fault& fault) {
    Require(fault.file().starts_with("set.txt:"), "the fault does not name the line");
    return;
  }
  CheckReadableForm(lines);
}

void CheckTexts(std::string_view texts) {
  const std::string cave =
      "description: Dig.\ntime: 150\nneed: 5\npoints: 5 20\nmagic: 20\namoeba: 50\ncolour: 2\nslime: "
      "4\nrows:\n|W;T\n|W1D\n";
  const std::string set =
      "zorbik set\ncode page: 1250\nset: S\nstart: 1\nauthor: A\ndescription: D\nmail: a@b.cz\ncave 1\nname: One\n" +
      cave + "cave\nname: Two\n" + cave + "congratulation: Well done\n";
  const std::vector<std::string> before = SetFromText(set, "set.txt");
  std::string changed;
  try {
    changed = WithTexts(set, "set.txt", texts, "texts.txt");
  } catch (const Fault& fault) {
    Require(fault.file().starts_with("texts.txt:"), "the fault does not name the line");
    return;
  }
  CodePage page = CodePage::k1250;
  const std::vector<std::string> after = SetFromText(changed, "set.txt", &page);
  Require(after.size() == before.size(), "the texts have brought or taken lines");
  Require(after[2] == before[2], "the texts have changed the mail or the format");
  for (std::size_t i = kFirstCave; i + 1 < before.size(); ++i) {
    Require(WithoutTexts(after[i]) == WithoutTexts(before[i]), "the texts have changed a cave");
  }
  CheckReadableForm(after);
}

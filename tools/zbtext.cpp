// Turns a cave set into a readable text and back, so that sets can be edited by hand and kept under version control.

#include <iostream>
#include <string>
#include <vector>

#include "base/files.h"
#include "cave/set_file.h"
#include "cave/set_text.h"
#include "tools/command_line.h"

namespace {

constexpr const char* kAbout =
    "Turns a cave set into a readable text, which is printed when no file is named, or with --to-set a readable text\n"
    "into a set.\n"
    "\n"
    "In the text, a line that starts with a bar \"|\" goes on with the field above it, as does each row of a cave; "
    "lines\n"
    "that start with \"#\" are comments. \"\\\\\" is a backslash, \"\\n\", \"\\r\" and \"\\t\" are single control "
    "characters,\n"
    "\"\\xHH\" is the byte of that value, also for a blank at the end of a line and for a cell that is no tile. The "
    "fields\n"
    "\"start\" (cave 1), \"description\", \"mail\" and \"size\" may be missing; \"cave\" without a number goes on "
    "counting.\n"
    "Lines that the fields cannot give back byte for byte stand as they are behind \"raw:\" or \"line 1:\" to \"line "
    "3:\".";

struct Arguments {
  bool toText = false;
  bool toSet = false;
  int page = 1250;
  std::string texts;  // file with the texts of another language
  std::vector<std::string> files;
};

void Check(const Arguments& arguments) {
  const std::vector<std::string>& files = arguments.files;
  if (arguments.toSet && files.size() != 2) throw WrongUse("--to-set takes a text and a set");
  if (files.size() == 2 && IsSameFile(files[0], files[1])) throw WrongUse("both names lead to the same file");
}

void Run(const Arguments& arguments) {
  const std::vector<std::string>& files = arguments.files;
  if (arguments.toSet) {
    std::string text = ReadFile(files[0]);
    if (!arguments.texts.empty()) text = WithTexts(text, files[0], ReadFile(arguments.texts), arguments.texts);
    WriteSetLines(files[1], SetFromText(text, files[0]));
  } else {
    const std::string text =
        SetToText(ReadSetLines(files[0]).lines, arguments.page == 1251 ? CodePage::k1251 : CodePage::k1250);
    if (files.size() == 2) {
      WriteFile(files[1], text);
    } else {
      std::cout << text;
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(kAbout, "zbtext");
  Arguments arguments;
  auto* toText = app.add_flag("--to-text", arguments.toText, "set to text; this is what happens without a direction");
  auto* toSet = app.add_flag("--to-set", arguments.toSet, "text to set")->excludes(toText);
  app.add_option("--texts", arguments.texts,
                 "take names, descriptions and the congratulation from this file, in their order: a translation")
      ->needs(toSet);
  app.add_option("--code-page", arguments.page,
                 "of the set's texts, 1250 (Central European, the default) or 1251 (Cyrillic); a text names its own")
      ->check(CLI::IsMember({1250, 1251}))
      ->excludes(toSet);
  app.add_option("FILE", arguments.files, "SET.zb [TEXT], or with --to-set TEXT SET.zb")->required()->expected(1, 2);
  return RunCommand(app, argc, argv, [&] {
    Check(arguments);
    Run(arguments);
    return 0;
  });
}

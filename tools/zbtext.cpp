// Turns a cave set into a readable text and back, so that sets can be edited by hand and kept under version control.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/fault.h"
#include "base/files.h"
#include "base/tool.h"
#include "cave/set_file.h"
#include "cave/set_text.h"

namespace {

constexpr const char* kHelp =
    "Usage: zbtext [--to-text] [--code-page 1250|1251] SET.zb [TEXT]\n"
    "       zbtext --to-set [--texts TEXTS] TEXT SET.zb\n"
    "\n"
    "Turns a cave set into a readable text, which is printed when no file is named, and a readable text into a set.\n"
    "\n"
    "  --to-text     set to text; this is what happens when no direction is given\n"
    "  --to-set      text to set\n"
    "  --texts       take names, descriptions and the congratulation from this file, in their order: a translation\n"
    "  --code-page   the code page of the set's texts, 1250 (Central European, the default) or 1251 (Cyrillic);\n"
    "                a text names its own code page\n"
    "  --help        this help\n"
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
    "3:\".\n";

struct Arguments {
  bool help = false;
  bool toSet = false;
  CodePage page = CodePage::k1250;
  std::string texts;  // file with the texts of another language
  std::vector<std::string> files;
};

class UsageError : public std::exception {
 public:
  explicit UsageError(std::string message) : message_(std::move(message)) {}
  const char* what() const noexcept override { return message_.c_str(); }

 private:
  std::string message_;
};

CodePage PageOf(std::string_view name) {
  if (name == "1250") return CodePage::k1250;
  if (name == "1251") return CodePage::k1251;
  throw UsageError("the code page is 1250 or 1251");
}

Arguments Parse(const std::vector<std::string>& words) {
  Arguments arguments;
  bool toText = false;
  bool hasPage = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--help" || word == "-h") {
      arguments.help = true;
      return arguments;
    }
    if (word == "--to-text") {
      toText = true;
    } else if (word == "--to-set") {
      arguments.toSet = true;
    } else if (word == "--code-page") {
      arguments.page = PageOf(++i < words.size() ? words[i] : "");
      hasPage = true;
    } else if (word == "--texts") {
      arguments.texts = ++i < words.size() ? words[i] : "";
      if (arguments.texts.empty()) throw UsageError("--texts takes a file");
    } else if (word.starts_with("-")) {
      throw UsageError("there is no option " + word);
    } else {
      arguments.files.push_back(word);
    }
  }
  if (toText && arguments.toSet) throw UsageError("--to-text and --to-set exclude each other");
  if (arguments.toSet && hasPage) throw UsageError("a text names its own code page");
  if (!arguments.toSet && !arguments.texts.empty()) throw UsageError("--texts goes with --to-set");
  if (arguments.files.empty()) throw UsageError("no file is named");
  if (arguments.toSet && arguments.files.size() != 2) throw UsageError("--to-set takes a text and a set");
  if (arguments.files.size() > 2) throw UsageError("too many files are named");
  if (arguments.files.size() == 2 && IsSameFile(arguments.files[0], arguments.files[1])) {
    throw UsageError("both names lead to the same file");
  }
  return arguments;
}

void Run(const Arguments& arguments) {
  const std::vector<std::string>& files = arguments.files;
  if (arguments.help) {
    std::cout << kHelp;
  } else if (arguments.toSet) {
    std::string text = ReadFile(files[0]);
    if (!arguments.texts.empty()) text = WithTexts(text, files[0], ReadFile(arguments.texts), arguments.texts);
    WriteSetLines(files[1], SetFromText(text, files[0]));
  } else {
    const std::string text = SetToText(ReadSetLines(files[0]).lines, arguments.page);
    if (files.size() == 2) {
      WriteFile(files[1], text);
    } else {
      std::cout << text;
    }
  }
}

}  // namespace

int main(int count, char** words) {
  return RunTool("zbtext", [&] {
    try {
      Run(Parse(std::vector<std::string>(words + 1, words + count)));
      return EXIT_SUCCESS;
    } catch (const UsageError& error) {
      std::cerr << "zbtext: " << Visible(error.what()) << "\n\n" << kHelp;
      return 2;
    }
  });
}

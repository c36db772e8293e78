// Makes a language file from its readable source, or renews the notes in the source.

#include <string>
#include <vector>

#include "base/files.h"
#include "tools/command_line.h"
#include "zbl_source.h"

int main(int argc, char** argv) {
  CLI::App app("Makes a language file from its source.", "zblmake");
  bool annotate = false;
  std::vector<std::string> files;
  app.add_flag("--annotate", annotate, "renew the notes above the rows of the source instead");
  app.add_option("FILE", files, "SOURCE FILE.zbl, or with --annotate SOURCE")->required()->expected(1, 2);
  return RunCommand(app, argc, argv, [&] {
    if (files.size() != (annotate ? 1U : 2U))
      throw WrongUse(annotate ? "one source is needed" : "two files are needed");
    if (annotate) {
      WriteFile(files[0], Annotated(ReadFile(files[0])));
    } else if (IsSameFile(files[0], files[1])) {
      throw WrongUse("both names lead to the same file");
    } else {
      WriteFile(files[1], BytesOfSource(ReadFile(files[0]), files[0]));
    }
    return 0;
  });
}

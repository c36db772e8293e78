// Makes a language file from its readable source, or renews the notes in the source.

#include <cstdio>
#include <string>
#include <string_view>

#include "base/fault.h"
#include "base/files.h"
#include "base/tool.h"
#include "zbl_source.h"

namespace {

constexpr const char* kUsage =
    "zblmake SOURCE FILE.zbl      make a language file from its source\n"
    "zblmake --annotate SOURCE    renew the notes above the rows of a source\n";

int Run(int count, char** words) {
  const std::string_view first = count > 1 ? words[1] : "";
  if (count == 2 && first == "--help") {
    std::fputs(kUsage, stdout);
    return 0;
  }
  if (count != 3) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  const std::string source = first == "--annotate" ? words[2] : words[1];
  if (first == "--annotate") {
    WriteFile(source, Annotated(ReadFile(source)));
  } else if (IsSameFile(source, words[2])) {
    std::fprintf(stderr, "zblmake: both names lead to the same file\n\n%s", kUsage);
    return 2;
  } else {
    WriteFile(words[2], BytesOfSource(ReadFile(source), source));
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return RunTool("zblmake", [&] { return Run(argc, argv); });
}

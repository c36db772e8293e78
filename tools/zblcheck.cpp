// Looks for mistakes in language files.

#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

#include "base/fault.h"
#include "base/files.h"
#include "base/tool.h"
#include "zbl_rules.h"

namespace {

constexpr const char* kUsage =
    "zblcheck FILE.zbl...    look for mistakes in language files\n"
    "Ends with 0 when there are none, 1 when there are, 2 when it was called wrongly.\n";

/// True when the file has no mistakes; tells them otherwise.
bool Check(const std::string& path) {
  try {
    const std::vector<std::string> findings = CheckLanguageFile(ReadFile(path));
    for (const std::string& finding : findings) std::cout << Visible(path + ": " + finding) << "\n";
    return findings.empty();
  } catch (const Fault& fault) {
    std::cerr << "zblcheck: " << Visible(fault.message()) << "\n";
    return false;
  }
}

int Run(int count, char** words) {
  if (count == 2 && std::string_view(words[1]) == "--help") {
    std::fputs(kUsage, stdout);
    return 0;
  }
  if (count < 2) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  bool clean = true;
  for (int i = 1; i < count; ++i) clean = Check(words[i]) && clean;
  return clean ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  return RunTool("zblcheck", [&] { return Run(argc, argv); });
}

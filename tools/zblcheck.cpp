// Looks for mistakes in language files.

#include <iostream>
#include <string>
#include <vector>

#include "base/fault.h"
#include "base/files.h"
#include "tools/command_line.h"
#include "zbl_rules.h"

namespace {

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

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Looks for mistakes in language files. Ends with 0 when there are none, 1 when there are.", "zblcheck");
  std::vector<std::string> files;
  app.add_option("FILE.zbl", files)->required();
  return RunCommand(app, argc, argv, [&] {
    bool clean = true;
    for (const std::string& file : files) clean = Check(file) && clean;
    return clean ? 0 : 1;
  });
}

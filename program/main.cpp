// The start of the program.

#include <filesystem>
#include <memory>
#include <string>

#include "campaign/players.h"
#include "platform/application.h"
#include "program/program.h"

int main(int argc, char** argv) {
  const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe");
  const std::string folder = executable.parent_path().string();
  // A link to the program has a name of its own, and that one counts.
  const std::string name = (argc > 0 ? std::filesystem::path(argv[0]) : executable).filename().string();
  platform::Application application(argc, argv, "Zorbik");
  std::unique_ptr<Program> program;
  const int code = application.Run([&] {
    program = std::make_unique<Program>(folder, name, CanWriteTo(folder) ? "" : UserDataFolder());
    program->Main();
  });
  program.reset();
  return code;
}

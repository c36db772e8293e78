#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

/// What a command-line program has said, and how it ended.
struct ProgramRun {
  int status = -1;     // -1: it did not end by itself
  std::string output;  // of both streams
};

/// Runs a command of the shell to its end.
inline ProgramRun RunProgram(const std::string& command) {
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("the command cannot be started: " + command);
  ProgramRun run;
  std::array<char, 4096> block;
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), pipe)) {
    run.output.append(block.data(), count);
  }
  const int status = pclose(pipe);
  if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
  return run;
}

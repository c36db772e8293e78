#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>
#include <string>

#include "base/tool.h"

/// Wrong use of a program that its options alone do not tell; answered like any other.
class WrongUse : public CLI::ParseError {
 public:
  explicit WrongUse(const std::string& what) : CLI::ParseError("WrongUse", what, 2) {}
};

/// Runs a program of the command line that `app` describes: "--help" prints what it takes, wrong use (also WrongUse out
/// of the body) is told with it and ends with 2, and all else goes as RunTool tells.
inline int RunCommand(CLI::App& app, int argc, char** argv, const std::function<int()>& body, int failed = 1) {
  const auto run = [&] {
    try {
      app.parse(argc, argv);
      return body();
    } catch (const CLI::CallForHelp&) {
      std::cout << app.help();
      return 0;
    } catch (const CLI::ParseError& error) {
      std::cerr << app.get_name() << ": " << Visible(error.what()) << "\n\n" << app.help();
      return 2;
    }
  };
  return RunTool(app.get_name(), run, failed);
}

#pragma once

#include <stdexcept>
#include <string>
#include <utility>

/// What ends the program with a message: damaged input, a cell outside the grids, a file that cannot be read.
/// Thrown by checked access, decoding and file reading; caught in one place, where the message is shown.
class Fault : public std::runtime_error {
 public:
  /// what: the message, UTF-8. file: the path of the file concerned, or empty.
  explicit Fault(const std::string& what, std::string file = {}) : std::runtime_error(what), file_(std::move(file)) {}

  /// The file concerned, or an empty string.
  const std::string& file() const { return file_; }

  /// "FILE: what", or just what when no file is concerned.
  std::string message() const { return file_.empty() ? what() : file_ + ": " + what(); }

 private:
  std::string file_;
};

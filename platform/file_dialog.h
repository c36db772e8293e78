#pragma once

#include <functional>
#include <string>

namespace platform {

/// The file dialogs of the desktop.
inline namespace CommonDialogy {

/// Bits of FileDialog::flags. The others that callers pass change nothing here.
inline constexpr unsigned kOverwritePrompt = 2;     // save: asks before an existing file is taken
inline constexpr unsigned kHideReadOnly = 4;        // always so
inline constexpr unsigned kFileMustExist = 4096;    // open: takes existing files only
inline constexpr unsigned kExplorerStyle = 524288;  // always so

/// A filter of one kind of files: the shown text and the pattern, with a character of code 0 behind each of them.
inline std::string FileFilter(const std::string& shown, const std::string& pattern) {
  return shown + '\0' + pattern + '\0';
}

/// What a file dialog shows. Title and filter are in the application's default charset.
struct FileDialog {
  std::string title;
  /// One or several as FileFilter makes them; patterns of one kind are joined by ";".
  std::string filter;
  /// Where it starts, UTF-8; the user's home when there is no such folder.
  std::string folder;
  unsigned flags = 0;
  /// Save: what a name without it gets at its end, such as "*.zb" or "zb". Open: the same comes from the filter.
  std::string default_extension = {};
  /// One more folder to go to at once, UTF-8; none when it is empty, or no such folder.
  std::string own_folder = {};
  /// Save: the name that is there from the beginning, UTF-8.
  std::string name = {};
};

/// Shows a modal dialog and returns the path of the file chosen, UTF-8, or "" when the user cancels. Timers run on.
std::string ShowOpenDialog(const FileDialog& dialog);
std::string ShowSaveDialog(const FileDialog& dialog);

/// For tests: answers dialogs in place of the user, with a path or "". An empty function brings the real ones back.
using FileDialogResponder = std::function<std::string(const FileDialog&)>;
void SetFileDialogResponder(FileDialogResponder responder);

}  // namespace CommonDialogy

}  // namespace platform

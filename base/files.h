#pragma once

#include <string>
#include <string_view>
#include <vector>

// Paths are UTF-8 with "/" between the names. A Fault of these functions carries the path and the reason.

/// The whole contents of a file, which is found regardless of case (see FindPath). Throws Fault when it cannot be read.
std::string ReadFile(const std::string& path);

/// Writes a file, under this very name, so that neither a crash nor a full disk leaves half of it: into a temporary
/// file in the same folder, which takes the name only once it is safely on the disk. Permissions of an existing file
/// are kept, but one that was read-only is overwritten and becomes writable. Throws Fault when that fails; the old file
/// then stands as it was and the temporary one is gone.
void WriteFile(const std::string& path, std::string_view contents);

/// The path under which a file or folder really exists: the very path if there is such a one, otherwise one whose names
/// differ from it in case alone; empty when there is none.
std::string FindPath(const std::string& path);

/// The names (without the folder) of the files whose name ends in the extension, such as ".zb", regardless of case;
/// sorted regardless of case. An empty extension lists all files. A folder that cannot be read holds no files.
std::vector<std::string> ListFiles(const std::string& folder, std::string_view extension);

/// The names of the folders in a folder, sorted regardless of case. A folder that cannot be read holds none.
std::vector<std::string> ListFolders(const std::string& folder);

/// The lines of a text, each ended by LF or CR LF. A last line without an end counts; nothing behind the last end does
/// not.
std::vector<std::string> SplitLines(std::string_view text);

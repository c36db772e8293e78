#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Paths are UTF-8 with "/" between the names. A Fault of these functions carries the path and the reason. Files are
// found regardless of case (see FindPath). Only regular files are read and written: a folder, a pipe or a device is a
// Fault.

/// The most bytes that are read of a file, many times those of any cave set or record.
inline constexpr std::size_t kLargestFile = std::size_t{16} << 20;

/// The whole contents of a file. Throws Fault when it cannot be read or is larger than kLargestFile.
std::string ReadFile(const std::string& path);

/// The first bytes of a file of any size: as many as are asked for, or fewer when there are no more.
std::string ReadStart(const std::string& path, std::size_t most);

/// Hands out the lines of a file, as SplitLines finds them, for as long as take gives back true; no more of the file is
/// read than that takes. Throws Fault like ReadFile.
void ReadLines(const std::string& path, const std::function<bool(const std::string& line)>& take);

/// Writes a file so that neither a crash nor a full disk leaves half of it: into a temporary file in the same folder,
/// which takes the name only once it is safely on the disk. A file that is found regardless of case is replaced and
/// keeps its name, a link stays and what it leads to is replaced or made. Permissions of an existing file are kept, but
/// one that was read-only is overwritten and becomes writable. Throws Fault when that fails; the old file then stands
/// as it was and the temporary one is gone. One that an earlier process left when it was killed goes with the next file
/// that is written to the folder, from an hour on.
void WriteFile(const std::string& path, std::string_view contents);

/// Makes a folder, with those that it lies in, unless it is there, be it in other case. Throws Fault when that fails.
void MakeFolder(const std::string& path);

/// True when both paths lead to the same existing file or folder.
bool IsSameFile(const std::string& a, const std::string& b);

/// The path under which a file or folder really exists: the very path if there is such a one, otherwise one whose names
/// differ from it in case alone; empty when there is none.
std::string FindPath(const std::string& path);

/// The names (without the folder) of the files whose name ends in the extension, such as ".zb", regardless of case;
/// sorted by SortByAlphabet. An empty extension lists all files. A folder that cannot be read holds no files.
std::vector<std::string> ListFiles(const std::string& folder, std::string_view extension);

/// The names of the folders in a folder, sorted by SortByAlphabet. A folder that cannot be read holds none.
std::vector<std::string> ListFolders(const std::string& folder);

/// The lines of a text, each ended by LF or CR LF. A last line without an end counts; nothing behind the last end does
/// not.
std::vector<std::string> SplitLines(std::string_view text);

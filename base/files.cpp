#include "base/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/fault.h"
#include "base/utf8.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kNotRead = "The file cannot be read";
constexpr const char* kNotWritten = "The file cannot be written";
// Around the number of the process and a count: the name of a file that is still being written.
constexpr std::string_view kTemporaryStart = ".zorbik-";
constexpr std::string_view kTemporaryEnd = ".tmp";

[[noreturn]] void Fail(const std::string& what, const std::string& path, int error) {
  throw Fault(what + ": " + std::generic_category().message(error) + ".", path);
}

/// The system would cut the path off at a zero character and so take another file.
void CheckPath(const std::string& path) {
  if (path.find('\0') != std::string::npos) throw Fault("The name of the file holds a zero character.", path);
}

/// An open file; closed at the end of its life at the latest.
class OpenFile {
 public:
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { Close(); }

  bool ok() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }

  /// False when the system reports a late failure of writing.
  bool Close() { return descriptor_ < 0 || close(std::exchange(descriptor_, -1)) == 0; }

 private:
  int descriptor_;
};

bool WriteAll(int descriptor, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t count = write(descriptor, contents.data(), contents.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    contents.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

/// A new empty file beside the given one. Its name is given back in temporary.
int CreateBeside(const fs::path& target, std::string& temporary) {
  for (int attempt = 0;; ++attempt) {
    const std::string number = std::to_string(getpid()) + "-" + std::to_string(attempt);
    const std::string name = std::string(kTemporaryStart).append(number).append(kTemporaryEnd);
    temporary = (target.parent_path() / name).string();
    const int descriptor = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0 || errno != EEXIST || attempt == 1000) return descriptor;
  }
}

void KeepPermissions(const fs::path& target, int descriptor) {
  struct stat old {};
  if (stat(target.c_str(), &old) == 0) fchmod(descriptor, (old.st_mode & 0777) | S_IWUSR);
}

/// Makes the renaming last. The file itself is whole by then: after a crash either the old or the new one is there,
/// which is why a folder that cannot be flushed is no failure.
void FlushFolder(const fs::path& folder) {
  const OpenFile opened(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.ok()) fsync(opened.descriptor());
}

template <class Wanted>
std::vector<std::string> List(const std::string& folder, Wanted wanted) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (wanted(*entry)) names.push_back(entry->path().filename().string());
  }
  SortByAlphabet(names);
  return names;
}

/// Takes away what writers that were killed have left in a folder. Their age tells them: the process of that number may
/// be a living one of another kind, or live on another machine that shares the folder.
void RemoveLeftovers(const fs::path& folder) {
  constexpr std::chrono::hours kLongestWrite(1);
  const auto left = [kLongestWrite](const fs::directory_entry& entry) {
    const std::string name = entry.path().filename().string();
    std::error_code error;
    return name.starts_with(kTemporaryStart) && name.ends_with(kTemporaryEnd) && entry.is_regular_file(error) &&
           fs::file_time_type::clock::now() - entry.last_write_time(error) > kLongestWrite && !error;
  };
  std::error_code ignored;
  for (const std::string& name : List(folder.string(), left)) fs::remove(folder / name, ignored);
}

bool EndsRegardlessOfCase(const std::string& name, std::string_view extension) {
  return CaseKey(name).ends_with(CaseKey(extension));
}

bool Exists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

/// Looks for the rest of a path below a folder that exists ("" or a text that ends in "/").
std::string FindBelow(const std::string& folder, std::string_view rest) {
  const std::size_t start = std::min(rest.find_first_not_of('/'), rest.size());
  const std::string here = folder + std::string(rest.substr(0, start));
  rest.remove_prefix(start);
  if (rest.empty()) return Exists(here) ? here : std::string();
  const std::string name(rest.substr(0, rest.find('/')));
  rest.remove_prefix(name.size());

  std::vector<std::string> candidates;
  if (Exists(here + name)) candidates.push_back(name);
  const std::u32string key = CaseKey(name);
  for (const std::string& other : List(here, [](const fs::directory_entry&) { return true; })) {
    if (other != name && CaseKey(other) == key) candidates.push_back(other);
  }
  for (const std::string& candidate : candidates) {
    std::string found = rest.empty() ? here + candidate : FindBelow(here + candidate, rest);
    if (!found.empty()) return found;
  }
  return {};
}

/// The rules of files.h for what stands under a path.
void CheckRegular(const struct stat& state, const char* what, const std::string& path) {
  if (S_ISDIR(state.st_mode)) Fail(what, path, EISDIR);
  if (!S_ISREG(state.st_mode)) throw Fault(std::string(what) + ": This is no regular file.", path);
}

/// Gives the contents piece by piece to take, for as long as it gives back true.
void ReadPieces(const std::string& path, const std::function<bool(std::string_view piece)>& take) {
  CheckPath(path);
  const std::string found = FindPath(path);
  // A pipe without a writer would let the opening wait for one.
  const OpenFile file(open((found.empty() ? path : found).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.ok()) Fail("The file cannot be opened", path, errno);
  struct stat state {};
  if (fstat(file.descriptor(), &state) != 0) Fail(kNotRead, path, errno);
  CheckRegular(state, kNotRead, path);
  std::size_t total = 0;
  char block[1 << 16];
  for (;;) {
    const ssize_t count = read(file.descriptor(), block, sizeof block);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Fail(kNotRead, path, errno);
    total += static_cast<std::size_t>(count);
    if (total > kLargestFile) {
      throw Fault("The file is larger than " + std::to_string(kLargestFile >> 20) + " MiB.", path);
    }
    if (count == 0 || !take({block, static_cast<std::size_t>(count)})) return;
  }
}

/// Where a file of the path is written: what is found regardless of case, or a new file in a folder found so.
fs::path PlaceOf(const std::string& path) {
  if (const std::string found = FindPath(path); !found.empty()) return found;
  const std::string folder = FindPath(fs::path(path).parent_path().string());
  return folder.empty() ? fs::path(path) : folder / fs::path(path).filename();
}

/// A link is followed, also to a file that does not exist yet, so that it stays and the file is replaced or made.
fs::path BehindLinks(fs::path target, const std::string& path) {
  constexpr int kMostLinks = 40;  // as many as the system follows
  std::error_code error;
  for (int links = 0; fs::is_symlink(target, error); ++links) {
    if (links == kMostLinks) Fail(kNotWritten, path, ELOOP);
    target = target.parent_path() / fs::read_symlink(target, error);
    if (error) Fail(kNotWritten, path, error.value());
  }
  return target;
}

/// Renaming would put a file in the place of a pipe or a device.
void CheckReplaceable(const fs::path& target, const std::string& path) {
  struct stat state {};
  if (stat(target.c_str(), &state) == 0) CheckRegular(state, kNotWritten, path);
}

}  // namespace

std::string ReadFile(const std::string& path) {
  std::string contents;
  ReadPieces(path, [&contents](std::string_view piece) {
    contents += piece;
    return true;
  });
  return contents;
}

std::string ReadStart(const std::string& path, std::size_t most) {
  std::string start;
  ReadPieces(path, [&start, most](std::string_view piece) {
    start += piece.substr(0, most - start.size());
    return start.size() < most;
  });
  return start;
}

void ReadLines(const std::string& path, const std::function<bool(const std::string& line)>& take) {
  std::string line;
  bool more = true;
  const auto finish = [&] {
    if (line.ends_with('\r')) line.pop_back();
    more = take(line);
    line.clear();
  };
  ReadPieces(path, [&](std::string_view piece) {
    while (more && !piece.empty()) {
      const std::string_view part = piece.substr(0, piece.find('\n'));
      line += part;
      if (part.size() == piece.size()) break;
      piece.remove_prefix(part.size() + 1);
      finish();
    }
    return more;
  });
  if (more && !line.empty()) finish();
}

void WriteFile(const std::string& path, std::string_view contents) {
  CheckPath(path);
  const fs::path target = BehindLinks(PlaceOf(path), path);
  CheckReplaceable(target, path);
  std::string temporary;
  OpenFile file(CreateBeside(target, temporary));
  if (!file.ok()) Fail(kNotWritten, path, errno);
  KeepPermissions(target, file.descriptor());
  const bool whole = WriteAll(file.descriptor(), contents) && fsync(file.descriptor()) == 0 && file.Close() &&
                     std::rename(temporary.c_str(), target.c_str()) == 0;
  if (!whole) {
    const int error = errno;
    unlink(temporary.c_str());
    Fail(kNotWritten, path, error);
  }
  FlushFolder(target.parent_path());
  RemoveLeftovers(target.parent_path());
}

void MakeFolder(const std::string& path) {
  CheckPath(path);
  std::error_code error;
  fs::create_directories(PlaceOf(path), error);
  if (error) Fail("The folder cannot be made", path, error.value());
}

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  return fs::equivalent(FindPath(a), FindPath(b), error);
}

std::string FindPath(const std::string& path) {
  if (path.find('\0') != std::string::npos) return {};
  if (path.empty() || Exists(path)) return path;
  return FindBelow("", path);
}

std::vector<std::string> ListFiles(const std::string& folder, std::string_view extension) {
  return List(folder, [extension](const fs::directory_entry& entry) {
    std::error_code error;
    return entry.is_regular_file(error) && EndsRegardlessOfCase(entry.path().filename().string(), extension);
  });
}

std::vector<std::string> ListFolders(const std::string& folder) {
  return List(folder, [](const fs::directory_entry& entry) {
    std::error_code error;
    return entry.is_directory(error);
  });
}

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  lines.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

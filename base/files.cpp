#include "base/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/fault.h"
#include "base/utf8.h"

namespace {

namespace fs = std::filesystem;

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
    const std::string name = ".zorbik-" + std::to_string(getpid()) + "-" + std::to_string(attempt) + ".tmp";
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

/// A link is followed, so that it stays and the file it leads to is replaced.
fs::path BehindLinks(const std::string& path) {
  std::error_code error;
  fs::path real = fs::canonical(path, error);
  return error ? fs::path(path) : real;
}

void SortRegardlessOfCase(std::vector<std::string>& names) {
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::pair(CaseKey(a), a) < std::pair(CaseKey(b), b);
  });
}

template <class Wanted>
std::vector<std::string> List(const std::string& folder, Wanted wanted) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (wanted(*entry)) names.push_back(entry->path().filename().string());
  }
  SortRegardlessOfCase(names);
  return names;
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

}  // namespace

std::string ReadFile(const std::string& path) {
  CheckPath(path);
  const std::string found = FindPath(path);
  const OpenFile file(open((found.empty() ? path : found).c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.ok()) Fail("The file cannot be opened", path, errno);
  std::string contents;
  char block[1 << 16];
  for (;;) {
    const ssize_t count = read(file.descriptor(), block, sizeof block);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Fail("The file cannot be read", path, errno);
    if (count == 0) return contents;
    contents.append(block, static_cast<std::size_t>(count));
  }
}

void WriteFile(const std::string& path, std::string_view contents) {
  const std::string what = "The file cannot be written";
  CheckPath(path);
  const fs::path target = BehindLinks(path);
  std::string temporary;
  OpenFile file(CreateBeside(target, temporary));
  if (!file.ok()) Fail(what, path, errno);
  KeepPermissions(target, file.descriptor());
  const bool whole = WriteAll(file.descriptor(), contents) && fsync(file.descriptor()) == 0 && file.Close() &&
                     std::rename(temporary.c_str(), target.c_str()) == 0;
  if (!whole) {
    const int error = errno;
    unlink(temporary.c_str());
    Fail(what, path, error);
  }
  FlushFolder(target.parent_path());
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
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

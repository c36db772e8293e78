#include "platform/registry.h"

#include <QStandardPaths>
#include <charconv>
#include <filesystem>
#include <map>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/fault.h"
#include "base/files.h"

namespace platform::Registr {

namespace {

// The file, a line each:
//   registry 1
//   [HKEY_LOCAL_MACHINE\Software\Name]
//   "number" = 8
//   "text" = "anything, %22 for a quotation mark"
//   end
// The last line tells a whole file from the beginning of one.
constexpr std::string_view kFirstLine = "registry 1";
constexpr std::string_view kLastLine = "end";
constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 20;  // bytes

using Values = std::map<std::string, Value>;
using Keys = std::map<std::string, Values>;  // by full name, with the root

std::string& FolderOverride() {
  static std::string folder;
  return folder;
}

std::string_view NameOf(Root root) {
  switch (root) {
    case Root::kClassesRoot:
      return "HKEY_CLASSES_ROOT";
    case Root::kCurrentUser:
      return "HKEY_CURRENT_USER";
    case Root::kLocalMachine:
      break;
  }
  return "HKEY_LOCAL_MACHINE";
}

std::string FullName(Root root, const std::string& key) { return std::string(NameOf(root)) + "\\" + key; }

// ---------------------------------------------------------------------------------------------------------- Writing

/// Letters and signs as they are; what would end a name, and bytes that no editor shows alike, as % and two hex digits.
std::string Escaped(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr std::string_view kSpecial = "%\"[]";
  std::string result;
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte >= 0x20 && byte < 0x7F && kSpecial.find(letter) == std::string_view::npos) {
      result += letter;
    } else {
      result += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
  return result;
}

std::string Format(const Keys& keys) {
  std::string text(kFirstLine);
  for (const auto& [key, values] : keys) {
    text += "\n[" + Escaped(key) + "]";
    for (const auto& [name, value] : values) {
      text += "\n\"" + Escaped(name) + "\" = ";
      const auto* number = std::get_if<std::int32_t>(&value);
      text += number ? std::to_string(*number) : "\"" + Escaped(std::get<std::string>(value)) + "\"";
    }
  }
  return text + "\n" + std::string(kLastLine) + "\n";
}

// ---------------------------------------------------------------------------------------------------------- Reading

struct Damaged {};

void Check(bool good) {
  if (!good) throw Damaged();
}

std::string Unescaped(std::string_view text, std::size_t longest) {
  std::string result;
  while (!text.empty()) {
    char letter = text[0];
    std::size_t used = 1;
    if (letter == '%') {
      unsigned char byte = 0;
      Check(text.size() >= 3);
      const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 3, byte, 16);
      Check(error == std::errc() && end == text.data() + 3);
      letter = static_cast<char>(byte);
      used = 3;
    }
    result += letter;
    text.remove_prefix(used);
  }
  Check(result.size() <= longest);
  return result;
}

/// What stands between two marks, from the first character of the text on; both are taken off the text.
std::string_view Between(std::string_view& text, char open, char close) {
  const std::size_t end = text.find(close, 1);
  Check(!text.empty() && text[0] == open && end != std::string_view::npos);
  const std::string_view inside = text.substr(1, end - 1);
  text.remove_prefix(end + 1);
  return inside;
}

Value ParseValue(std::string_view text) {
  if (text.starts_with('"')) {
    std::string string = Unescaped(Between(text, '"', '"'), kLongestString);
    Check(text.empty());
    return string;
  }
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  Check(error == std::errc() && end == text.data() + text.size());
  return number;
}

/// Throws Damaged.
Keys Parse(std::string_view text) {
  const std::vector<std::string> lines = SplitLines(text);
  Check(lines.size() >= 2 && lines.front() == kFirstLine && lines.back() == kLastLine);
  Keys keys;
  Values* values = nullptr;
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
    std::string_view line = lines[i];
    if (line.empty()) continue;
    if (line.starts_with('[')) {
      constexpr std::size_t kLongestRoot = 32;
      values = &keys[Unescaped(Between(line, '[', ']'), kLongestName + kLongestRoot)];
      Check(line.empty());
    } else {
      const std::string name = Unescaped(Between(line, '"', '"'), kLongestName);
      Check(values && line.starts_with(" = "));
      (*values)[name] = ParseValue(line.substr(3));
    }
  }
  return keys;
}

// ---------------------------------------------------------------------------------------------------------- The file

namespace fs = std::filesystem;

/// Puts a damaged file out of the way; false when that fails.
bool SetAside(const std::string& path) {
  std::error_code error;
  for (int attempt = 1; attempt <= 100; ++attempt) {
    const std::string aside = path + ".damaged" + (attempt == 1 ? "" : "-" + std::to_string(attempt));
    if (fs::exists(aside, error)) continue;
    fs::rename(path, aside, error);
    return !error;
  }
  return false;
}

/// All keys; nothing when the file cannot be read, and then it must not be written.
std::optional<Keys> Load() {
  const std::string path = FilePath();
  std::error_code error;
  const fs::file_type type = fs::status(path, error).type();
  if (type == fs::file_type::not_found) return Keys();
  if (type != fs::file_type::regular) return std::nullopt;
  try {
    Check(fs::file_size(path, error) <= kLargestFile);
    return Parse(ReadFile(path));
  } catch (const Damaged&) {
    if (SetAside(path)) return Keys();
  } catch (const Fault&) {
    // Not allowed to read, perhaps.
  }
  return std::nullopt;
}

void Save(const Keys& keys) {
  const std::string text = Format(keys);
  if (text.size() > kLargestFile) return;
  const std::string path = FilePath();
  std::error_code error;
  fs::create_directories(fs::path(path).parent_path(), error);
  try {
    WriteFile(path, text);
  } catch (const Fault&) {
    // Meant: a failed write goes unnoticed.
  }
}

/// A key exists when it was made, or one below it was.
bool Exists(const Keys& keys, const std::string& full_name) {
  if (keys.contains(full_name)) return true;
  const auto below = keys.lower_bound(full_name + "\\");
  return below != keys.end() && below->first.starts_with(full_name + "\\");
}

bool Fits(const Value& value, int type) {
  if (const auto* string = std::get_if<std::string>(&value)) {
    return type == kString && string->size() <= kLongestString;
  }
  return type == kNumber && std::holds_alternative<std::int32_t>(value);
}

}  // namespace

std::int32_t NumberOf(const Value& value) {
  const auto* number = std::get_if<std::int32_t>(&value);
  return number ? *number : 0;
}

std::string StringOf(const Value& value) {
  const auto* string = std::get_if<std::string>(&value);
  return string ? *string : std::string();
}

void CreateNewKey(Root root, const std::string& key) {
  std::optional<Keys> keys = Load();
  if (!keys || key.size() > kLongestName || Exists(*keys, FullName(root, key))) return;
  (*keys)[FullName(root, key)];
  Save(*keys);
}

void SetKeyValue(Root root, const std::string& key, const std::string& name, const Value& value, int type) {
  if (const std::optional<OpenKey> open = Open(root, key)) SetValueEx(*open, name, type, value);
}

Value QueryValue(Root root, const std::string& key, const std::string& name) {
  const std::optional<OpenKey> open = Open(root, key);
  return open ? QueryValueEx(*open, name) : Value();
}

std::optional<OpenKey> Open(Root root, const std::string& key) {
  const std::optional<Keys> keys = Load();
  if (!keys || !Exists(*keys, FullName(root, key))) return std::nullopt;
  return OpenKey{root, key};
}

void SetValueEx(const OpenKey& key, const std::string& name, int type, const Value& value) {
  std::optional<Keys> keys = Load();
  if (!keys || !Fits(value, type) || name.size() > kLongestName) return;
  Value& stored = (*keys)[FullName(key.root, key.name)][name];
  if (stored == value) return;
  stored = value;
  Save(*keys);
}

Value QueryValueEx(const OpenKey& key, const std::string& name) {
  const std::optional<Keys> keys = Load();
  if (!keys) return {};
  const auto values = keys->find(FullName(key.root, key.name));
  if (values == keys->end()) return {};
  const auto found = values->second.find(name);
  if (found == values->second.end()) return {};
  const auto* string = std::get_if<std::string>(&found->second);
  const bool terminated = !string || string->empty() || string->back() == '\0';
  return terminated ? found->second : *string + '\0';
}

std::string FilePath() {
  const std::string& folder = FolderOverride();
  const std::string own =
      folder.empty() ? QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation).toStdString() : folder;
  return own + "/registry.txt";
}

void SetFolder(const std::string& folder) { FolderOverride() = folder; }

}  // namespace platform::Registr

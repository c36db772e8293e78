#include "platform/registry.h"

#include <QSettings>
#include <QStandardPaths>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

#include "base/fault.h"
#include "base/files.h"
#include "base/text.h"

namespace platform::Registr {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 20;  // bytes
// Names that no caller can use, for theirs are of single bytes.
const QString kMade(QChar(0x2714));     // a value of every key that was made
const QString kDefault(QChar(0x2205));  // the value without a name
constexpr char16_t kSlash = u'\u2215';  // for "/", which would begin a group within the group

std::string& FolderOverride() {
  static std::string folder;
  return folder;
}

QString Name(const std::string& bytes) { return QString::fromLatin1(bytes).replace(u'/', kSlash); }

QString Group(Root root, const std::string& key) {
  const char* name = root == Root::kClassesRoot   ? "HKEY_CLASSES_ROOT"
                     : root == Root::kCurrentUser ? "HKEY_CURRENT_USER"
                                                  : "HKEY_LOCAL_MACHINE";
  return Name(name + ("\\" + key));
}

QString Entry(Root root, const std::string& key, const std::string& name) {
  return Group(root, key) + u'/' + (name.empty() ? kDefault : Name(name));
}

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

/// The form of the file up to version 1.1, as INI: a first and a last line of its own, names and strings in quotes.
std::string FromOldForm(std::string_view text) {
  std::string ini;
  for (std::string line : SplitLines(text)) {
    if (line.starts_with('[')) {
      ini += Replaced(line, "\\", "%5C") + "\n";
    } else if (const std::size_t middle = line.find("\" = "); line.starts_with('"') && middle != std::string::npos) {
      const std::string value = line.substr(middle + 4);
      const bool string = value.size() > 1 && value.starts_with('"');
      ini += line.substr(1, middle - 1) + "=" +
             (string ? "@ByteArray(" + value.substr(1, value.size() - 2) + ")" : value) + "\n";
    }
  }
  return ini;
}

std::unique_ptr<QSettings> Read(const std::string& path) {
  auto store = std::make_unique<QSettings>(QString::fromStdString(path), QSettings::IniFormat);
  store->allKeys();  // takes all of it apart: only then the status tells whether that can be done
  return store;
}

void TakeOldFormOver(const std::string& path) {
  constexpr std::string_view kFirstLine = "registry 1\n";
  try {
    if (ReadStart(path, kFirstLine.size()) == kFirstLine) WriteFile(path, FromOldForm(ReadFile(path)));
  } catch (const Fault&) {
    // There is none, or it cannot be read: whoever reads on will see.
  }
}

/// The store as it lies in its file; null when it cannot be read, and then it must not be written.
std::unique_ptr<QSettings> Load() {
  const std::string path = FilePath();
  std::error_code error;
  const fs::file_type type = fs::status(path, error).type();
  if (type != fs::file_type::not_found && type != fs::file_type::regular) return nullptr;
  const bool giant = type == fs::file_type::regular && fs::file_size(path, error) > kLargestFile;
  if (giant && !SetAside(path)) return nullptr;
  TakeOldFormOver(path);
  auto store = Read(path);
  if (store->status() == QSettings::FormatError) {
    store.reset();
    if (!SetAside(path)) return nullptr;
    store = Read(path);
  }
  return store->status() == QSettings::NoError ? std::move(store) : nullptr;
}

/// A key exists when it was made, or one below it was.
bool Exists(const QSettings& store, Root root, const std::string& key) {
  const QString group = Group(root, key);
  for (const QString& other : store.childGroups()) {
    if (other == group || other.startsWith(group + u'\\')) return true;
  }
  return false;
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

// Meant: a failed write goes unnoticed.
void CreateNewKey(Root root, const std::string& key) {
  const auto store = Load();
  if (!store || key.size() > kLongestName || Exists(*store, root, key)) return;
  store->setValue(Group(root, key) + u'/' + kMade, true);
}

void SetKeyValue(Root root, const std::string& key, const std::string& name, const Value& value, int type) {
  if (const std::optional<OpenKey> open = Open(root, key)) SetValueEx(*open, name, type, value);
}

Value QueryValue(Root root, const std::string& key, const std::string& name) {
  const std::optional<OpenKey> open = Open(root, key);
  return open ? QueryValueEx(*open, name) : Value();
}

std::optional<OpenKey> Open(Root root, const std::string& key) {
  const auto store = Load();
  if (!store || !Exists(*store, root, key)) return std::nullopt;
  return OpenKey{root, key};
}

// Strings are stored as bytes, which the file tells from numbers.
void SetValueEx(const OpenKey& key, const std::string& name, int type, const Value& value) {
  const auto store = Load();
  if (!store || !Fits(value, type) || name.size() > kLongestName || QueryValueEx(key, name) == value) return;
  const auto* string = std::get_if<std::string>(&value);
  store->setValue(Entry(key.root, key.name, name),
                  string ? QVariant(QByteArray::fromStdString(*string)) : QVariant(std::get<std::int32_t>(value)));
}

Value QueryValueEx(const OpenKey& key, const std::string& name) {
  const auto store = Load();
  if (!store) return {};
  const QVariant stored = store->value(Entry(key.root, key.name, name));
  if (stored.typeId() == QMetaType::QByteArray) {
    const std::string string = stored.toByteArray().toStdString();
    return string.empty() || string.back() == '\0' ? string : string + '\0';
  }
  bool number = false;
  const int value = stored.toString().toInt(&number);
  return number ? Value(std::int32_t{value}) : Value();
}

std::string FilePath() {
  const std::string& folder = FolderOverride();
  const std::string own =
      folder.empty() ? QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation).toStdString() : folder;
  return own + "/registry.txt";
}

void SetFolder(const std::string& folder) { FolderOverride() = folder; }

}  // namespace platform::Registr

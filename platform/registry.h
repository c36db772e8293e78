#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace platform {

/// A store of strings and numbers under key names, for settings that last. It is one INI file in the user's
/// configuration folder, read anew at each call, so that two running programs do not undo each other's values, and
/// replaced as a whole at each change, so that no crash leaves half of it. A file that is damaged is kept beside under
/// another name, and the store starts empty.
///
/// Nothing here reports a failure: what cannot be read is missing, and a failed write goes unnoticed.
namespace Registr {

/// The tree that a key belongs to.
enum class Root { kClassesRoot, kCurrentUser, kLocalMachine };

/// Types of values, and the longest names and strings that the store takes, in bytes.
inline constexpr int kString = 1;
inline constexpr int kNumber = 4;
inline constexpr int kLongestName = 255;
inline constexpr int kLongestString = 65535;

/// A string of any bytes, a 32-bit number, or nothing.
using Value = std::variant<std::monostate, std::string, std::int32_t>;

/// The number, 0 for all else.
std::int32_t NumberOf(const Value& value);
/// The string as it came, empty for all else.
std::string StringOf(const Value& value);

/// Makes a key; names of nested keys are joined by backslashes. One that exists stays as it is.
void CreateNewKey(Root root, const std::string& key);

/// Writes a value of a key that exists. The name of a key's default value is "".
void SetKeyValue(Root root, const std::string& key, const std::string& name, const Value& value, int type);

/// A value of a key; empty when the key or the value is missing.
Value QueryValue(Root root, const std::string& key, const std::string& name);

/// A key that exists.
struct OpenKey {
  Root root;
  std::string name;
};
std::optional<OpenKey> Open(Root root, const std::string& key);

/// Type kString writes a string, its bytes and no terminator; kNumber writes a number. Another type, or a value that is
/// not of the type, writes nothing.
void SetValueEx(const OpenKey& key, const std::string& name, int type, const Value& value);

/// A string comes with a terminator behind it, a character of code 0: the store counts it among the string's size. Only
/// an empty one has none.
Value QueryValueEx(const OpenKey& key, const std::string& name);

/// The file of the store, UTF-8.
std::string FilePath();

/// For tests: the folder of the file. An empty one is the user's configuration folder again.
void SetFolder(const std::string& folder);

}  // namespace Registr

}  // namespace platform

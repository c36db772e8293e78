#include "shell/registry_values.h"

#include "platform/registry.h"

namespace {

namespace store = platform::Registr;

constexpr store::Root kRoot = store::Root::kLocalMachine;
constexpr const char* kKey = R"(Software\Velkar\Zorbik)";

}  // namespace

void CreateProgramKey() { store::CreateNewKey(kRoot, kKey); }

int ReadNumber(const char* name) { return store::NumberOf(store::QueryValue(kRoot, kKey, name)); }

void WriteNumber(const char* name, int value) {
  store::SetKeyValue(kRoot, kKey, name, std::int32_t{value}, store::kNumber);
}

std::string ReadText(const char* name) {
  std::string text = store::StringOf(store::QueryValue(kRoot, kKey, name));
  if (!text.empty()) text.pop_back();  // the terminator
  return text;
}

void WriteText(const char* name, const std::string& value) {
  store::SetKeyValue(kRoot, kKey, name, value, store::kString);
}

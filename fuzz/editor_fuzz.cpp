#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "editor_checks.h"

/// As many actions as a fault needs to show; each looks at the whole cave, and what counts is how many inputs are
/// tried.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostActions = 12;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t text = std::min(input.find(kEditSeparator), size);
  CheckEdit(input.substr(0, text + 1 + kMostActions * kActionSize));
  return 0;
}

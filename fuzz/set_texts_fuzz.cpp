#include <cstddef>
#include <cstdint>
#include <string_view>

#include "cave_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckTexts(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}

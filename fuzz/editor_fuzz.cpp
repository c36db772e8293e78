#include <cstddef>
#include <cstdint>
#include <string_view>

#include "editor_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckEdit(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}

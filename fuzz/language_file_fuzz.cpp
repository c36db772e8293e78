// Bytes of any kind as a language file: the readers, the checker and the source's reader end with a result or a Fault.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/fault.h"
#include "base/language_file.h"
#include "zbl_rules.h"
#include "zbl_source.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void ReadWhole(std::string_view bytes) {
  try {
    const LanguageFile file = ParseLanguageFile(bytes);
    const LanguageHeader header = ParseLanguageHeader(bytes);
    Require(header.number == file.header.number && header.name == file.header.name);
    Require(header.number >= 0);
    for (const std::string& text : file.strings) {
      Require(text.find('#') == std::string::npos);
      for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1)) {
        Require(at > 0 && text[at - 1] == '\r');
      }
    }
  } catch (const Fault&) {
    Require(!CheckLanguageFile(bytes).empty());
  }
}

void ReadHeader(std::string_view bytes) {
  try {
    ParseLanguageHeader(bytes);
  } catch (const Fault&) {
  }
}

/// What a source gives is a complete language file, with or without its notes.
void ReadSource(std::string_view source) {
  try {
    const std::string bytes = BytesOfSource(source, "source");
    ParseLanguageFile(bytes);
    Require(BytesOfSource(Annotated(source), "source") == bytes);
  } catch (const Fault&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ReadHeader(bytes);
  ReadWhole(bytes);
  CheckLanguageFile(bytes);
  ReadSource(bytes);
  return 0;
}

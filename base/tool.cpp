#include "base/tool.h"

#include <cstdio>
#include <exception>
#include <iostream>

#include "base/fault.h"
#include "base/utf8.h"

std::string Visible(std::string_view utf8) {
  constexpr char32_t kStray = 0xDC00;  // and the byte, see CodePoints
  std::string visible;
  for (const char32_t code : CodePoints(utf8)) {
    const bool stray = code > kStray && code <= kStray + 0xFF;
    if (stray || code < 0x20 || (code >= 0x7F && code < 0xA0)) {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned>(code & 0xFF));
      visible += escape;
    } else {
      AppendUtf8(visible, code);
    }
  }
  return visible;
}

int RunTool(const std::string& name, const std::function<int()>& body, int failed) {
  const auto tell = [&](const std::string& what) {
    std::cout.flush();
    std::cerr << name << ": " << Visible(what) << "\n";
    return failed;
  };
  int status = failed;
  try {
    status = body();
  } catch (const Fault& fault) {
    return tell(fault.message());
  } catch (const std::exception& error) {
    return tell(error.what());
  }
  const bool written = std::cout.flush() && std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  return written ? status : tell("The output cannot be written.");
}

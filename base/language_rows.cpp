#include "base/language_rows.h"

#include <cstddef>

namespace {

constexpr int kPanel = 60;      // the message panel of the running game
constexpr int kMenu = 44;       // a menu item
constexpr int kTitle = 40;      // the title of a box or window
constexpr int kTip = 32;        // a tool tip of the palette, also quoted in menu items
constexpr int kBox = 700;       // the text of a box
constexpr int kCaveText = 190;  // what becomes part of a cave text

constexpr std::array<LanguageRow, kLangStrCount> kRows{{
#define ROW(number, name, ...) {number, __VA_ARGS__},
#include "base/language_rows.inc"
#undef ROW
}};

constexpr bool EveryRowInItsPlace() {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (kRows[i].index != static_cast<int>(i)) return false;
  }
  return true;
}
static_assert(EveryRowInItsPlace());

}  // namespace

const std::array<LanguageRow, kLangStrCount> kLanguageRows = kRows;

#include "view/caption.h"

#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"

std::string CaveCaption(std::string_view player, std::string_view cave, CaveMode mode) {
  constexpr std::string_view kNobody = "/";
  std::string caption = HeroName;
  const auto add = [&caption](const std::string& label, std::string_view name) {
    caption += " - " + label + " " + Shortened(name);
  };
  if (player != kNobody) add(LangStr[92], player);
  add(LangStr[93], cave);
  if (mode == CaveMode::kReplay) caption += " - " + LangStr[94];
  if (mode == CaveMode::kTestPlay) caption += " - " + LangStr[95];
  return caption;
}

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
  if (player != kNobody) add(LangStr[text::kCaptionPlayer], player);
  add(LangStr[text::kCaptionCave], cave);
  if (mode == CaveMode::kReplay) caption += " - " + LangStr[text::kCaptionReplay];
  if (mode == CaveMode::kTestPlay) caption += " - " + LangStr[text::kCaptionTestPlay];
  return caption;
}

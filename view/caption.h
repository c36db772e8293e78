#pragma once

#include <string>
#include <string_view>

/// What goes on in the game window.
enum class CaveMode { kPlay, kReplay, kTestPlay };

/// The caption of the game window, from LangStr[text::kCaptionPlayer] to LangStr[text::kCaptionTestPlay]:
///   HeroName " - " [92] " " player " - " [93] " " cave
/// and in a replay " - " [94], in a test play " - " [95] behind it. The part with the player is left out for the player
/// "/", who stands for nobody (a replay opened from a file). player and cave are in the code page of the texts.
std::string CaveCaption(std::string_view player, std::string_view cave, CaveMode mode);

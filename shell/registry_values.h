#pragma once

#include <string>

// What the program keeps from one start to the next. All values lie under one key. A value that is missing reads as 0
// or empty; one that cannot be written is lost without a word.

namespace registry {

inline constexpr const char* kAnimovatAaB = "AnimovatAaB";
inline constexpr const char* kRychlost = "Rychlost";
inline constexpr const char* kRychlostZ = "RychlostZ";
inline constexpr const char* kDatPauzu = "DatPauzu";
inline constexpr const char* kZvuk = "Zvuk";
inline constexpr const char* kJoystick = "Joystick";
inline constexpr const char* kMaximized = "Maximized";        // 1: the game window fills the screen
inline constexpr const char* kJazyk = "Jazyk";                // file name of the language
inline constexpr const char* kPosledniHrac = "PosledniHrac";  // position of the last player in the list

}  // namespace registry

/// Makes the key of the program.
void CreateProgramKey();

int ReadNumber(const char* name);
void WriteNumber(const char* name, int value);
std::string ReadText(const char* name);
void WriteText(const char* name, const std::string& value);

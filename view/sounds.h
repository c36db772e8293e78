#pragma once

#include <string>

/// The wave file of a sound that a running cave asks for, in the program's folder. sound: 0 to 9; any other has none,
/// and the name is empty.
std::string SoundFile(int sound);

/// The wave file of the clock's last seconds, 10 to 0.
std::string CountdownFile(int seconds);

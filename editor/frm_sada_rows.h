#pragma once

// Measures of the set editor's list.

inline constexpr int kRow = 28;  // logical pixels of a row
inline constexpr int kRowsShown = 17;

#pragma once

#include <cstddef>
#include <string_view>

/// What must hold for a cave under edit, whatever an author does. bytes: a cave text, kEditSeparator, and what is done
/// to the cave, four bytes an action. A text that is no cave leaves the small new cave. Throws std::logic_error when
/// something does not hold:
/// - the cave as text decodes to the cave under edit;
/// - the canvas shows what the grid holds;
/// - a hero that was drawn stands where he was drawn and nowhere else;
/// - the amoeba counter is right until a border is drawn or the size changes.
void CheckEdit(std::string_view bytes);

/// The byte between the cave text and the actions.
inline constexpr char kEditSeparator = '\x1E';
/// Bytes of an action.
inline constexpr std::size_t kActionSize = 4;

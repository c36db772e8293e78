#pragma once

#include <string>

#include "engine/hra.h"

/// A running cave as UTF-8 text, one line a row and two characters a cell, so that a terminal shows it in its true
/// proportions. coloured: with the terminal's colour codes. columns, rows: at most so many cells are shown, those
/// around the current hero.
std::string TextPicture(const Hra& game, bool coloured, int columns = kMaxWidth, int rows = kMaxHeight);

/// What the signs of the cave's picture mean, as a few lines: only those that it shows.
std::string TextLegend(const Hra& game, bool coloured);

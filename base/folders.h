#pragma once

#include <string>

#include "base/code_page.h"

/// Where the program's data lies, UTF-8; set once at the start and fixed for the run. CestaHraci ends without a "/",
/// the others with one.
extern std::string CestaKomnaty;  // cave sets
extern std::string CestaZaznamy;  // where the dialog for other people's records starts
extern std::string CestaHraci;    // a folder for each player, with the records
extern std::string OwnSets;       // sets that the user copies or saves: CestaKomnaty, if it can be written

/// The code page of a player's name, which is that of the folder with this name; 1250 goes first. A player without a
/// folder yet has the page of the language in force.
CodePage PlayerPage(const std::string& player);

/// The folder of a player, be it there or not.
std::string PlayerFolder(const std::string& player);

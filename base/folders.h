#pragma once

#include <string>

/// Where the program's data lies, UTF-8; set once at the start and fixed for the run. CestaHraci ends without a "/",
/// the others with one.
extern std::string CestaKomnaty;  // cave sets
extern std::string CestaZaznamy;  // where the dialog for other people's records starts
extern std::string CestaHraci;    // a folder for each player, with the records
extern std::string OwnSets;       // sets that the user copies or saves: CestaKomnaty, if it can be written

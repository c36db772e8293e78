#pragma once

#include <string>

/// Where the program's data lies, UTF-8; set once at the start and fixed for the run. The first two end with "/", the
/// third does not.
extern std::string CestaKomnaty;  // cave sets
extern std::string CestaZaznamy;  // where the dialog for other people's records starts
extern std::string CestaHraci;    // a folder for each player, with the records

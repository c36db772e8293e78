#include "base/folders.h"

std::string CestaKomnaty;
std::string CestaZaznamy;
std::string CestaHraci;
std::string OwnSets;

#include "base/folders.h"

#include "base/files.h"
#include "base/language.h"

std::string CestaKomnaty;
std::string CestaZaznamy;
std::string CestaHraci;
std::string OwnSets;

namespace {

std::string FolderOf(const std::string& player, CodePage page) { return CestaHraci + "/" + ToUtf8(player, page); }

}  // namespace

CodePage PlayerPage(const std::string& player) {
  for (const CodePage page : {CodePage::k1250, CodePage::k1251}) {
    if (!FindPath(FolderOf(player, page)).empty()) return page;
  }
  return PageInForce();
}

std::string PlayerFolder(const std::string& player) { return FolderOf(player, PlayerPage(player)); }

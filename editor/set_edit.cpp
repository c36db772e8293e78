#include "editor/set_edit.h"

#include <cstddef>
#include <utility>

bool SetEdit::Add(const std::string& caveText) {
  if (PocetK >= kMostCavesAdded) return false;
  PracK = AktK;
  for (std::size_t i = PocetK; i >= static_cast<std::size_t>(PracK); --i) {
    KomText[i + 1] = KomText[i];
    Poc[i + 1] = Poc[i];
  }
  // The flag stays on both: in front of a start point comes another one.
  KomText[static_cast<std::size_t>(PracK)] = caveText;
  ++PocetK;
  return true;
}

void SetEdit::Swap(std::size_t a, std::size_t b) {
  std::swap(KomText[a], KomText[b]);
  std::swap(Poc[a], Poc[b]);
}

bool SetEdit::MoveUp() {
  PracK = AktK;
  if (AktK <= 1) return false;
  Swap(AktK, AktK - 1U);
  return true;
}

bool SetEdit::MoveDown() {
  if (AktK >= PocetK) return false;
  Swap(AktK, AktK + 1U);
  return true;
}

void SetEdit::Delete() {
  for (std::size_t i = AktK; i <= PocetK; ++i) {
    KomText[i] = KomText[i + 1];
    Poc[i] = i + 1 < Poc.size() && Poc[i + 1];  // cave 99 has no flag behind it
  }
  --PocetK;
}

#include "campaign/progress.h"

#include <numeric>

#include "base/fault.h"
#include "base/lang_str.h"
#include "cave/names.h"

// The order matters: a record opens the next cave, and whether a bonus cave lets the next one open is asked of its
// final state. A record of another player opens the next cave all the same.
void Progress::ReadRecords(const PlayerRecords& records) {
  for (std::size_t j = 1; j <= PocetK; ++j) {
    const CaveRecordState record = records.Read(Name, KomRec[j].Name, KomText[j]);
    if (record.verdict != Verdict::kNone) {
      StavK.at(j + 1) = Open;
      StavK[j] = record.verdict == Verdict::kOwn ? Passed : ForeignRecord;
    }
    if (JeBonus(KomRec[j - 1].Name) && StavK[j - 1] != Locked && StavK[j] == Locked) StavK[j] = Open;
    Score[j] = record.score;
  }
}

int Progress::Win(int n, int score) {
  auto i = static_cast<std::size_t>(n);
  StavK[i] = Passed;
  Score[i] = score;
  // Behind the last cave this opens a row that is not shown.
  do {
    ++i;
    if (i == StavK.size()) throw Fault("The set has more bonus caves than there are rows.");
    if (StavK[i] != Locked) break;
    StavK[i] = Open;
  } while (JeBonus(KomRec[i].Name));
  return n < PocetK ? n + 1 : n;
}

int Progress::Total() const { return std::accumulate(Score.begin() + 1, Score.begin() + 1 + PocetK, 0); }

int Progress::Left() const {
  int left = 0;
  for (std::size_t j = 1; j <= PocetK; ++j) {
    const bool done = StavK[j] == Passed || (StavK[j] == Open && JeBonus(KomRec[j].Name));
    left += done ? 0 : 1;
  }
  return left;
}

std::string Progress::LeftText() const {
  const int left = Left();
  const std::string word = left > 4    ? LangStr[text::kManyCavesLeft]
                           : left >= 2 ? LangStr[text::kFewCavesLeft]
                           : left == 1 ? LangStr[text::kOneCaveLeft]
                                       : "";
  return LangStr[text::kStillToWin] + " " + std::to_string(left) + " " + word + ".";
}

std::size_t Progress::OpenBefore(std::size_t n) const {
  do {
    --n;
  } while (n > 0 && StavK[n] != Open);
  return n;
}

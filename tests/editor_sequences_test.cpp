// A fixed number of random sequences of what an author does; the fuzz target goes on from here.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "base/random.h"
#include "cave/cave_text.h"
#include "editor_checks.h"

namespace {

/// A cave text, now and then damaged, and a hundred actions.
std::string RandomSequence(Random& random) {
  std::string text = CaveTemplate(random.Next() < 0.5 ? NewCave::kSmall : NewCave::kBig);
  if (random.Next() < 0.3) text[random.Bits() % text.size()] = static_cast<char>(random.Bits() % 256);
  text += kEditSeparator;
  constexpr int kActions = 100;
  for (int i = 0; i < 4 * kActions; ++i) text += static_cast<char>(random.Bits() % 256);
  return text;
}

TEST(EditSequenceTest, NothingAnAuthorDoesSpoilsTheCave) {
  for (int seed = 1; seed <= 50; ++seed) {
    Random random(static_cast<std::uint64_t>(seed));
    try {
      CheckEdit(RandomSequence(random));
    } catch (const std::logic_error& wrong) {
      FAIL() << "sequence " << seed << ": " << wrong.what();
    }
  }
}

TEST(EditSequenceTest, ACaveThatNoEditorWroteCanBeWrittenAgain) {
  std::string text = BuildCaveText(ParseCaveText(CaveTemplate(NewCave::kSmall)));
  const std::size_t time = text.size() - 19 * 11 - 8;  // behind both sizes, before five numbers and the cells
  text.replace(time, 2, "\xFF\xFF");
  ASSERT_EQ(ParseCaveText(text).Time, 1919);
  EXPECT_NO_THROW(CheckEdit(text));
}

}  // namespace

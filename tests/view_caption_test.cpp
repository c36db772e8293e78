// The captions of the game window and its controls; part of view_test.

#include <gtest/gtest.h>

#include "base/lang_str.h"
#include "base/language.h"
#include "game_window.h"
#include "view/caption.h"

namespace {

TEST(GameCaptionTest, TellsWhoPlaysWhat) {
  NactiJazyk(kData + "/english.zbl");
  EXPECT_EQ(CaveCaption("Ann", "First steps", CaveMode::kPlay), "Borzeek - Player: Ann - Cave: First steps");
  EXPECT_EQ(CaveCaption("/", "First steps", CaveMode::kReplay), "Borzeek - Cave: First steps - replay");
  EXPECT_EQ(CaveCaption(LangStr[text::kCaveAuthor], "New", CaveMode::kTestPlay),
            "Borzeek - Player: cave author - Cave: New - test play");
  NactiJazyk(kData + "/cestina.zbl");
}

TEST(GameCaptionTest, RecordingAndRestartHaveTheSameCaptionInEveryLanguage) {
  Game game(Cave("1;T"));
  game.Open();
  for (const char* language : {"english", "russian", "cestina"}) {
    NactiJazyk(kData + "/" + language + ".zbl");
    game.form.SetLW();
    EXPECT_EQ(game.form.Label1.caption(), LangStr[text::kTimeCounter]);
    EXPECT_EQ(game.form.chkRec.caption(), "Zaznamenat hru") << language;
    EXPECT_EQ(game.form.Command3.caption(), "Restart (Ctrl+R)") << language;
  }
}

}  // namespace

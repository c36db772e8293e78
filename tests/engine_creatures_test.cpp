// How fireflies, butterflies and flies move, and what they do beside heroes and amoeba.

#include <gtest/gtest.h>

#include "cave_notation.h"

TEST(EngineCreatures, FireflyKeepsTheWallOnItsLeft) {
  Check({
      {"left: down first", ".../.F./...", "-", ".../.../.Q."},
      {"up: left first", ".../.O./...", "-", ".../F../..."},
      {"right: up first", ".../.P./...", "-", ".O./.../..."},
      {"down: right first", ".../.Q./...", "-", ".../..P/..."},
      {"left: straight on", ".../.F./.;.", "-", ".../F../.;."},
      {"up: straight on", ".../;O./...", "-", ".O./;../..."},
      {"right: straight on", ".;./.P./...", "-", ".;./..P/..."},
      {"down: straight on", ".../.Q;/...", "-", ".../..;/.Q."},
      {"a turn takes the tick, clockwise", "F./;;", "- -", "P./;;"},
      {"shut in it turns on the spot", "P", "- - -", "O"},
  });
}

TEST(EngineCreatures, ButterflyKeepsTheWallOnItsRight) {
  Check({
      {"left: up first", ".../.U./...", "-", ".Y./.../..."},
      {"up: right first", ".../.Y./...", "-", ".../..Z/..."},
      {"right: down first", ".../.Z./...", "-", ".../.../.B."},
      {"down: left first", ".../.B./...", "-", ".../U../..."},
      {"left: straight on", ".;./.U./...", "-", ".;./U../..."},
      {"down: straight on", ".../;B./...", "-", ".../;../.B."},
      {"shut in it turns counter-clockwise", "U", "-", "B"},
      {"and on", "B", "- - -", "U"},
  });
}

TEST(EngineCreatures, EnterOnlyEmptyCells) {
  Check({
      {"a cell just left counts as taken for the rest of the scan", ".FF", "-", "F.O"},
      {"dirt, gems and the exit are no way", ";T;/;FD/;;;", "-", ";T;/;OD/;;;"},
  });
  Play play(".F.F");
  play.game.Aux(1, 0) = 0;
  play.Run("- - -");
  EXPECT_EQ(play.Shown(), Rows(".FP."));  // without a direction it stands still for ever
  EXPECT_EQ(play.game.Aux(3, 0), 0);
}

TEST(EngineCreatures, FlyDrawsADirectionAndKeepsIt) {
  Check({
      {"up", ".../.L./...", "12-", ".L./.../..."},
      {"right, and on", "L.../WWWW", "22- - -", "...L/WWWW"},
      {"down", ".../.L./...", "32-", ".../.../.L."},
      {"left", ".../.L./...", "42-", ".../L../..."},
  });
}

TEST(EngineCreatures, BlockedFlyDrawsUntilAFreeWayThatIsNotBack) {
  const char* walls[] = {"", ".W./.L./...", ".../.LW/...", ".../.L./.W.", ".../WL./..."};
  const char* draws[] = {"", "1322-", "2432-", "3142-", "4212-"};  // blocked, back, aside; amoeba
  for (int way = 1; way <= 4; ++way) {
    SCOPED_TRACE(way);
    Play play(walls[way]);
    play.game.Aux(1, 1) = static_cast<std::uint8_t>(way);
    play.Run(draws[way]);
    EXPECT_EQ(play.game.Aux(1, 1), way % 4 + 1);
    EXPECT_EQ(play.Shown(), Rows(walls[way]));  // the choice takes the tick
  }
}

TEST(EngineCreatures, FlyWithOneWayOrNoneDrawsNothing) {
  Play play("W.WW/WLWL/WWWW");
  play.game.Aux(1, 1) = play.game.Aux(3, 1) = 3;
  play.Run("-");
  EXPECT_EQ(play.game.Aux(3, 1), 1);  // shut in
  play.Run("-");
  EXPECT_EQ(play.Shown(), Rows("WLWW/W.WL/WWWW"));  // the way back
}

TEST(EngineCreatures, Contact) {
  Check({
      {"a firefly beside a hero, though it has not moved", "WF1;", "-", "W**;", "5"},
      {"above a hero", "F;/1;/;;", "-", "**/**/;;", "5"},
      {"beside amoeba", ";;FA.", "-", ";***.", "5"},
      {"a butterfly beside amoeba leaves gems", ";;UA;", "- - - - -", ";DDD;", "5"},
      {"a fly beside amoeba leaves rocks", ";;LA;", "12- - - - -", ";RRR;", "5"},
      {"a corner is no contact", "F;/;1", "-", "O;/;1"},
      {"two creatures do nothing", "FU", "-", "OB"},
      {"a hero can tread where a creature has just left", ".F1;", "l", "**.;", "5"},
  });
  Play still(".1.F");
  still.game.Aux(3, 0) = 0;  // one that never moves
  still.Run("- r");          // the hero who steps beside it is caught in the same tick
  EXPECT_EQ(still.Shown(), Rows("..**"));
  EXPECT_EQ(still.game.Heroes[1].alive, -1);  // seen at the next check
  still.Run("r~");
  EXPECT_EQ(still.game.Heroes[1].alive, 0);
}

// The joystick: its rule of directions, the devices as SDL has them, and a cave that is played with one.

#include "view/joystick.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/language.h"
#include "game_window.h"
#include "platform/joystick.h"
#include "platform/keys.h"
#include "platform/testing_joystick.h"

using namespace platform;
using ::testing::ElementsAre;
using Kind = user::VirtualJoystick::Kind;

namespace {

constexpr std::uint32_t kMiddle = 32768;
constexpr std::uint32_t kEnd = 65535;

// ----------------------------------------------------------------------------------------------------------- The rule

/// The rule with a joystick made of numbers.
struct Rule {
  explicit Rule(std::uint32_t centre = kMiddle) : x(centre), y(centre) { joystick.JoyInit(); }

  int At(std::uint32_t newX, std::uint32_t newY) {
    x = newX;
    y = newY;
    return joystick.JoyDirection(2);
  }
  std::vector<int> For(int readings, std::uint32_t newX, std::uint32_t newY) {
    std::vector<int> directions;
    for (int i = 0; i < readings; ++i) directions.push_back(At(newX, newY));
    return directions;
  }

  std::uint32_t x;
  std::uint32_t y;
  std::uint32_t buttons = 0;
  int device = 1;
  JoyStick joystick{[this](JoystickRecord& record) {
    EXPECT_EQ(std::pair(record.size, record.flags), std::pair(64U, 255U)) << "what a record has to ask for";
    if (device == 0) return 0;
    record.x = x;
    record.y = y;
    record.buttons = buttons;
    return device;
  }};
};

TEST(JoystickRuleTest, ADirectionBeginsHalfWayFromTheCentreWhereverThatIs) {
  struct Case {
    std::uint32_t centre;
    std::uint32_t low;   // the last position below the threshold
    std::uint32_t high;  // the first above the other one
  };
  for (const Case& each : {Case{kMiddle, 16383, 49153}, Case{20000, 9999, 30001}, Case{33001, 16500, 49502}}) {
    Rule rule(each.centre);
    const std::uint32_t c = each.centre;
    EXPECT_EQ(rule.At(c, c), 0);
    EXPECT_EQ(rule.At(each.low, c), 1);
    EXPECT_EQ(rule.At(each.low + 1, c), 0);
    EXPECT_EQ(rule.At(c, each.low), 2);
    EXPECT_EQ(rule.At(c, each.low + 1), 0);
    EXPECT_EQ(rule.At(each.high, c), 3);
    EXPECT_EQ(rule.At(each.high - 1, c), 0);
    EXPECT_EQ(rule.At(c, each.high), 4);
    EXPECT_EQ(rule.At(c, each.high - 1), 0);
  }
  Rule rule;
  rule.x = 20000;
  EXPECT_EQ(rule.joystick.JoyDirection(4), 1) << "a higher sensitivity wants less";
}

TEST(JoystickRuleTest, TheNewestDirectionWinsAndTwoOfTheSameAgeGiveNone) {
  Rule rule;
  EXPECT_THAT(rule.For(3, 0, kMiddle), ElementsAre(1, 1, 1));
  EXPECT_THAT(rule.For(3, 0, kEnd), ElementsAre(4, 4, 4)) << "down came later";
  EXPECT_THAT(rule.For(2, 0, kMiddle), ElementsAre(1, 1)) << "and gives way to the older one";
  EXPECT_EQ(rule.At(kMiddle, kMiddle), 0);
  EXPECT_THAT(rule.For(3, kEnd, 0), ElementsAre(0, 0, 0)) << "begun together";
  EXPECT_EQ(rule.At(kEnd, kMiddle), 3);
  EXPECT_EQ(rule.At(kEnd, 0), 2);
}

TEST(JoystickRuleTest, AfterAThousandReadingsADirectionBeginsAnew) {
  Rule rule;
  for (int i = 1; i < 1000; ++i) ASSERT_EQ(rule.At(0, kMiddle), 1) << i;
  EXPECT_THAT(rule.For(2, 0, kMiddle), ElementsAre(0, 1)) << "the thousandth counts as not held";
  Rule two;
  for (int i = 1; i <= 997; ++i) two.At(0, kMiddle);
  EXPECT_THAT(two.For(5, 0, 0), ElementsAre(2, 2, 2, 1, 1)) << "begun anew it is the newest";
}

TEST(JoystickRuleTest, ACentreAtTheEndOfAnAxisLeavesOneDirectionOrNone) {
  Rule low(0);
  EXPECT_EQ(low.At(0, 0), 0);
  EXPECT_EQ(low.At(kMiddle, 0), 3) << "held left when the window was laid out, then let go";
  Rule high(kEnd);
  EXPECT_EQ(high.At(kMiddle, kMiddle), 0);
  EXPECT_EQ(high.At(0, kMiddle), 1);
  EXPECT_EQ(high.At(kEnd, kMiddle), 0);
}

TEST(JoystickRuleTest, ButtonsAreTheFirstEight) {
  Rule rule;
  for (const auto& [mask, expected] : {std::pair(0x1U, 1), {0x2U, 2}, {0x3U, 3}, {0xFF80U, 0x80}, {0x100U, 0}}) {
    rule.buttons = mask;
    EXPECT_EQ(rule.joystick.JoyButtons(), expected);
  }
}

TEST(JoystickRuleTest, WithoutAJoystickAllIsAtRestAndOneThatComesIsCentred) {
  Rule rule;
  rule.device = 0;
  JoyStick never([](JoystickRecord&) { return 0; });
  never.JoyInit();
  EXPECT_EQ(never.JoyDirection(2), 0);
  EXPECT_EQ(never.JoyCenterX, 0U);

  rule.device = 1;
  rule.buttons = 3;
  EXPECT_EQ(rule.At(0, kMiddle), 1);
  EXPECT_EQ(rule.joystick.JoyButtons(), 3);
  rule.device = 0;
  EXPECT_EQ(rule.joystick.JoyDirection(2), 0) << "unplugged while it was pushed left";
  EXPECT_EQ(rule.joystick.JoyButtons(), 0);
  rule.device = 1;
  EXPECT_EQ(rule.joystick.JoyDirection(2), 1) << "the same one: the centre has not changed";
  rule.device = 2;
  EXPECT_EQ(rule.At(40000, kMiddle), 0);
  EXPECT_EQ(rule.joystick.JoyCenterX, 40000U) << "another one: it is at rest where it is";
  EXPECT_EQ(rule.At(19999, kMiddle), 1);
}

// -------------------------------------------------------------------------------------------------------- The devices

/// Virtual joysticks want to be the first of the system.
class DeviceTest : public testing::Test {
 protected:
  void SetUp() override {
    if (user::RealJoysticks() > 0) GTEST_SKIP() << "A real joystick is plugged in.";
  }
};

class Reading : public JoystickRecord {
 public:
  Reading() {
    size = kSize;
    flags = kAllFields;
  }
  explicit Reading(Joystick& joystick) : Reading() { device = joystick.Read(*this); }
  std::pair<std::uint32_t, std::uint32_t> place() const { return {x, y}; }

  int device = 0;
};

class PushedTest : public DeviceTest, public testing::WithParamInterface<Kind> {};

TEST_P(PushedTest, StickCrossAndButtonsBecomeAPositionAndAMask) {
  Joystick joystick;
  user::VirtualJoystick device(GetParam());
  const auto push = [&](double x, double y, int crossX, int crossY) {
    device.Push(x, y);
    device.PushCross(crossX, crossY);
    return Reading(joystick).place();
  };
  EXPECT_EQ(push(0, 0, 0, 0), std::pair(kMiddle, kMiddle));
  EXPECT_EQ(push(-1, 1, 0, 0), std::pair(0U, kEnd));
  EXPECT_EQ(push(1, -1, 0, 0), std::pair(kEnd, 0U));
  EXPECT_EQ(push(-0.5, 0, 0, 0), std::pair(kMiddle / 2, kMiddle));
  EXPECT_EQ(push(0, 0, -1, 0), std::pair(0U, kMiddle));
  EXPECT_EQ(push(0, 0, 1, 0), std::pair(kEnd, kMiddle));
  EXPECT_EQ(push(0, 0, 0, -1), std::pair(kMiddle, 0U));
  EXPECT_EQ(push(0, 0, 0, 1), std::pair(kMiddle, kEnd));
  EXPECT_EQ(push(1, 1, -1, 0), std::pair(0U, kEnd)) << "the cross beats the stick, each way by itself";
  EXPECT_EQ(push(0, 0, -1, -1), std::pair(0U, 0U));
  EXPECT_EQ(Reading(joystick).buttons, 0U) << "a cross is no button";
  push(0, 0, 0, 0);
  for (const unsigned mask : {1U, 2U, 3U, 0U}) {
    device.HoldButtons(mask);
    EXPECT_EQ(Reading(joystick).buttons, mask);
  }
  EXPECT_EQ(Reading(joystick).place(), std::pair(kMiddle, kMiddle));
}

std::string NameOf(const testing::TestParamInfo<Kind>& kind) {
  return kind.param == Kind::kStick ? "Stick" : kind.param == Kind::kPad ? "Pad" : "PadWithHat";
}

INSTANTIATE_TEST_SUITE_P(Kinds, PushedTest, testing::Values(Kind::kStick, Kind::kPad, Kind::kPadWithHat), NameOf);

TEST_F(DeviceTest, ComeAndGoAndEachHasANumber) {
  Joystick joystick;
  EXPECT_EQ(Reading(joystick).device, 0);
  auto first = std::make_unique<user::VirtualJoystick>(Kind::kStick);
  first->Push(-1, 0);
  EXPECT_EQ(Reading(joystick).device, 1) << "plugged in later";
  auto second = std::make_unique<user::VirtualJoystick>(Kind::kPad);
  EXPECT_EQ(Reading(joystick).device, 1) << "the first one stays the first";
  first.reset();
  EXPECT_EQ(Reading(joystick).device, 2);
  second.reset();
  Reading kept;
  kept.x = 17;
  kept.buttons = 3;
  EXPECT_EQ(joystick.Read(kept), 0);
  EXPECT_EQ(std::pair(kept.x, kept.buttons), std::pair(17U, 3U)) << "without any the record stays as it is";
  const user::VirtualJoystick third(Kind::kPad);
  EXPECT_EQ(Reading(joystick).device, 3);
  JoystickRecord unmarked;
  EXPECT_EQ(joystick.Read(unmarked), 0) << "a record that asks for nothing";
}

TEST_F(DeviceTest, AreTakenWhenTheyWereThereBeforeAndLetGoWhenNotWanted) {
  const user::VirtualJoystick device(Kind::kStick);
  Joystick joystick;
  EXPECT_EQ(Reading(joystick).device, 1);
  joystick.Close();
  EXPECT_EQ(Reading(joystick).device, 2);
}

TEST_F(DeviceTest, AreNotReadWhileTheProgramIsNotInFront) {
  user::VirtualJoystick device(Kind::kStick);
  Joystick joystick;
  EXPECT_EQ(Reading(joystick).device, 1);
  user::SetProgramActive(false);
  EXPECT_EQ(Reading(joystick).device, 0);
  user::SetProgramActive(true);
  EXPECT_EQ(Reading(joystick).device, 1);
}

// The system has an axis at its low end that has not moved since it was plugged in. A centre taken there would send the
// hero right for ever.
TEST_F(DeviceTest, AnAxisThatHasNeverMovedIsInTheMiddle) {
  user::VirtualJoystick device(Kind::kStick);
  device.Push(-1, -1);
  Joystick joystick;
  EXPECT_EQ(Reading(joystick).place(), std::pair(kMiddle, kMiddle));
  device.Push(-0.9, -1);
  EXPECT_LT(Reading(joystick).x, kMiddle / 4);
  device.Push(-1, -1);
  EXPECT_EQ(Reading(joystick).place(), std::pair(0U, kMiddle)) << "once it has moved its low end is its low end";
}

// ---------------------------------------------------------------------------------------------------------- In the
// game

class JoystickGameTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    game.settings.Joystick = 1;
  }
  std::pair<int, int> After(int ticks) {
    game.Tick(ticks);
    return {game.Hero().x, game.Hero().y};
  }
  std::pair<int, int> Pushed(user::VirtualJoystick& device, double x, double y) {
    device.Push(x, y);
    return After(1);
  }

  Game game{DirtCave(19, 11, 9, 5)};
};

TEST_F(JoystickGameTest, SteersTheHeroInEveryDirectionAndBeatsTheKeys) {
  user::VirtualJoystick pad(Kind::kPad);
  game.Start();
  EXPECT_EQ(Pushed(pad, 0, 0), std::pair(9, 5));
  EXPECT_EQ(Pushed(pad, -1, 0), std::pair(8, 5));
  EXPECT_EQ(Pushed(pad, 0, -1), std::pair(8, 4));
  EXPECT_EQ(Pushed(pad, 1, 0), std::pair(9, 4));
  EXPECT_EQ(Pushed(pad, 0, 1), std::pair(9, 5));
  EXPECT_EQ(Pushed(pad, 1, 1), std::pair(10, 5)) << "down is older";
  EXPECT_EQ(After(3), std::pair(13, 5));
  EXPECT_EQ(Pushed(pad, 0, 0), std::pair(13, 5));
  EXPECT_EQ(Pushed(pad, -0.7, 0.7), std::pair(13, 5)) << "a diagonal begun in one tick";
  pad.Push(0, 0);
  user::PressKey(kKeyUp);
  pad.PushCross(-1, 0);
  EXPECT_EQ(After(2), std::pair(11, 5));
  pad.PushCross(0, 0);
  EXPECT_EQ(After(1), std::pair(11, 4)) << "the key is still held";
  user::ReleaseKey(kKeyUp);
}

TEST_F(JoystickGameTest, IsCentredWhereItStandsWhenTheWindowIsLaidOut) {
  user::VirtualJoystick stick(Kind::kStick);
  game.Start();
  EXPECT_EQ(Pushed(stick, 0.6, 0), std::pair(10, 5));
  game.Start();
  EXPECT_EQ(After(1), std::pair(9, 5)) << "held as far to the right as before";
  EXPECT_EQ(Pushed(stick, 0, 0), std::pair(9, 5));
  EXPECT_EQ(Pushed(stick, -0.3, 0), std::pair(8, 5)) << "half of the way from there";
}

TEST_F(JoystickGameTest, ButtonsActAndChooseHeroes) {
  user::VirtualJoystick pad(Kind::kPad);
  Game heroes(Cave(";1;2;3;"));
  heroes.settings.Joystick = 1;
  heroes.Start();
  const auto hold = [&](unsigned mask) {
    pad.HoldButtons(mask);
    heroes.Tick();
    return heroes.form.game.CurrentHero;
  };
  EXPECT_EQ(hold(2), 3) << "backward";
  EXPECT_EQ(hold(3), 1) << "forward";
  EXPECT_EQ(hold(4), 1);
  EXPECT_EQ(hold(7), 1) << "with a third button neither counts";
  pad.PushCross(-1, 0);
  EXPECT_EQ(hold(1), 1);
  EXPECT_EQ(heroes.Hero().x, 1) << "he digs and stays";
  EXPECT_EQ(heroes.form.game.Tiles(0, 0), Empty);
}

TEST_F(JoystickGameTest, OneThatIsUnpluggedInFullFlightLeavesTheHeroStanding) {
  auto pad = std::make_unique<user::VirtualJoystick>(Kind::kPad);
  game.Start();
  pad->Push(-1, 0);
  pad->HoldButtons(0);
  EXPECT_EQ(After(2), std::pair(7, 5));
  pad.reset();
  EXPECT_EQ(After(3), std::pair(7, 5));
  user::PressKey(kKeyRight);
  EXPECT_EQ(After(1), std::pair(8, 5)) << "the keys steer on";
  user::ReleaseKey(kKeyRight);
  pad = std::make_unique<user::VirtualJoystick>(Kind::kPad);
  EXPECT_EQ(After(2), std::pair(8, 5));
  EXPECT_EQ(Pushed(*pad, 0, 1), std::pair(8, 6)) << "plugged in again";
}

TEST_F(JoystickGameTest, IsLeftAloneUntilTheSettingIsOn) {
  game.settings.Joystick = 0;
  game.Start();
  game.Tick();
  EXPECT_FALSE(user::JoysticksStarted());
  user::VirtualJoystick stick(Kind::kStick);
  const auto toggle = [this] {
    user::WhenFront([this] {
      user::Click(game.settings.Check4, 8, 13);
      user::Click(game.settings.Command1);
    });
    user::Click(game.form.Command4);
  };
  EXPECT_EQ(Pushed(stick, -1, 0), std::pair(9, 5));
  stick.Push(0, 0);
  toggle();
  EXPECT_EQ(game.settings.Joystick, 1);
  EXPECT_EQ(After(1), std::pair(9, 5));
  EXPECT_EQ(Pushed(stick, -1, 0), std::pair(8, 5));
  toggle();
  EXPECT_EQ(After(1), std::pair(8, 5));
}

}  // namespace

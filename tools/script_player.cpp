#include "tools/script_player.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "base/fault.h"

const char* const kScriptHelp =
    "  R5 D2 L U      walk; every step is tried until the hero has really moved\n"
    "  r d3 l u       act on the cell beside without moving: dig, take, push\n"
    "  .10            let ten ticks pass (ten ticks are a second of the cave)\n"
    "  #2             select hero 2\n"
    "  ?4,7=D.        wait until column 4, row 7 (from 0) shows one of these characters\n"
    "  ?4,7!FOPQ      wait until it shows none of them\n"
    "  ?+1,-2=.       the same, counted from the hero\n"
    "  $5             wait until five gems are taken\n"
    "  @120           wait until tick 120 of the cave\n"
    "  (R2 .4 L2)3    three times\n"
    "  // to the end of the line: a remark\n";

namespace {

using Kind = ScriptStep::Kind;

constexpr int kMostTries = 300;  // of one step; a push that succeeds one time in four fails this often never
constexpr std::size_t kMostSteps = 20000;
constexpr int kLargestNumber = 99999;

int KeyOf(char letter) {
  switch (std::toupper(static_cast<unsigned char>(letter))) {
    case 'L':
      return key::kLeft;
    case 'U':
      return key::kUp;
    case 'R':
      return key::kRight;
    case 'D':
      return key::kDown;
    default:
      return 0;
  }
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes a script apart from its front.
class ScriptReader {
 public:
  ScriptReader(std::string_view text, const std::string& file) : text_(text), file_(file) {}

  Script Read() {
    Script script = Steps();
    if (Next() == ')') Fail("\")\" without a \"(\" before it");
    return script;
  }

 private:
  [[noreturn]] void Fail(const std::string& what, int line = 0) const {
    throw Fault(what + ".", file_ + ":" + std::to_string(line != 0 ? line : line_));
  }

  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool AtEnd() const { return at_ >= text_.size(); }

  /// The first character of the next step, or 0 at the end.
  char Next() {
    while (!AtEnd()) {
      if (text_.substr(at_).starts_with("//")) {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (std::isspace(static_cast<unsigned char>(Peek())) != 0) {
        if (Peek() == '\n') ++line_;
        ++at_;
      } else {
        break;
      }
    }
    return Peek();
  }

  /// A whole number; `otherwise` if there is none.
  int Number(int otherwise) {
    if (!IsDigit(Peek())) return otherwise;
    int number = 0;
    for (; IsDigit(Peek()); ++at_) {
      number = number * 10 + (Peek() - '0');
      if (number > kLargestNumber) Fail("a number above " + std::to_string(kLargestNumber));
    }
    return number;
  }

  int NumberAfter(char letter) {
    if (!IsDigit(Peek())) Fail(std::string("a number is missing after \"") + letter + "\"");
    return Number(0);
  }

  void Append(Script& script, const Script& steps, int times) const {
    if (script.size() + steps.size() * static_cast<std::size_t>(times) > kMostSteps) {
      Fail("the script has more than " + std::to_string(kMostSteps) + " steps");
    }
    for (int i = 0; i < times; ++i) script.insert(script.end(), steps.begin(), steps.end());
  }

  /// The steps up to the end or a closing parenthesis.
  Script Steps() {
    Script script;
    for (char c = Next(); c != '\0' && c != ')'; c = Next()) {
      ++at_;
      if (c == '(') {
        ReadGroup(script);
      } else {
        ReadStep(script, c);
      }
    }
    if (!AtEnd() && Peek() == '\0') Fail("a character of code 0");
    return script;
  }

  void ReadGroup(Script& script) {
    const int line = line_;
    if (++depth_ > 20) Fail("parentheses more than 20 deep");
    const Script inner = Steps();
    --depth_;
    if (AtEnd()) Fail("the \"(\" is never closed", line);
    ++at_;
    Append(script, inner, Number(1));
  }

  void ReadStep(Script& script, char c) {
    ScriptStep step;
    step.letter = c;
    step.line = line_;
    step.key = KeyOf(c);
    int times = 1;
    if (step.key != 0) {
      step.kind = std::isupper(static_cast<unsigned char>(c)) != 0 ? Kind::Walk : Kind::Act;
      times = Number(1);
    } else if (c == '.') {
      step.number = Number(1);
    } else if (c == '#' || c == '$' || c == '@') {
      step.kind = c == '#' ? Kind::SelectHero : c == '$' ? Kind::WaitForGems : Kind::WaitForTick;
      step.number = NumberAfter(c);
      if (c == '#' && (step.number < 1 || step.number > 9)) Fail("heroes are numbered from 1 to 9");
    } else if (c == '?') {
      step.kind = Kind::WaitForCell;
      step.test = ReadTest();
    } else {
      Fail(std::string("no step begins with \"") + c + "\"");
    }
    Append(script, {step}, times);
  }

  int Coordinate(bool& fromHero) {
    const bool hasSign = Peek() == '+' || Peek() == '-';
    const int sign = Peek() == '-' ? -1 : 1;
    if (hasSign) ++at_;
    fromHero = fromHero || hasSign;
    return sign * NumberAfter('?');
  }

  CellTest ReadTest() {
    CellTest test;
    test.x = Coordinate(test.fromHero);
    if (Peek() != ',') Fail("\",\" is missing between column and row");
    ++at_;
    test.y = Coordinate(test.fromHero);
    if (Peek() != '=' && Peek() != '!') Fail("\"=\" or \"!\" is missing after the row");
    test.shows = Peek() == '=';
    for (++at_; !AtEnd() && std::isspace(static_cast<unsigned char>(Peek())) == 0; ++at_) test.characters += Peek();
    if (test.characters.empty()) Fail("the characters to wait for are missing");
    return test;
  }

  std::string_view text_;
  const std::string& file_;
  std::size_t at_ = 0;
  int line_ = 1;
  int depth_ = 0;
};

}  // namespace

Script ParseScript(std::string_view text, const std::string& file) { return ScriptReader(text, file).Read(); }

ScriptPlayer::ScriptPlayer(std::string_view caveText, Script script, std::uint64_t seed) : script_(std::move(script)) {
  hooks_.keyHeld = [this](int virtualKey) {
    return virtualKey == direction_ || (virtualKey == key::kSpace && action_) ||
           (hero_ != 0 && virtualKey == key::kNumpad0 + hero_);
  };
  hooks_.won = [this] { recording_ = game_.RecordBuffer; };
  game_.hooks = &hooks_;
  game_.random = Random(seed);
  game_.PaintCave(caveText);
  game_.Command1_Click();
}

bool ScriptPlayer::Tick() {
  if (outcome_ != Outcome::Running || !SkipDoneWaits()) return false;
  const ScriptStep& step = script_[at_];
  if (!CanBeTried(step)) return false;
  Press(step);
  game_.tmrHra_Timer();
  ++ticks_;
  if (IsDone(step)) {
    NextStep();
  } else {
    ++tries_;
  }
  LookAtTheCave();
  return true;
}

/// Passes over the steps that need no tick; false at the end of the script.
bool ScriptPlayer::SkipDoneWaits() {
  while (at_ < script_.size() && WaitIsOver(script_[at_])) NextStep();
  if (at_ < script_.size()) return true;
  End(Outcome::ScriptEnded, "the script has ended");
  return false;
}

bool ScriptPlayer::WaitIsOver(const ScriptStep& step) const {
  switch (step.kind) {
    case Kind::Wait:
      return tries_ >= step.number;
    case Kind::WaitForTick:
      return ticks_ >= step.number;
    case Kind::WaitForGems:
      return game_.Collected >= step.number;
    case Kind::SelectHero:
      return game_.CurrentHero == step.number;
    case Kind::WaitForCell: {
      const HeroRecord& hero = game_.Heroes[static_cast<std::size_t>(game_.CurrentHero)];
      const int x = step.test.x + (step.test.fromHero ? hero.x : 0);
      const int y = step.test.y + (step.test.fromHero ? hero.y : 0);
      if (x < 0 || y < 0 || x >= game_.CaveWidth || y >= game_.CaveHeight) return false;
      const char shown = CharacterOfCell(game_.Tiles(x, y), game_.Motion(x, y), game_.Aux(x, y));
      return (step.test.characters.find(shown) != std::string::npos) == step.test.shows;
    }
    default:
      return false;
  }
}

bool ScriptPlayer::CanBeTried(const ScriptStep& step) {
  const auto dead = [this](int hero) {
    if (game_.Heroes[static_cast<std::size_t>(hero)].alive != 0) return false;
    const std::string number = "hero " + std::to_string(hero);
    End(Outcome::HeroDead, hero > game_.HeroCount ? "there is no " + number : number + " is dead");
    return true;
  };
  const bool isWalkOrAct = step.kind == Kind::Walk || step.kind == Kind::Act;
  if (step.kind == Kind::SelectHero && dead(step.number)) return false;
  if (isWalkOrAct && dead(game_.CurrentHero)) return false;
  if ((isWalkOrAct || step.kind == Kind::SelectHero) && tries_ >= kMostTries) {
    End(Outcome::Stuck, std::string("the step \"") + step.letter + "\" in line " + std::to_string(step.line) +
                            " of the script could not be done in " + std::to_string(kMostTries) + " tries");
    return false;
  }
  return true;
}

ScriptPlayer::Place ScriptPlayer::Target(const ScriptStep& step) const {
  const HeroRecord& hero = game_.Heroes[static_cast<std::size_t>(game_.CurrentHero)];
  const int x = hero.x + (step.key == key::kRight ? 1 : step.key == key::kLeft ? -1 : 0);
  const int y = hero.y + (step.key == key::kDown ? 1 : step.key == key::kUp ? -1 : 0);
  return {x, y, std::min(2 * x - hero.x, kMaxWidth)};  // a cell beyond the grid's margin is never a rock's
}

void ScriptPlayer::Press(const ScriptStep& step) {
  const bool isWalkOrAct = step.kind == Kind::Walk || step.kind == Kind::Act;
  const bool isHeld = game_.HeroLocked;  // by the teleport; a key would act where it lets the hero go
  direction_ = isWalkOrAct && !isHeld ? step.key : 0;
  action_ = step.kind == Kind::Act;
  hero_ = step.kind == Kind::SelectHero ? step.number : 0;
  if (!isWalkOrAct) return;
  target_ = Target(step);
  before_ = game_.Tiles(target_.x, target_.y);
  beyond_ = game_.Tiles(target_.beyondX, target_.y);
  gems_ = game_.Collected;
}

/// Whether the tick just played has done the step. Waiting is looked at before a tick.
bool ScriptPlayer::IsDone(const ScriptStep& step) const {
  const HeroRecord& hero = game_.Heroes[static_cast<std::size_t>(game_.CurrentHero)];
  if (step.kind == Kind::Walk) return hero.x == target_.x && hero.y == target_.y;
  return step.kind == Kind::Act && (game_.Collected > gems_ || TargetIsTaken());
}

/// Whether the hero has dug, taken or pushed away what stood on the target, other than a plain gem, which is counted.
/// What fell away by itself was not the hero's doing.
bool ScriptPlayer::TargetIsTaken() const {
  const int x = target_.x;
  const int y = target_.y;
  if (game_.Tiles(x, y) != Empty) return false;
  switch (before_) {
    case Dirt:
    case Crate:
      return true;
    case Rock:
      return beyond_ == Empty && game_.Tiles(target_.beyondX, y) == Rock;
    case RedGem:
    case GreenGem:
    case BlueGem:
      return game_.Tiles(x, y + 1) != before_;
    default:
      return false;
  }
}

void ScriptPlayer::NextStep() {
  ++at_;
  tries_ = 0;
}

void ScriptPlayer::LookAtTheCave() {
  const auto isAlive = [](const HeroRecord& hero) { return hero.alive != 0; };
  if (game_.Won) {
    outcome_ = Outcome::Won;
  } else if (std::none_of(game_.Heroes.begin(), game_.Heroes.end(), isAlive)) {
    End(Outcome::HeroDead, game_.HeroCount > 1 ? "all heroes are dead" : "the hero is dead");
  } else if (game_.TimeLimit <= game_.ElapsedTime) {
    End(Outcome::TimeOut, "the time is out");
  }
}

void ScriptPlayer::End(Outcome outcome, const std::string& explanation) {
  outcome_ = outcome;
  explanation_ = explanation;
}

#include "cave_notation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <sstream>

#include "base/lang_str.h"
#include "cave/cave_text.h"

namespace {

struct Special {
  char shown;
  char plain;
  int motion;
};

constexpr Special kSpecial[] = {{'r', 'R', 3}, {'d', 'D', 3}, {'i', '!', 3}, {':', '.', 2},
                                {'|', '.', 3}, {'e', 'E', 2}, {'f', 'E', 3}};

std::vector<std::string> Split(std::string_view text, char at) {
  std::vector<std::string> parts;
  std::istringstream in{std::string(text)};
  for (std::string part; std::getline(in, part, at);) parts.push_back(part);
  return parts;
}

char Number(int n) { return static_cast<char>(n + 65); }

std::string Draws(std::string_view digits) {
  std::string line;
  for (const char digit : digits) line += Number(digit - '0');
  return line;
}

/// A tick in the notation of Play::Run as a line of a replay.
std::string ReplayLineOf(std::string_view tick, int hero) {
  const std::size_t key = tick.find_first_not_of("0123456789");
  std::string_view rest = tick.substr(key + 1);
  std::string line = Draws(key == 0 ? "2" : tick.substr(0, key));
  if (tick[key] == '_') return line + Draws(rest);
  if (const std::size_t at = rest.find('@'); at != std::string_view::npos) {
    hero = rest[at + 1] - '0';
    rest = rest.substr(0, at);
  }
  const std::size_t arrow = std::string_view("lurd").find(static_cast<char>(std::tolower(tick[key])));
  const bool moves = arrow != std::string_view::npos;
  line += Number(moves ? key::kLeft + static_cast<int>(arrow) : 0);
  line += Number(std::isupper(tick[key]) != 0 ? 1 : 0);
  line += Number(hero);
  return line + (rest == "~" ? "" : Draws(moves && rest.empty() ? "2" : rest));
}

const char* NameOf(std::uint32_t colour) {
  switch (colour) {
    case colour::kWhite:
      return ":white";
    case colour::kGreen:
      return ":green";
    case colour::kLightYellow:
      return ":yellow";
    case colour::kCyan:
      return ":cyan";
    default:
      return ":?";
  }
}

void Record(Play& play) {
  const auto note = [&play](const std::string& name) {
    return [&play, name](auto... numbers) {
      std::string text;
      ((text += (text.empty() ? "" : ",") + std::to_string(numbers)), ...);
      play.log.push_back(name + " " + (text.empty() ? "." : text));
    };
  };
  Hooks& hooks = play.hooks;
  hooks.paintCell = note("paint");
  hooks.paintCellTop = note("top");
  hooks.paintStrip = note("strip");
  hooks.showCell = note("view");
  hooks.scrollFreely = note("scroll");
  hooks.flash = note("flash");
  hooks.pulse = note("pulse");
  hooks.playSound = [sound = note("sound")](int number, bool) { sound(number); };
  hooks.playCountdown = note("countdown");
  hooks.stopTimer = note("stop");
  hooks.won = note("won");
  hooks.restart = note("restart");
  hooks.idlePause = [&play, box = note("idlePause")] { box(play.game.IdleTicks); };
  hooks.showMessage = [&play](const std::string& text, std::uint32_t colour) {
    play.log.push_back("say " + text + NameOf(colour));
  };
  hooks.keyHeld = [&play](int key) { return play.pressed.erase(key) != 0 || play.held.count(key) != 0; };
  hooks.dropKeys = [&play, drop = note("drop")] {
    play.pressed.clear();
    drop();
  };
  hooks.readReplayLine = [&play](std::string& line) {
    line = play.next;
    return !play.ended;
  };
}

}  // namespace

std::string TextOfCave(std::string_view rows, const Numbers& numbers) {
  const std::vector<std::string> cells = Split(rows, '/');
  CaveRecord record;
  record.Name = "Cave";
  record.Width = static_cast<std::uint8_t>(cells.at(0).size());
  record.Height = static_cast<std::uint8_t>(cells.size());
  record.Time = static_cast<std::int16_t>(numbers.time);
  record.Need = static_cast<std::int16_t>(numbers.need);
  record.PointsBefore = static_cast<std::uint8_t>(numbers.pointsBefore);
  record.PointsAfter = static_cast<std::uint8_t>(numbers.pointsAfter);
  record.MagicTime = static_cast<std::uint8_t>(numbers.magicTime);
  record.AmoebaTime = static_cast<std::uint8_t>(numbers.amoebaTime);
  record.SlimeThrough = static_cast<std::uint8_t>(numbers.slime);
  for (int y = 0; y < record.Height; ++y) {
    for (int x = 0; x < record.Width; ++x) {
      record.Cell(x, y) = cells.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x));
      for (const Special& special : kSpecial) {
        if (record.Cell(x, y) == special.shown) record.Cell(x, y) = special.plain;
      }
    }
  }
  return BuildCaveText(record);
}

std::string Rows(std::string_view rows) {
  std::string text(rows);
  std::replace(text.begin(), text.end(), '/', '\n');
  return text + '\n';
}

Play::Play(std::string_view rows, const Numbers& numbers) : game(&hooks, &settings) {
  for (std::size_t i = 0; i < LangStr.size(); ++i) LangStr[i] = std::to_string(i);
  Record(*this);
  Load(rows, numbers);
}

void Play::Load(std::string_view rows, const Numbers& numbers) {
  game.PaintCave(TextOfCave(rows, numbers));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int column = game.CaveWidth + 1;  // with the line end
    for (const Special& special : kSpecial) {
      if (rows[i] != special.shown) continue;
      game.Motion(static_cast<int>(i) % column, static_cast<int>(i) / column) =
          static_cast<std::uint8_t>(special.motion);
    }
  }
  log.clear();
}

void Play::Run(std::string_view ticks, int times) {
  game.PlayingReplay = true;
  for (int i = 0; i < times; ++i) {
    for (const std::string& tick : Split(ticks, ' ')) {
      next = ReplayLineOf(tick, game.CurrentHero);
      game.tmrHra_Timer();
      EXPECT_EQ(game.ReplayLine, "") << "draws left over in the tick " << tick;
    }
  }
}

std::string Play::Live(int ticks) {
  game.PlayingReplay = false;
  std::size_t start = 0;
  for (int i = 0; i < ticks; ++i) {
    start = game.RecordBuffer.size();
    game.tmrHra_Timer();
  }
  const std::string line = game.RecordBuffer.substr(start);
  return line.ends_with("\r\n") ? line.substr(0, line.size() - 2) : line;
}

std::string Play::Shown() const {
  std::string text = game.Picture();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int column = game.CaveWidth + 1;
    for (const Special& special : kSpecial) {
      if (text[i] != special.plain) continue;
      const int motion = game.Motion(static_cast<int>(i) % column, static_cast<int>(i) / column);
      if (motion == special.motion) text[i] = special.shown;
    }
  }
  return text;
}

std::string Play::Took(std::string_view name) {
  std::string text;
  std::vector<std::string> others;
  for (const std::string& event : log) {
    if (event.starts_with(std::string(name) + " ")) {
      text += (text.empty() ? "" : " ") + event.substr(name.size() + 1);
    } else {
      others.push_back(event);
    }
  }
  log = others;
  return text;
}

void Check(std::initializer_list<Case> cases) {
  for (const Case& rule : cases) {
    SCOPED_TRACE(rule.what);
    Play play(rule.before, rule.numbers);
    play.Run(rule.ticks);
    EXPECT_EQ(play.Shown(), Rows(rule.after));
    EXPECT_EQ(play.Took("sound"), rule.sounds);
  }
}

// zbplay: plays a cave of a set without a screen, by a script, and shows it as text.

#include <sys/ioctl.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/text.h"
#include "base/utf8.h"
#include "cave/names.h"
#include "cave/set_file.h"
#include "engine/recording.h"
#include "tools/command_line.h"
#include "tools/script_player.h"
#include "tools/text_picture.h"

namespace {

constexpr int kWon = 0;
constexpr int kNotWon = 1;
constexpr int kFailed = 2;

constexpr std::size_t kNameColumns = 26;
constexpr int kLookTicks = 10;  // a cave without a script runs this long
constexpr std::chrono::milliseconds kTickOnTerminal{60};

constexpr const char* kAbout =
    "Lists the caves of a set, or plays the cave with the number CAVE by the script in the file SCRIPT, or on "
    "standard\n"
    "input (\"-\"), and shows how it ends. Without a script the one that is shipped with the set is played,\n"
    "scripts/SET/NN.txt beside it. The result is 0 when the cave is won, 1 when it is not, 2 when nothing could be "
    "played.";

struct Options {
  std::string set;
  int cave = 0;  // 0: the set
  std::string script;
  std::optional<int> every;
  std::optional<int> ticks;
  std::uint64_t seed = 1;
  std::string record;  // folder
  bool summary = false;
};

/// A text made so many characters long with blanks.
std::string Padded(const std::string& utf8, std::size_t length) {
  const std::size_t count = CodePoints(utf8).size();
  return count < length ? utf8 + std::string(length - count, ' ') : utf8;
}

/// Text of a set as it is shown: UTF-8, on one line.
std::string Shown(const std::string& text) {
  std::string line = ToUtf8(text, CodePage::k1250);
  for (char& c : line) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  return Visible(line);
}

bool IsTerminal() { return isatty(STDOUT_FILENO) != 0; }

/// How many cells a picture may show: what fits on the terminal below and above the other lines, otherwise all.
struct Room {
  int columns = kMaxWidth;
  int rows = kMaxHeight;
};

Room RoomForCells() {
  constexpr int kOtherLines = 5;
  Room room;
  winsize size{};
  if (IsTerminal() && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && size.ws_row > kOtherLines) {
    room.columns = size.ws_col / 2;
    room.rows = size.ws_row - kOtherLines;
  }
  return room;
}

bool WantsColour() {
  const char* plain = std::getenv("NO_COLOR");
  return IsTerminal() && (plain == nullptr || *plain == '\0');
}

/// A picture for a terminal that goes over the one before it.
std::string InPlace(const std::string& picture) {
  std::string text = "\x1b[H";
  for (const char c : picture) text += c == '\n' ? "\x1b[K\n" : std::string(1, c);
  return text + "\x1b[J";
}

/// The cave's script: the file named, standard input, or the shipped one; nothing when none is shipped.
std::optional<Script> FindScript(const Options& options, int cave) {
  if (options.script == "-") {
    const std::string text{std::istreambuf_iterator<char>(std::cin), {}};
    return ParseScript(text, "standard input");
  }
  if (!options.script.empty()) return ParseScript(ReadFile(options.script), options.script);
  const std::filesystem::path set = options.set;
  const auto path = set.parent_path() / "scripts" / set.stem() / (Digits(cave, 2) + ".txt");
  if (!std::filesystem::exists(path)) return std::nullopt;
  return ParseScript(ReadFile(path.string()), path.string());
}

std::string Seconds(int ticks) { return std::to_string(ticks / 10) + "." + std::to_string(ticks % 10) + " s"; }

/// A cave at play, and what is said about it.
class Show {
 public:
  Show(const Options& options, const PlayedSet& set, int cave, std::optional<Script> script)
      : options_(options),
        set_(set),
        cave_(cave),
        hasScript_(script.has_value()),
        player_(set.KomText[static_cast<std::size_t>(cave)], script ? std::move(*script) : Script{LookOn()},
                options.seed) {}

  /// Plays the cave to its end; the result of the program.
  int Play() {
    if (options_.summary) {
      PlayUnseen();
      std::cout << Digits(cave_, 2) << "  " << Padded(Name(), kNameColumns) << "  " << Result() << '\n';
    } else {
      PlaySeen();
      std::cout << TextLegend(player_.game(), WantsColour()) << '\n' << Result() << '\n';
    }
    if (player_.outcome() != Outcome::Won) return kNotWon;
    if (!options_.record.empty()) WriteRecord();
    return kWon;
  }

 private:
  bool Tick() { return (!options_.ticks || player_.ticks() < *options_.ticks) && player_.Tick(); }

  void PlayUnseen() {
    while (Tick()) {
    }
  }

  /// Shows the cave on the way as asked, and at the end in any case.
  void PlaySeen() {
    const bool inPlace = IsTerminal();
    const int every = options_.every.value_or(inPlace && hasScript_ ? 1 : 0);
    if (inPlace && every > 0) std::cout << "\x1b[2J";
    int shown = -1;  // the tick of the last picture
    while (Tick()) {
      if (every == 0 || player_.ticks() % every != 0) continue;
      std::cout << (inPlace ? InPlace(Picture()) : Picture()) << '\n' << std::flush;
      shown = player_.ticks();
      if (inPlace) std::this_thread::sleep_for(kTickOnTerminal * every);
    }
    if (shown != player_.ticks()) std::cout << (inPlace && every > 0 ? InPlace(Picture()) : Picture()) << '\n';
  }

  static ScriptStep LookOn() {
    ScriptStep step;
    step.number = kLookTicks;
    return step;
  }

  int Score() const { return player_.game().Sum.Score() + (JeBonus(Record().Name) ? kBonusPoints : 0); }

  /// The player of these records is the hero himself.
  void WriteRecord() const {
    const std::string name = ToUtf8(RecordName(set_.Name, Record().Name), CodePage::k1250);
    WriteFile(options_.record + "/" + name, RecordText(set_.Name, Score(), Cp1250("Zorbík"), player_.recording()));
  }

  const CaveRecord& Record() const { return set_.KomRec[static_cast<std::size_t>(cave_)]; }
  std::string Name() const { return Shown(Record().Name); }

  std::string Picture() const {
    const Hra& game = player_.game();
    const Room room = RoomForCells();
    return Shown(set_.Name) + "  " + Digits(cave_, 2) + "  " + Name() + "\n\n" +
           TextPicture(game, WantsColour(), room.columns, room.rows) + "\ngems " + std::to_string(game.Collected) +
           " of " + std::to_string(game.Need) + "   time left " + std::to_string(game.lblCas) + " s   points " +
           std::to_string(game.Score) + "   tick " + std::to_string(player_.ticks()) + "\n";
  }

  std::string Result() const {
    const std::string after = " after " + Seconds(player_.ticks());
    if (player_.outcome() == Outcome::Won) {
      return "won with " + std::to_string(Score()) + " points" + after;
    }
    if (player_.outcome() == Outcome::Running) return "not won: stopped" + after;
    if (!hasScript_) return "not won: no script is shipped for this cave";
    return "not won: " + player_.explanation() + after;
  }

  const Options& options_;
  const PlayedSet& set_;
  int cave_;
  bool hasScript_;
  ScriptPlayer player_;
};

void List(const PlayedSet& set) {
  std::cout << Shown(set.Name) << "  (" << Shown(set.Author) << ")\n" << Shown(set.Description) << "\n\n";
  for (int i = 1; i <= set.PocetK; ++i) {
    const CaveRecord& cave = set.KomRec[static_cast<std::size_t>(i)];
    std::cout << Digits(i, 2) << (set.StavK[static_cast<std::size_t>(i)] == Open ? " * " : "   ") << Shown(cave.Name)
              << "  (" << int{cave.Width} << " x " << int{cave.Height} << ", " << cave.Need << " gems, " << cave.Time
              << " s)\n     " << Shown(cave.Description) << '\n';
  }
  std::cout << "\n* open from the start\n";
}

int PlayAll(const Options& options, const PlayedSet& set) {
  int result = kWon;
  for (int cave = 1; cave <= set.PocetK; ++cave) {
    if (Show(options, set, cave, FindScript(options, cave)).Play() != kWon) result = kNotWon;
  }
  return result;
}

int Run(const Options& options) {
  const auto set = std::make_unique<PlayedSet>();
  LoadColl(options.set, *set);
  if (options.cave == 0) {
    if (options.summary) return PlayAll(options, *set);
    List(*set);
    return kWon;
  }
  const int cave = options.cave;
  if (cave > set->PocetK) {
    throw Fault("The set has no cave " + std::to_string(cave) + "; it has " + std::to_string(set->PocetK) + ".",
                options.set);
  }
  return Show(options, *set, cave, FindScript(options, cave)).Play();
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(kAbout, "zbplay");
  Options options;
  app.add_option("SET", options.set, "the set, a .zb file")->required();
  app.add_option("CAVE", options.cave, "a number from 1 on")->check(CLI::Range(1, kHighestCaveNumber));
  app.add_option("SCRIPT", options.script);
  app.add_option(
         "--every", options.every,
         "show the cave after every so many ticks, 0: only at the end; on a terminal it moves in place, and 1 is "
         "the default")
      ->check(CLI::NonNegativeNumber);
  app.add_option("--ticks", options.ticks, "stop after so many ticks")->check(CLI::NonNegativeNumber);
  app.add_option("--seed", options.seed, "seed of the random numbers of the rules (1)");
  app.add_option("--record", options.record, "write the records of the caves that are won into this folder");
  app.add_flag("--summary", options.summary, "one line a cave and no picture; without CAVE all caves are played");
  app.footer(std::string("Scripts:\n") + kScriptHelp);
  return RunCommand(
      app, argc, argv, [&] { return Run(options); }, kFailed);
}

// Plays record files without a screen and tells whether they are won with the score that they claim.

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "base/fault.h"
#include "base/files.h"
#include "base/utf8.h"
#include "engine/replay.h"
#include "tools/command_line.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kAbout =
    "Plays record files (.zbr; folders are walked) and prints a verdict on each:\n"
    "  FILE: won SCORE                        the record is good\n"
    "  FILE: won SCORE, record says SCORE2    the score in the file is another\n"
    "  FILE: not won                          the recording ends before the exit\n"
    "  FILE: damaged: REASON                  it cannot be played\n"
    "  FOLDER: no record                      the folder holds none\n"
    "Exit status: 0 all records are good, 1 one is not, 2 wrong usage.";

struct Options {
  bool strict = false;
  bool json = false;
  bool trace = false;
  bool dump = false;
  std::vector<std::string> files;
};

struct Verdict {
  enum class Kind { kWon, kOtherScore, kNotWon, kDamaged, kNoRecord } kind = Kind::kDamaged;
  int score = 0;
  int recordedScore = 0;
  int ticks = 0;
  std::string reason;

  bool good() const { return kind == Kind::kWon; }
};

/// The record files in a folder and below. A folder that cannot be listed is given back itself, so that it gets a
/// verdict, too; FilesToCheck does the same with one that holds none.
void AddRecordsBelow(const fs::path& folder, std::vector<std::string>& files) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code unknown;  // of a link that leads nowhere: its verdict tells
    if (entry->is_directory(unknown)) {
      if (!entry->is_symlink(unknown)) AddRecordsBelow(entry->path(), files);
    } else if (CaseKey(entry->path().extension().string()) == CaseKey(".zbr")) {
      files.push_back(entry->path().string());
    }
  }
  if (error) files.push_back(folder.string());
}

/// The record files among the arguments and in the folders among them, each folder in order of its names.
std::vector<std::string> FilesToCheck(const std::vector<std::string>& arguments) {
  std::vector<std::string> files;
  for (const std::string& argument : arguments) {
    std::error_code unknown;
    if (!fs::is_directory(argument, unknown)) {
      files.push_back(argument);
      continue;
    }
    std::vector<std::string> inside;
    AddRecordsBelow(argument, inside);
    if (inside.empty()) inside.push_back(argument);
    std::sort(inside.begin(), inside.end());
    files.insert(files.end(), inside.begin(), inside.end());
  }
  return files;
}

Verdict Check(const std::string& file, bool strict) {
  Verdict verdict;
  std::error_code error;
  if (fs::is_directory(file, error)) {
    const fs::directory_iterator listed(file, error);
    verdict.kind = error ? Verdict::Kind::kDamaged : Verdict::Kind::kNoRecord;
    verdict.reason = error.message();
    return verdict;
  }
  try {
    const Recording recording = ReadRecording(ReadFile(file));
    Replay replay(recording, strict);
    while (replay.Tick()) {
    }
    verdict.ticks = replay.ticks();
    verdict.score = replay.Score();
    verdict.recordedScore = recording.score;
    verdict.kind = !replay.won()                            ? Verdict::Kind::kNotWon
                   : verdict.score == verdict.recordedScore ? Verdict::Kind::kWon
                                                            : Verdict::Kind::kOtherScore;
  } catch (const std::exception& fault) {
    verdict.reason = fault.what();
  }
  return verdict;
}

std::string Plain(const std::string& file, const Verdict& verdict) {
  std::string text = Visible(file) + ": ";
  switch (verdict.kind) {
    case Verdict::Kind::kWon:
      return text + "won " + std::to_string(verdict.score);
    case Verdict::Kind::kOtherScore:
      return text + "won " + std::to_string(verdict.score) + ", record says " + std::to_string(verdict.recordedScore);
    case Verdict::Kind::kNotWon:
      return text + "not won";
    case Verdict::Kind::kNoRecord:
      return text + "no record";
    case Verdict::Kind::kDamaged:
      break;
  }
  return text + "damaged: " + Visible(verdict.reason);
}

/// A byte of a file's name that is no UTF-8 becomes the code that CodePoints gives it, so that the object stays JSON;
/// control characters are coded, too, for a terminal may read along.
std::string JsonString(const std::string& text) {
  std::string quoted = "\"";
  for (const char32_t c : CodePoints(text)) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += static_cast<char>(c);
    } else if (c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0xDC00 && c <= 0xDCFF)) {
      char code[8];
      std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
      quoted += code;
    } else {
      AppendUtf8(quoted, c);
    }
  }
  return quoted + "\"";
}

std::string Json(const std::string& file, const Verdict& verdict) {
  static constexpr const char* kNames[] = {"won", "other score", "not won", "damaged", "no record"};
  std::ostringstream text;
  text << "{\"file\": " << JsonString(file) << ", \"verdict\": \"" << kNames[static_cast<int>(verdict.kind)] << "\"";
  if (verdict.kind == Verdict::Kind::kDamaged) {
    text << ", \"reason\": " << JsonString(verdict.reason);
  } else if (verdict.kind != Verdict::Kind::kNoRecord) {
    text << ", \"ticks\": " << verdict.ticks << ", \"recorded score\": " << verdict.recordedScore;
    if (verdict.kind != Verdict::Kind::kNotWon) text << ", \"score\": " << verdict.score;
  }
  text << "}";
  return text.str();
}

/// Plays the files on all cores. Progress is shown on a terminal.
std::vector<Verdict> CheckAll(const std::vector<std::string>& files, bool strict) {
  std::vector<Verdict> verdicts(files.size());
  std::atomic<std::size_t> next = 0;
  std::atomic<std::size_t> done = 0;
  const bool terminal = isatty(STDERR_FILENO) != 0 && files.size() > 1;
  std::mutex screen;
  const auto work = [&] {
    for (std::size_t i = next++; i < files.size(); i = next++) {
      verdicts[i] = Check(files[i], strict);
      const std::size_t count = ++done;
      if (terminal && (count % 16 == 0 || count == files.size())) {
        const std::lock_guard lock(screen);
        std::fprintf(stderr, "\r%zu of %zu", count, files.size());
      }
    }
  };
  std::vector<std::jthread> workers;
  const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
  for (std::size_t i = 1; i < std::min(cores, files.size()); ++i) workers.emplace_back(work);
  work();
  workers.clear();
  if (terminal) std::fprintf(stderr, "\r\033[K");
  return verdicts;
}

int PrintVerdicts(const Options& options) {
  const std::vector<std::string> files = FilesToCheck(options.files);
  const std::vector<Verdict> verdicts = CheckAll(files, options.strict);
  std::size_t good = 0;
  for (std::size_t i = 0; i < files.size(); ++i) {
    good += verdicts[i].good() ? 1 : 0;
    std::cout << (options.json ? Json(files[i], verdicts[i]) : Plain(files[i], verdicts[i])) << "\n";
  }
  if (files.size() != 1 && !options.json) {
    std::cout << good << " of " << files.size() << " records are good\n";
  }
  return good == files.size() ? 0 : 1;
}

void PrintTraceLine(int tick, const Hra& game) {
  std::string alive;
  for (int i = 1; i <= game.HeroCount; ++i) {
    if (game.Heroes[static_cast<std::size_t>(i)].alive != 0) alive += (alive.empty() ? "" : ",") + std::to_string(i);
  }
  const HeroRecord& hero = game.Heroes[static_cast<std::size_t>(game.CurrentHero)];
  std::printf(
      "tick=%d cells=%08x score=%d collected=%d exit=%d magic=%d amoeba=%d hero=%d at=%d,%d alive=%s locked=%d "
      "left=%d\n",
      tick, CellsCrc(game), game.Score, game.Collected, game.ExitOpen ? 1 : 0, game.MagicState, game.AmoebaMode,
      game.CurrentHero, hero.x, hero.y, alive.empty() ? "-" : alive.c_str(), game.HeroLocked ? 1 : 0, game.lblCas);
}

int PrintTrace(const Options& options) {
  const std::string& file = options.files.front();
  try {
    const Recording recording = ReadRecording(ReadFile(file));
    Replay replay(recording, options.strict);
    while (replay.Tick()) {
      PrintTraceLine(replay.ticks(), replay.game());
      if (options.dump) std::fputs(replay.game().Picture().c_str(), stdout);
    }
    if (!replay.won()) {
      std::puts("not won");
      return 1;
    }
    std::printf("won %d\n", replay.Score());
    return replay.Score() == recording.score ? 0 : 1;
  } catch (const std::exception& fault) {
    std::fflush(stdout);
    std::cerr << Visible(file + ": damaged: " + fault.what()) << "\n";
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(kAbout, "zbrcheck");
  Options options;
  app.add_flag("--strict", options.strict,
               "numbers outside the range that the rules ask for, and rests of lines that are no notes, are damage");
  auto* json = app.add_flag("--json", options.json, "one JSON object a file");
  auto* trace = app.add_flag("--trace", options.trace, "a line after each tick of one file")->excludes(json);
  app.add_flag("--dump", options.dump, "the cave as text after each line of the trace")->needs(trace);
  app.add_option("FILE", options.files, "records, and folders of records")->required();
  return RunCommand(app, argc, argv, [&] {
    if (!options.trace) return PrintVerdicts(options);
    if (options.files.size() != 1) throw WrongUse("--trace takes one file");
    return PrintTrace(options);
  });
}

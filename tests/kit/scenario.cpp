#include "kit/scenario.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <fstream>
#include <sstream>

#include "base/files.h"

namespace scenario {

namespace {

using Words = std::vector<std::string>;

/// The words of a text: separated by blanks, several in double quotes are one.
Words WordsOf(const std::string& text) {
  Words words;
  bool inside = false;
  bool quoted = false;
  for (const char c : text) {
    if (c == '"') {
      quoted = !quoted;
      if (quoted) words.emplace_back();
      inside = quoted;
    } else if (c == ' ' && !quoted) {
      inside = false;
    } else {
      if (!inside) words.emplace_back();
      inside = true;
      words.back() += c;
    }
  }
  return words;
}

/// The parts of a text between separators that stand in no quotes.
Words Parts(const std::string& text, char separator) {
  Words parts(1);
  bool quoted = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    if (c == separator && !quoted) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

std::string Tidy(const std::string& text) {
  std::istringstream words(text);
  std::string tidy;
  for (std::string word; words >> word;) tidy += (tidy.empty() ? "" : " ") + word;
  return tidy;
}

/// A line of a scenario taken apart; what is put together again is the same line.
struct Line {
  std::string steps;
  bool looks = false;
  std::string state;
  std::string remark;  // with its "#" and the blanks before it

  explicit Line(const std::string& text) {
    bool quoted = false;
    std::size_t bar = std::string::npos;
    std::size_t end = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '"') quoted = !quoted;
      if (quoted) continue;
      if (text[i] == '|' && bar == std::string::npos) bar = i;
      if (text[i] == '#' && (i == 0 || text[i - 1] == ' ')) {
        end = i;
        break;
      }
    }
    while (end > 0 && text[end - 1] == ' ') --end;
    remark = text.substr(end);
    looks = bar < end;
    steps = text.substr(0, looks ? bar : end);
    if (looks) state = text.substr(bar + 1, end - bar - 1);
  }

  std::string Text() const { return steps + (looks ? "| " + state : "") + remark; }
};

bool Renews() {
  const char* wish = std::getenv("ZORBIK_RENEW");
  return wish != nullptr && *wish != '\0';
}

}  // namespace

void Run(const std::string& name, const std::function<std::unique_ptr<World>()>& make) {
  const std::string path = std::string(ZORBIK_SCENARIOS) + "/" + name + ".txt";
  std::vector<std::string> lines = SplitLines(ReadFile(path));
  std::unique_ptr<World> world;
  bool failed = false;  // the rest of this case says nothing
  int cases = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].starts_with("==")) {
      world.reset();  // one at a time
      world = make();
      failed = false;
      ++cases;
      continue;
    }
    Line line(lines[i]);
    if (failed || Tidy(line.steps).empty()) continue;
    try {
      if (!world) throw std::runtime_error("a step before the first case");
      for (const std::string& step : Parts(line.steps, ';')) {
        const Words words = WordsOf(step);
        if (!words.empty()) world->Do(words);
      }
      if (!line.looks) continue;
      const std::string state = Tidy(world->State());
      if (Renews()) {
        line.state = state;
        lines[i] = line.Text();
      } else if (state != Tidy(line.state)) {
        ADD_FAILURE_AT(path.c_str(), static_cast<int>(i) + 1)
            << line.steps << "\n  is:     " << state << "\n  wanted: " << Tidy(line.state);
      }
    } catch (const std::exception& fault) {
      failed = true;
      ADD_FAILURE_AT(path.c_str(), static_cast<int>(i) + 1) << line.steps << ": " << fault.what();
    }
  }
  EXPECT_GT(cases, 0) << path;
  if (!Renews()) return;
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  WriteFile(path, text);
}

}  // namespace scenario

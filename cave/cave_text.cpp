#include "cave/cave_text.h"

#include "base/fault.h"
#include "base/files.h"
#include "base/lang_str.h"
#include "base/text.h"
#include "cave/scramble.h"

namespace {

/// Takes a cave text apart from its front.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  std::uint8_t Number(const char* field) {
    if (rest_.empty()) throw Fault(std::string("The cave text ends before its ") + field + ".");
    const int value = static_cast<unsigned char>(rest_.front()) - kSmallNumberBase;
    if (value < 0) {
      throw Fault(std::string("The cave text holds a character below \"A\" for its ") + field + ".");
    }
    rest_.remove_prefix(1);
    return static_cast<std::uint8_t>(value);
  }

  std::string Text(const char* field) {
    const std::size_t length = Number(field);
    std::string text(rest_.substr(0, length));
    rest_.remove_prefix(text.size());
    return text;
  }

  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

class Writer {
 public:
  void Number(int value, const char* field) {
    if (value < 0 || value > kLargestSmallNumber) {
      throw Fault(std::string("The ") + field + " of the cave is " + std::to_string(value) +
                  "; a cave text holds numbers from 0 to " + std::to_string(kLargestSmallNumber) + ".");
    }
    text_ += static_cast<char>(value + kSmallNumberBase);
  }

  void Text(std::string_view text, const char* field) { text_ += WithLength(text, std::string("The ") + field); }

  void Cell(char c) { text_ += c; }

  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

/// Time and Need, each up to 999, share three characters.
void ReadTimeAndNeed(Reader& reader, CaveRecord& record) {
  const int TimeNeedA = reader.Number("time");
  const int TimeNeedB = reader.Number("time and need");
  const int TimeNeedC = reader.Number("need");
  record.Time = static_cast<std::int16_t>(TimeNeedA * 10 + TimeNeedB / 10);
  record.Need = static_cast<std::int16_t>(TimeNeedC * 10 + TimeNeedB % 10);
}

void WriteTimeAndNeed(Writer& writer, const CaveRecord& record) {
  if (record.Time < 0 || record.Need < 0) throw Fault("The time and the need of a cave cannot be below 0.");
  const int TimeNeedA = record.Time / 10;
  const int TimeNeedB = record.Time % 10 * 10 + record.Need % 10;
  const int TimeNeedC = record.Need / 10;
  writer.Number(TimeNeedA, "time");
  writer.Number(TimeNeedB, "time and need");
  writer.Number(TimeNeedC, "need");
}

std::string MakeTemplate(const std::string& name, std::string_view header, int width, int height) {
  std::string text = "E";
  for (const std::string& part : {name, LangStr[text::kNewDescription]})
    text += WithLength(part.substr(0, kLargestSmallNumber), "");
  text += header;
  const std::size_t inner = static_cast<std::size_t>(width) - 2;
  const std::string steel(static_cast<std::size_t>(width), 'W');
  const std::string dirt = "W" + std::string(inner, ';') + "W";
  text += steel + dirt + "W;1" + std::string(inner - 2, ';') + "W";
  for (int y = 3; y < height - 2; ++y) text += dirt;
  text += "W" + std::string(inner, ';') + "T" + steel;
  return text;
}

}  // namespace

std::string WithLength(std::string_view text, const std::string& what) {
  if (text.size() > kLargestSmallNumber) throw Fault(TooLong(what, text.size()));
  std::string line(1, static_cast<char>(text.size() + kSmallNumberBase));
  return line.append(text);
}

std::string TooLong(const std::string& what, std::size_t size) {
  return what + " has " + std::to_string(size) + " characters; " + std::to_string(kLargestSmallNumber) +
         " are possible.";
}

std::string LargestCave() { return std::to_string(kMaxWidth) + " by " + std::to_string(kMaxHeight); }

CaveRecord ParseCaveText(std::string_view text) {
  CaveRecord record;
  if (text.empty()) return record;
  Reader reader(text);
  record.SlimeThrough = reader.Number("slime permeability");
  record.Name = reader.Text("name");
  record.Description = reader.Text("description");
  record.Width = reader.Number("width");
  record.Height = reader.Number("height");
  ReadTimeAndNeed(reader, record);
  record.PointsBefore = reader.Number("points before the exit opens");
  record.PointsAfter = reader.Number("points after the exit opens");
  record.MagicTime = reader.Number("magic wall time");
  record.AmoebaTime = reader.Number("amoeba time");
  record.Tint = reader.Number("colour");
  if (record.Width > kMaxWidth || record.Height > kMaxHeight) {
    throw Fault("The cave is " + std::to_string(record.Width) + " by " + std::to_string(record.Height) +
                " cells; at most " + LargestCave() + " are possible.");
  }
  record.FromText = true;
  std::string_view cells = reader.rest();
  for (int y = 0; y < record.Height; ++y) {
    for (int x = 0; x < record.Width; ++x) {
      record.Cell(x, y) = cells.empty() ? ' ' : cells.front();
      if (!cells.empty()) cells.remove_prefix(1);
    }
  }
  return record;
}

std::string BuildCaveText(const CaveRecord& record) {
  if (record.Width > kMaxWidth || record.Height > kMaxHeight) {
    throw Fault("A cave has at most " + LargestCave() + " cells.");
  }
  Writer writer;
  writer.Number(record.SlimeThrough, "slime permeability");
  writer.Text(record.Name, "name");
  writer.Text(record.Description, "description");
  writer.Number(record.Width, "width");
  writer.Number(record.Height, "height");
  WriteTimeAndNeed(writer, record);
  writer.Number(record.PointsBefore, "points before the exit opens");
  writer.Number(record.PointsAfter, "points after the exit opens");
  writer.Number(record.MagicTime, "magic wall time");
  writer.Number(record.AmoebaTime, "amoeba time");
  writer.Number(record.Tint, "colour");
  for (int y = 0; y < record.Height; ++y) {
    for (int x = 0; x < record.Width; ++x) {
      const char c = record.Cell(x, y);
      writer.Cell(c == 0 && !record.FromText ? '.' : c);
    }
  }
  return writer.Take();
}

std::string CaveTemplate(NewCave size) {
  if (size == NewCave::kSmall) return MakeTemplate(LangStr[text::kSmallCave], "TLPAAFUUsC", 19, 11);
  return MakeTemplate(LangStr[text::kBigCave], "_UPAAAAUsC", 30, 20);
}

std::string CaveTail(int number) { return "---" + Digits(number, 2); }

std::string LoadCaveText(const std::string& fileName, int caveNumber) {
  if (fileName == "*1") return CaveTemplate(NewCave::kSmall);
  if (fileName == "*2") return CaveTemplate(NewCave::kBig);
  const std::string tail = CaveTail(caveNumber);
  std::string found;
  ReadLines(fileName, [&](const std::string& line) {
    const std::string plain = Unscramble(line);
    if (tail.size() == kCaveTailLength && plain.ends_with(tail)) found = plain;
    return found.empty();
  });
  return found;
}

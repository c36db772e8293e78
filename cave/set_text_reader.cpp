#include <cstddef>
#include <map>
#include <set>
#include <utility>

#include "base/fault.h"
#include "cave/cave_text.h"
#include "cave/set_file.h"
#include "cave/set_text.h"
#include "cave/set_text_syntax.h"

namespace {

constexpr int kLargestTime = kLargestSmallNumber * 10 + 9;  // time and need have a character for their tens

using Fields = std::map<std::string, const Entry*>;

const Entry* Find(const Fields& fields, const std::string& key) {
  const auto found = fields.find(key);
  return found == fields.end() ? nullptr : found->second;
}

bool IsCave(const std::string& key) { return key == "cave" || key.starts_with("cave "); }

/// Headings start a new part of the text and so end the fields of the part before.
bool IsHeading(const std::string& key) {
  return IsCave(key) || key == "raw" || key == "congratulation" || key == "no congratulation";
}

/// Reads the entries in order and builds the lines of the set.
class SetReader {
 public:
  SetReader(std::string_view text, const std::string& file) : syntax_(file), entries_(syntax_.Entries(text)) {}

  std::vector<std::string> Read() {
    ReadFormat();
    ReadHead();
    while (next_ < entries_.size()) ReadItem();
    if (whole_ && !ended_) {
      syntax_.Fail(entries_.back().line(),
                   "the set ends without a congratulation; write \"no congratulation\" if that is meant.");
    }
    return std::move(lines_);
  }

  CodePage page() const { return syntax_.page; }

 private:
  bool NextIs(const std::string& key) const { return next_ < entries_.size() && entries_[next_].key == key; }

  void ReadFormat() {
    if (!NextIs("zorbik set")) {
      syntax_.Fail(entries_.empty() ? 1 : entries_[0].line(), "a cave set starts with the line \"zorbik set\".");
    }
    ++next_;
    if (!NextIs("code page")) return;
    syntax_.page = syntax_.Number(entries_[next_++], 1250, 1251) == 1250 ? CodePage::k1250 : CodePage::k1251;
  }

  /// Takes the fields up to the next heading.
  Fields TakeFields(const std::set<std::string>& known) {
    Fields fields;
    for (; next_ < entries_.size() && !IsHeading(entries_[next_].key); ++next_) {
      const Entry& entry = entries_[next_];
      if (!known.contains(entry.key) || !entry.hasValue) {
        syntax_.Fail(entry.line(), "\"" + entry.key + "\" is no field here.");
      }
      if (!fields.emplace(entry.key, &entry).second) {
        syntax_.Fail(entry.line(), "\"" + entry.key + "\" stands here a second time.");
      }
    }
    return fields;
  }

  const Entry& Get(const Fields& fields, const std::string& key, int line, const std::string& owner) const {
    const Entry* entry = Find(fields, key);
    if (entry == nullptr) syntax_.Fail(line, owner + " has no \"" + key + "\".");
    return *entry;
  }

  void ReadHead() {
    if (next_ == entries_.size() || IsHeading(entries_[next_].key)) return;
    whole_ = true;
    const int line = entries_[next_].line();
    const Fields fields =
        TakeFields({"set", "start", "author", "description", "mail", "mark", "line 1", "line 2", "line 3"});
    ReadHeadLine(fields, "line 1", {"set", "start"}, [&] { return TitleLine(fields, line); });
    ReadHeadLine(fields, "line 2", {"author", "description"}, [&] { return AuthorLine(fields, line); });
    ReadHeadLine(fields, "line 3", {"mail", "mark"}, [&] { return MailLine(fields); });
  }

  /// One of the first three lines: as it stands under its raw key, or built from its fields.
  template <class Build>
  void ReadHeadLine(const Fields& fields, const std::string& rawKey, const std::set<std::string>& keys, Build build) {
    const Entry* raw = Find(fields, rawKey);
    if (raw == nullptr) {
      lines_.push_back(build());
      return;
    }
    const std::string mistake = "\"" + rawKey + "\" already holds this field.";
    for (const std::string& key : keys) {
      if (const Entry* entry = Find(fields, key)) syntax_.Fail(entry->line(), mistake);
    }
    lines_.push_back(syntax_.Text(*raw));
  }

  std::string TitleLine(const Fields& fields, int line) const {
    std::string name = LengthAndText(Get(fields, "set", line, "the set"));
    const Entry* start = Find(fields, "start");
    if (start == nullptr) return name + StartPoint(1);
    for (const int number : syntax_.Numbers(*start, 0, kHighestCaveNumber)) name += StartPoint(number);
    return name;
  }

  std::string AuthorLine(const Fields& fields, int line) const {
    return LengthAndText(Get(fields, "author", line, "the set")) + OptionalText(Find(fields, "description"), "");
  }

  std::string MailLine(const Fields& fields) const {
    const Entry* mark = Find(fields, "mark");
    const std::string markText = OptionalText(mark, std::string(1, kMark));
    if (markText.size() != 1) syntax_.Fail(mark->line(), "a format mark is one character.");
    return OptionalText(Find(fields, "mail"), "") + markText;
  }

  std::string OptionalText(const Entry* entry, const std::string& otherwise) const {
    return entry == nullptr ? otherwise : syntax_.Text(*entry);
  }

  std::string LengthAndText(const Entry& entry) const { return WithLength(syntax_.ShortText(entry), entry.key); }

  void ReadItem() {
    const Entry& entry = entries_[next_++];
    if (ended_) syntax_.Fail(entry.line(), "nothing can stand behind the congratulation.");
    if (!whole_ && entry.key != "raw") {
      syntax_.Fail(entry.line(), "the set has no \"set\" and \"author\" before this line.");
    }
    if (entry.key == "raw" && entry.hasValue) {
      lines_.push_back(syntax_.Text(entry));
    } else if (entry.key == "congratulation" && entry.hasValue) {
      lines_.push_back(syntax_.Text(entry));
      ended_ = true;
    } else if (entry.key == "no congratulation" && !entry.hasValue) {
      ended_ = true;
    } else if (IsCave(entry.key) && !entry.hasValue) {
      ReadCave(entry);
    } else {
      syntax_.Fail(entry.line(), "this line is not understood.");
    }
  }

  void ReadCave(const Entry& heading) {
    caveNumber_ = heading.key == "cave"
                      ? caveNumber_ + 1
                      : syntax_.NumberIn(heading.key.substr(5), heading.line(), 0, kHighestCaveNumber);
    if (caveNumber_ > kHighestCaveNumber) {
      syntax_.Fail(heading.line(), "the number of a cave is at most " + std::to_string(kHighestCaveNumber) + ".");
    }
    const Fields fields = TakeFields(
        {"name", "description", "time", "need", "points", "magic", "amoeba", "colour", "slime", "size", "rows"});
    const auto get = [&](const char* key) -> const Entry& {
      return Get(fields, key, heading.line(), "cave " + std::to_string(caveNumber_));
    };
    const auto time = [&](const char* key) {
      return static_cast<std::int16_t>(syntax_.Number(get(key), 0, kLargestTime));
    };
    const auto byte = [&](const char* key) {
      return static_cast<std::uint8_t>(syntax_.Number(get(key), 0, kLargestSmallNumber));
    };
    CaveRecord record;
    record.Name = syntax_.ShortText(get("name"));
    if (const Entry* description = Find(fields, "description")) record.Description = syntax_.ShortText(*description);
    record.Time = time("time");
    record.Need = time("need");
    ReadPoints(get("points"), record);
    record.MagicTime = byte("magic");
    record.AmoebaTime = byte("amoeba");
    record.Tint = byte("colour");
    record.SlimeThrough = byte("slime");
    ReadCells(get("rows"), Find(fields, "size"), record);
    lines_.push_back(BuildCaveText(record) + CaveTail(caveNumber_));
  }

  void ReadPoints(const Entry& entry, CaveRecord& record) const {
    const std::vector<int> points = syntax_.Numbers(entry, 0, kLargestSmallNumber);
    if (points.size() != 2) syntax_.Fail(entry.line(), "points are two numbers: before and after the exit opens.");
    record.PointsBefore = static_cast<std::uint8_t>(points[0]);
    record.PointsAfter = static_cast<std::uint8_t>(points[1]);
  }

  void ReadCells(const Entry& rows, const Entry* size, CaveRecord& record) const {
    if (!rows.value.text.empty()) {
      syntax_.Fail(rows.line(), "the rows start in the next line, each behind a bar \"|\".");
    }
    std::vector<std::string> cells;
    for (const Piece& row : rows.more) cells.push_back(syntax_.Row(row));
    std::size_t width = cells.empty() ? 0 : cells[0].size();
    std::size_t height = cells.size();
    if (size != nullptr) {
      ReadSize(*size, width, height);
    } else if (width == 0) {
      syntax_.Fail(rows.line(), "the cave has no cells.");
    }
    if (width > kMaxWidth || height > kMaxHeight)
      syntax_.Fail(rows.line(), "a cave has at most " + LargestCave() + " cells.");
    if (cells.size() != height) {
      syntax_.Fail(rows.line(), "there are " + std::to_string(cells.size()) + " rows here, the size asks for " +
                                    std::to_string(height) + ".");
    }
    record.FromText = true;
    record.Width = static_cast<std::uint8_t>(width);
    record.Height = static_cast<std::uint8_t>(height);
    for (std::size_t y = 0; y < height; ++y) {
      if (cells[y].size() != width) {
        syntax_.Fail(rows.more[y].line, "this row has " + std::to_string(cells[y].size()) + " cells, the cave is " +
                                            std::to_string(width) + " wide.");
      }
      for (std::size_t x = 0; x < width; ++x) record.Cell(static_cast<int>(x), static_cast<int>(y)) = cells[y][x];
    }
  }

  /// "19 x 11"
  void ReadSize(const Entry& entry, std::size_t& width, std::size_t& height) const {
    const std::string& text = entry.value.text;
    const std::size_t cross = text.find('x');
    if (cross == std::string::npos || !entry.more.empty()) syntax_.Fail(entry.line(), "a size looks like 19 x 11.");
    width = static_cast<std::size_t>(syntax_.NumberIn(text.substr(0, cross), entry.line(), 0, kMaxWidth));
    height = static_cast<std::size_t>(syntax_.NumberIn(text.substr(cross + 1), entry.line(), 0, kMaxHeight));
  }

  SetSyntax syntax_;
  std::vector<Entry> entries_;
  std::size_t next_ = 0;
  bool whole_ = false;  // the first three lines are given by fields
  bool ended_ = false;  // the congratulation, or that there is none, has been read
  int caveNumber_ = 0;
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> SetFromText(std::string_view text, const std::string& file, CodePage* page) {
  SetReader reader(text, file);
  std::vector<std::string> lines = reader.Read();
  if (page != nullptr) *page = reader.page();
  return lines;
}

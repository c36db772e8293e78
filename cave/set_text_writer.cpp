#include <cstddef>
#include <utility>

#include "base/fault.h"
#include "cave/cave_text.h"
#include "cave/set_file.h"
#include "cave/set_text.h"
#include "cave/set_text_syntax.h"

namespace {

class TextWriter {
 public:
  explicit TextWriter(CodePage page) : page_(page) {}

  void Line(const std::string& line) { text_ += line + "\n"; }

  /// A field; line breaks in its value start lines of their own.
  void Text(const std::string& key, std::string_view bytes) {
    std::string start = key + ":";
    for (;;) {
      const std::string_view part = bytes.substr(0, bytes.find("\r\n"));
      Line(start + (part.empty() ? "" : " ") + EscapeText(part, page_));
      if (part.size() == bytes.size()) return;
      bytes.remove_prefix(part.size() + 2);
      start = "|";
    }
  }

  void Number(const std::string& key, int value) { Line(key + ": " + std::to_string(value)); }

  std::string Take() { return std::move(text_); }

 private:
  CodePage page_;
  std::string text_;
};

/// The two halves of a line that starts with the very length of the first one.
bool SplitExactly(const std::string& line, std::string& first, std::string& rest) {
  return SplitByLength(line, first, rest) &&
         first.size() + kSmallNumberBase == static_cast<unsigned char>(line.front());
}

bool WriteTitle(TextWriter& writer, const std::string& line) {
  std::string name;
  std::string list;
  if (!SplitExactly(line, name, list)) return false;
  std::string start = "start:";
  for (const char c : list) {
    if (!IsStartPoint(c)) return false;
    start += " " + std::to_string(CaveOfStartPoint(c));
  }
  writer.Text("set", name);
  writer.Line(start);
  return true;
}

bool WriteAuthor(TextWriter& writer, const std::string& line) {
  std::string author;
  std::string description;
  if (!SplitExactly(line, author, description)) return false;
  writer.Text("author", author);
  writer.Text("description", description);
  return true;
}

bool WriteMail(TextWriter& writer, const std::string& line) {
  if (line.empty()) return false;
  writer.Text("mail", line.substr(0, line.size() - 1));
  if (line.back() != kMark) writer.Text("mark", line.substr(line.size() - 1));
  return true;
}

void WriteHead(TextWriter& writer, const std::vector<std::string>& lines) {
  writer.Line("");
  if (!WriteTitle(writer, lines[0])) writer.Text("line 1", lines[0]);
  if (!WriteAuthor(writer, lines[1])) writer.Text("line 2", lines[1]);
  if (!WriteMail(writer, lines[2])) writer.Text("line 3", lines[2]);
}

/// True, and the parts of a cave's line, when the parts give back the very line.
bool TakeCaveApart(const std::string& line, int& number, CaveRecord& record) {
  if (!CaveNumberOf(line, number)) return false;
  const std::string text = line.substr(0, line.size() - kCaveTailLength);
  if (text.empty()) return false;
  try {
    record = ParseCaveText(text);
    return BuildCaveText(record) == text;
  } catch (const Fault&) {
    return false;
  }
}

void WriteRows(TextWriter& writer, const CaveRecord& record) {
  writer.Line("rows:");
  for (int y = 0; y < record.Height; ++y) {
    std::string row = "|";
    for (int x = 0; x < record.Width; ++x) row += EscapeCell(record.Cell(x, y));
    writer.Line(row);
  }
}

bool WriteCave(TextWriter& writer, const std::string& line) {
  int number = 0;
  CaveRecord record;
  if (!TakeCaveApart(line, number, record)) return false;
  writer.Line("cave " + std::to_string(number));
  writer.Text("name", record.Name);
  writer.Text("description", record.Description);
  writer.Number("time", record.Time);
  writer.Number("need", record.Need);
  writer.Line("points: " + std::to_string(record.PointsBefore) + " " + std::to_string(record.PointsAfter));
  writer.Number("magic", record.MagicTime);
  writer.Number("amoeba", record.AmoebaTime);
  writer.Number("colour", record.Tint);
  writer.Number("slime", record.SlimeThrough);
  writer.Line("size: " + std::to_string(record.Width) + " x " + std::to_string(record.Height));
  WriteRows(writer, record);
  return true;
}

}  // namespace

std::string SetToText(const std::vector<std::string>& lines, CodePage page) {
  TextWriter writer(page);
  writer.Line("zorbik set");
  writer.Line(page == CodePage::k1250 ? "code page: 1250" : "code page: 1251");
  const bool whole = lines.size() > kHeadLines;
  if (whole) WriteHead(writer, lines);
  for (std::size_t i = whole ? kHeadLines : 0; i < lines.size(); ++i) {
    const bool last = whole && i + 1 == lines.size();
    writer.Line("");
    if (whole && WriteCave(writer, lines[i])) {
      if (last) writer.Line("\nno congratulation");
    } else {
      writer.Text(last ? "congratulation" : "raw", lines[i]);
    }
  }
  return writer.Take();
}

#include "platform/text_box.h"

#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <algorithm>

#include "platform/native.h"

namespace platform {

namespace {

/// Pastes and takes in a drop only what holds a text: Qt takes the first of the formats that the desktop offers, and a
/// clipboard whose owner has gone offers none.
class PlainPage : public QPlainTextEdit {
 protected:
  void insertFromMimeData(const QMimeData* source) override {
    if (source->hasText()) QPlainTextEdit::insertFromMimeData(source);
  }
};

QWidget* MakeEditor(TextLines lines) {
  if (lines == TextLines::kOne) {
    auto* line = new QLineEdit;
    line->setTextMargins(4, 0, 4, 0);
    return line;
  }
  auto* page = new PlainPage;
  page->setTabChangesFocus(true);
  page->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  page->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  return page;
}

/// Null when the box has many lines, or one.
QLineEdit* LineOf(const Control& box) { return qobject_cast<QLineEdit*>(Native::Widget(box)); }
QPlainTextEdit* PageOf(const Control& box) { return qobject_cast<QPlainTextEdit*>(Native::Widget(box)); }

void SelectGlyphs(const Control& box, int start, int end) {
  if (QLineEdit* line = LineOf(box)) {
    line->setCursorPosition(start);
    line->setSelection(start, end - start);
  } else {
    QPlainTextEdit* page = PageOf(box);
    QTextCursor cursor(page->document());
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    page->setTextCursor(cursor);
  }
}

/// Text of a page; inside, its lines end in separators of Unicode.
QString WithLineFeeds(QString text) {
  return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

/// Characters of a line break that a text has and Qt's widget has not, up to a place in the text.
int ReturnsBefore(const std::string& text, int place) {
  return static_cast<int>(std::count(text.begin(), text.begin() + place, '\r'));
}

}  // namespace

TextBox::TextBox(Container* parent, TextLines lines) : Control(parent, MakeEditor(lines)), lines_(lines) {
  if (QLineEdit* line = LineOf(*this)) {
    QObject::connect(line, &QLineEdit::textEdited, [this] { Edited(); });
  } else {
    QObject::connect(PageOf(*this), &QPlainTextEdit::textChanged, [this] { Edited(); });
  }
  Resize(160, lines == TextLines::kOne ? 30 : 100);
}

void TextBox::set_text(const std::string& text) {
  const std::string cut = Cut(text);
  if (cut == text_) return;
  text_ = cut;
  Show();
  if (on_change) on_change();
}

void TextBox::set_max_length(int length) {
  max_length_ = length;
  set_text(std::string(text_));
  // Typing over the end is refused by Qt's line already: nothing has to be mended and undone then.
  constexpr int kAny = 32767;
  if (QLineEdit* line = LineOf(*this)) line->setMaxLength(length > 0 ? length : kAny);
}

void TextBox::set_locked(bool locked) {
  locked_ = locked;
  if (QLineEdit* line = LineOf(*this)) {
    line->setReadOnly(locked);
  } else {
    PageOf(*this)->setReadOnly(locked);
  }
}

void TextBox::Select(int start, int length) {
  const int size = static_cast<int>(text_.size());
  start = std::clamp(start, 0, size);
  const int end = std::clamp(length, 0, size - start) + start;
  SelectGlyphs(*this, start - ReturnsBefore(text_, start), end - ReturnsBefore(text_, end));
}

std::string TextBox::selected_text() const {
  const QLineEdit* line = LineOf(*this);
  return BytesOf(line ? line->selectedText() : WithLineFeeds(PageOf(*this)->textCursor().selectedText()));
}

std::string TextBox::BytesOf(QString glyphs) const {
  if (lines_ == TextLines::kMany) glyphs.replace("\n", "\r\n");
  return ToBytes(glyphs, charset());
}

QString TextBox::Shown() const {
  const QLineEdit* line = LineOf(*this);
  return line ? line->text() : WithLineFeeds(PageOf(*this)->document()->toRawText());
}

bool TextBox::holds_unknown() const { return Shown() != ToGlyphs(text_, charset()); }

void TextBox::Show() {
  showing_ = true;
  const QString glyphs = ToGlyphs(text_, charset());
  if (QLineEdit* line = LineOf(*this)) {
    line->setText(glyphs);
    line->setCursorPosition(0);
  } else {
    PageOf(*this)->setPlainText(glyphs);
  }
  showing_ = false;
}

QString TextBox::Accepted(const QString& glyphs) const {
  QString result;
  // Letters and their accents as one: only so the code page has them.
  const QString whole = glyphs.normalized(QString::NormalizationForm_C);
  for (QChar glyph : keeps_unknown_ ? whole : ToGlyphs(BytesOf(whole), charset())) {
    const bool gap = glyph == u'\t' || glyph == u'\n';
    if (gap && lines_ == TextLines::kOne) glyph = u' ';
    const bool control = (glyph < u' ' && !gap) || glyph == QChar(0x7F);
    const bool digit = glyph >= u'0' && glyph <= u'9';
    if (!control && (digit || !digits_only_)) result += glyph;
  }
  return result;
}

void TextBox::Edited() {
  if (showing_) return;
  const QString glyphs = Shown();
  const int place = LineOf(*this) ? LineOf(*this)->cursorPosition() : PageOf(*this)->textCursor().position();
  // What was typed or pasted ends at the caret; what is too much goes there.
  QString before = Accepted(glyphs.left(place));
  const QString behind = Accepted(glyphs.mid(place));
  for (int excess = Excess(before + behind); excess > 0 && !before.isEmpty(); before.chop(1)) {
    excess -= static_cast<int>(BytesOf(before.right(1)).size());
  }
  if (before + behind != glyphs) Mend(before + behind, static_cast<int>(before.size()));
  const std::string accepted = BytesOf(before + behind);
  if (accepted == text_) return;
  text_ = accepted;
  if (on_change) on_change();
}

int TextBox::Excess(const QString& glyphs) const {
  return max_length_ > 0 ? static_cast<int>(BytesOf(glyphs).size()) - max_length_ : 0;
}

void TextBox::Mend(const QString& glyphs, int caret) {
  showing_ = true;
  if (QLineEdit* line = LineOf(*this)) {
    line->setText(glyphs);
    line->setCursorPosition(caret);
  } else {
    // In one step with the change itself, so that both are undone together.
    QTextCursor cursor(PageOf(*this)->document());
    cursor.joinPreviousEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.insertText(glyphs);
    cursor.endEditBlock();
    SelectGlyphs(*this, caret, caret);
  }
  showing_ = false;
}

std::string TextBox::Cut(const std::string& text) const {
  if (max_length_ == 0 || static_cast<int>(text.size()) <= max_length_) return text;
  std::string cut = text.substr(0, static_cast<std::size_t>(max_length_));
  if (cut.ends_with('\r')) cut.pop_back();  // never half a line break
  return cut;
}

void TextBox::AppearanceChanged() {
  SetFieldColours(*this);
  if (!keeps_unknown_ && holds_unknown()) Show();
  Control::AppearanceChanged();
}

}  // namespace platform

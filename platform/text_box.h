#pragma once

#include <functional>
#include <string>

#include "platform/control.h"

class QString;

namespace platform {

/// One line, or many, broken at the box's width, with a scroll bar when they need more height than there is.
enum class TextLines { kOne, kMany };

/// A field to type in. Its text is single-byte text in the code page of its charset; a typed or pasted character that
/// the code page lacks becomes "?", unless it is to be kept in sight. A line break is CR LF and counts as two
/// characters. A text that set_text brought is kept byte by byte until the user changes it.
///
/// Enter in a box of many lines starts a new line, unless the box is locked; Tab leaves every box.
class TextBox : public Control {
 public:
  explicit TextBox(Container* parent, TextLines lines = TextLines::kOne);

  const std::string& text() const { return text_; }
  /// Cuts the text to the greatest length. on_change follows when the text is another than before.
  void set_text(const std::string& text);
  /// Greatest length in characters, 0 for any. A longer text is cut at once.
  void set_max_length(int length);
  /// Nothing but digits can be typed; of what is pasted the digits remain. What set_text brings stays as it is.
  void set_digits_only(bool on) { digits_only_ = on; }
  /// Shows what the code page lacks as it was typed; text() has "?" for it all the same.
  void set_keeps_unknown(bool on) { keeps_unknown_ = on; }
  /// True while such a character is shown.
  bool holds_unknown() const;
  /// The user can read, select and copy, but not change the text.
  void set_locked(bool locked);
  bool locked() const { return locked_; }

  /// Selects characters, cut to the text: from start, counted from 0, on. A length of 0 places the caret.
  void Select(int start, int length);
  void SelectAll() { Select(0, static_cast<int>(text_.size())); }
  std::string selected_text() const;

  /// Called after each change of the text, by the user or by set_text.
  std::function<void()> on_change;

 protected:
  void AppearanceChanged() override;
  bool handles_mouse() const override { return true; }
  bool takes_enter() const override { return lines_ == TextLines::kMany && !locked_; }

 private:
  /// Glyphs in Qt's widget as text and back; Qt ends a line with LF.
  std::string BytesOf(QString glyphs) const;
  QString Shown() const;
  void Show();
  /// What remains of typed or pasted glyphs in this box, without regard to the length.
  QString Accepted(const QString& glyphs) const;
  /// The user has changed the glyphs: mends what does not belong here and takes the rest over.
  void Edited();
  void Mend(const QString& glyphs, int caret);
  /// Characters over the greatest length.
  int Excess(const QString& glyphs) const;
  std::string Cut(const std::string& text) const;

  TextLines lines_;
  std::string text_;
  int max_length_ = 0;
  bool digits_only_ = false;
  bool keeps_unknown_ = false;
  bool locked_ = false;
  bool showing_ = false;  // Qt's widget is being changed from here
};

}  // namespace platform

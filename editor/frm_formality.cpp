// What the cave properties do; looks stand in a file of their own.

#include "editor/frm_formality.h"

#include "base/code_page.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "cave/names.h"
#include "editor/cave_sums.h"
#include "editor/frm_main.h"
#include "editor/super_replace.h"
#include "platform/message_box.h"

namespace {

int ValueOf(const platform::TextBox& field) { return NumberOf(field.text()); }

/// Sets values right and gathers what it has to tell about it, a line each.
class Corrector {
 public:
  const std::string& message() const { return message_; }

  void AtLeast(platform::TextBox& field, int least, text::Row name) {
    if (ValueOf(field) < least) SetTo(field, least, name);
  }
  void AtMost(platform::TextBox& field, int most, text::Row name) {
    if (ValueOf(field) > most) SetTo(field, most, name);
  }
  /// Spells the words of the game right. What a cave text has no room for is cut off: it would be lost with all the
  /// rest of the cave.
  void Words(platform::TextBox& field, text::Row name) {
    const CodePage page = field.charset() == platform::Charset::kCyrillic ? CodePage::k1251 : CodePage::k1250;
    const std::string before = field.text();
    std::string text = SuperReplace(before, page);
    const bool tooLong = text.size() > kLargestSmallNumber;
    if (tooLong) text.resize(kLargestSmallNumber);
    if (tooLong && text.ends_with('\r')) text.pop_back();  // never half a line break
    while (text.ends_with(' ')) text.pop_back();           // of the cut: they would be a correction the next time
    field.set_text(text);
    if (tooLong)
      Tell(name, kLargestSmallNumber);
    else if (text != before)
      Tell(name);
  }

 private:
  void SetTo(platform::TextBox& field, int limit, text::Row name) {
    field.set_text(std::to_string(limit));
    Tell(name, limit);
  }
  void Tell(text::Row name) { message_ += LangStr[name] + std::string(kLineBreak); }
  void Tell(text::Row name, int limit) {
    message_ += LangStr[name] + " = " + std::to_string(limit) + std::string(kLineBreak);
  }

  std::string message_;
};

}  // namespace

void FrmFormality::Command1_Click() {
  Corrector corrector;
  corrector.AtLeast(Text1, 19, text::kCaveWidth);
  corrector.AtMost(Text1, 50, text::kCaveWidth);
  corrector.AtLeast(Text2, 11, text::kCaveHeight);
  corrector.AtMost(Text2, 30, text::kCaveHeight);
  corrector.AtLeast(Text5, 5, text::kTotalTime);
  // A number below 0 in one of these fields takes away the time, without a word. That is meant.
  for (const platform::TextBox* field : {&Text6, &Text9, &Text10}) {
    if (ValueOf(*field) < 0) Text5.set_text("0");
  }
  corrector.AtLeast(Text7, 1, text::kMagicTime);
  corrector.AtMost(Text7, 150, text::kMagicTime);
  corrector.AtLeast(Text8, 1, text::kAmoebaTime);
  corrector.AtMost(Text8, 150, text::kAmoebaTime);
  corrector.AtMost(Text11, kMostPermeable, text::kSlimePermeability);
  corrector.Words(Text3, text::kCaveName);
  corrector.Words(Text4, text::kCaveDescription);
  if (!corrector.message().empty()) {
    const std::string text =
        LangStr[text::kCorrected] + std::string(kLineBreak) + std::string(kLineBreak) + corrector.message();
    const std::string title = ReadableFromUtf8("Upozornění", PageInForce());  // the same in every language
    platform::ShowMessageBox({text, title, platform::BoxButtons::kOk, platform::BoxIcon::kExclamation});
  }
  forms_.frmMain->VlOK_Click();
  Hide();
}

void FrmFormality::Command2_Click() { Hide(); }

bool FrmFormality::Form_QueryUnload() { return true; }

void FrmFormality::Inform(text::Row titleRow, const std::string& text) const {
  platform::ShowMessageBox({text, LangStr[titleRow], platform::BoxButtons::kOk, platform::BoxIcon::kInformation});
}

void FrmFormality::Command3_Click() {
  std::string text = LangStr[text::kBonusText];
  if (JeBonus(Text3.text()))
    text += std::string(kLineBreak) + Replaced(LangStr[text::kIsBonusCave], "?1?", Text3.text());
  Inform(text::kBonusTitle, text);
}

void FrmFormality::Command4_Click() {
  Inform(text::kCountGemsTitle, LangStr[text::kCountGemsText] + NumberText(forms_.frmMain->SpoctiDrh()));
}

void FrmFormality::Command5_Click() { Inform(text::kTimeTitle, LangStr[text::kTimeText]); }

void FrmFormality::Command6_Click() { Inform(text::kMagicTitle, LangStr[text::kMagicText]); }

void FrmFormality::Command7_Click() {
  const int permeability = ValueOf(Text11);
  std::string text = ":-)";  // for the 9 that nobody has corrected yet
  if (permeability == 0) text = LangStr[text::kSlimeNever];
  if (permeability == kMostPermeable) text = LangStr[text::kSlimeAlways];
  if (permeability > 0 && permeability < kMostPermeable) {
    text = LangStr[text::kSlimeOdds] + " 1:" + std::to_string(SlimeChances(permeability) - 1) + ".";
  }
  platform::ShowMessageBox({text, LangStr[text::kSlimeTitle] + NumberText(permeability) + "?",
                            platform::BoxButtons::kOk, platform::BoxIcon::kInformation});
}

void FrmFormality::Command8_Click() {
  const Petrification sum =
      EstimatePetrification(ValueOf(Text1), ValueOf(Text2), forms_.frmMain->NuOfOb('A'), ValueOf(Text8));
  Inform(text::kPetrifyTitle, Replaced(Replaced(LangStr[text::kPetrifyText], " ?1?", NumberText(sum.cells)), " ?2?",
                                       NumberText(sum.seconds)));
}

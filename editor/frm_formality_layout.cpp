// How the cave properties look: limits of the fields, places, texts, the preview of the colour.

#include <algorithm>
#include <utility>

#include "base/lang_str.h"
#include "editor/frm_formality.h"
#include "platform/application.h"
#include "view/tile_pictures.h"

namespace {

constexpr int kEdge = 16;
constexpr int kPad = 12;  // between a panel's edge and what is on it
constexpr int kRowHeight = 30;
constexpr int kRowStep = kRowHeight + 6;
constexpr int kBetween = 10;       // panels, and a field and its label
constexpr int kNumber = 60;        // width of a number
constexpr int kText = 300;         // width of a text
constexpr int kDescription = 104;  // four lines
constexpr int kPreview = 2 * kRowStep + kRowHeight;
constexpr int kHelpPad = 28;  // of a button's width, beside its caption
constexpr int kButtonWidth = 130;
constexpr int kButtonHeight = 36;
constexpr int kLeastContent = 540;
constexpr int kMostColours = 14;

}  // namespace

FrmFormality::FrmFormality(const std::string& programFolder, const Forms& forms)
    : folder_(programFolder + "/pictures"), forms_(forms) {
  SetLimits();
  TieControls();
  Place();
}

void FrmFormality::SetLimits() {
  constexpr int kDescriptionLength = 280;
  Text4.set_max_length(kDescriptionLength);
  for (platform::TextBox* field : {&Text5, &Text6, &Text7, &Text8}) field->set_max_length(3);
  for (platform::TextBox* field : {&Text1, &Text2, &Text9, &Text10}) field->set_max_length(2);
  Text11.set_max_length(1);
  HScroll1.set_max(kMostColours);
  HScroll1.set_large_change(3);
}

void FrmFormality::FrmLoad() {
  for (platform::TextBox* field : {&Text1, &Text2, &Text5, &Text6, &Text7, &Text8, &Text9, &Text10, &Text11}) {
    field->set_digits_only(true);
  }
}

void FrmFormality::TieControls() {
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
  Command4.on_click = [this] { Command4_Click(); };
  Command5.on_click = [this] { Command5_Click(); };
  Command6.on_click = [this] { Command6_Click(); };
  Command7.on_click = [this] { Command7_Click(); };
  Command8.on_click = [this] { Command8_Click(); };
  HScroll1.on_change = [this] { HScroll1_Change(); };
  on_close_query = [this] { return Form_QueryUnload(); };
  set_default_button(&Command1);
  set_cancel_button(&Command2);
}

void FrmFormality::HScroll1_Change() {
  const int ratio = platform::Application::PixelRatio();
  Picture1.set_picture(LoadTinted(folder_, picture::kDirt, HScroll1.value(), kPreview, ratio));
}

/// Each opening begins with the name. Fonts can have got another charset since the texts came, so the places are made
/// anew.
void FrmFormality::set_visible(bool visible) {
  if (visible) {
    Place();
    Text3.SetFocus();
    Text3.SelectAll();
  }
  Form::set_visible(visible);
}

// --- Places --------------------

/// Wide enough for the longest label with its button in any language.
int FrmFormality::ContentWidth() const {
  int width = kLeastContent;
  const auto include = [&width](const Row& row, int fieldWidth) {
    const int help = row.help ? kBetween + row.help->text_width() + kHelpPad : 0;
    width = std::max(width, fieldWidth + kBetween + row.label->text_width() + help);
  };
  for (const Row& row : texts_) include(row, kText);
  for (const Row& row : rules_) include(row, kNumber);
  for (const Row& row : size_) include(row, kNumber + kBetween + kPreview);
  return std::max(width, kText + 2 * kBetween + Label3.text_width() + kPreview);
}

/// The field on the left, behind it its label, and from there to the right edge the button.
void FrmFormality::PlaceRow(const Row& row, int top, int contentWidth) {
  constexpr int kLeft = kEdge + kPad;
  row.field->MoveTo(kLeft, top);
  const int label = kLeft + row.field->width() + kBetween;
  row.label->SetBounds(label, top, row.label->text_width(), kRowHeight);
  row.label->set_middle(true);
  if (!row.help) return;
  const int help = label + row.label->width() + kBetween;
  row.help->SetBounds(help, top, kLeft + contentWidth - help, kRowHeight);
}

void FrmFormality::Place() {
  const platform::Theme& theme = platform::Application::theme();
  const int content = ContentWidth();
  const int panelWidth = content + 2 * kPad;
  int top = kEdge;
  const auto panel = [&](platform::Shape& shape, int height) {
    shape.SetBounds(kEdge, top, panelWidth, height + 2 * kPad);
    shape.set_back_colour(theme.panel);
    shape.set_fore_colour(theme.outline);
    shape.set_line_width(2);
    shape.set_corner(10);
    return std::exchange(top, top + height + 2 * kPad + kBetween) + kPad;
  };

  const int texts = panel(shpTexts, kRowStep + kDescription);
  Text3.Resize(kText, kRowHeight);
  Text4.Resize(kText, kDescription);
  PlaceRow(texts_[0], texts, content);
  PlaceRow(texts_[1], texts + kRowStep, content);

  int rules = panel(shpRules, static_cast<int>(rules_.size()) * kRowStep - (kRowStep - kRowHeight));
  for (const Row& row : rules_) {
    row.field->Resize(kNumber, kRowHeight);
    PlaceRow(row, rules, content);
    rules += kRowStep;
  }

  int look = panel(shpLook, kPreview);
  const int left = kEdge + kPad;
  HScroll1.SetBounds(left, look + 6, kText, kRowHeight - 12);
  Label3.SetBounds(left + kText + kBetween, look, Label3.text_width(), kRowHeight);
  Label3.set_middle(true);
  Picture1.SetBounds(left + content - kPreview, look, kPreview, kPreview);
  for (const Row& row : size_) {
    look += kRowStep;
    row.field->Resize(kNumber, kRowHeight);
    PlaceRow(row, look, content);
  }

  top += kEdge - kBetween;
  const int right = kEdge + panelWidth;
  Command2.SetBounds(right - kButtonWidth, top, kButtonWidth, kButtonHeight);
  Command1.SetBounds(right - 2 * kButtonWidth - kBetween, top, kButtonWidth, kButtonHeight);
  Resize(right + kEdge, top + kButtonHeight + kEdge);
}

// --- Texts --------------------

void FrmFormality::SetLW() {
  const auto take = [](const Row& row) {
    row.label->set_caption("- " + LangStr[row.text]);
    row.field->set_accessible_name(LangStr[row.text]);
    if (row.help) row.help->set_caption(LangStr[row.helpText]);
  };
  for (const Row& row : texts_) take(row);
  for (const Row& row : rules_) take(row);
  for (const Row& row : size_) take(row);
  Label3.set_caption("- " + LangStr[text::kCaveColour]);
  HScroll1.set_accessible_name(LangStr[text::kCaveColour]);
  Command2.set_caption(LangStr[text::kCancel]);
  set_caption(LangStr[text::kPropertiesTitle]);
  Place();
}

// How the set editor looks: controls, menus, places, texts.

#include <functional>
#include <utility>

#include "base/code_page.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "editor/frm_sada.h"
#include "editor/frm_sada_rows.h"
#include "platform/application.h"

namespace {

constexpr int kEdge = 16;
constexpr int kTop = MenuBar::kHeight + 12;
constexpr int kCaption = 22;   // height of a caption above its field
constexpr int kField = 30;     // height of a field of one line
constexpr int kPad = 8;        // between the list's edge and its rows
constexpr int kNumWidth = 44;  // columns of the list
constexpr int kPocWidth = 36;
constexpr int kBarWidth = 18;
constexpr int kListWidth = 420;
constexpr int kListHeight = kRowsShown * kRow + 2 * kPad;
constexpr int kRowWidth = kListWidth - 2 * kPad - kBarWidth - 6;
constexpr int kRight = kEdge + kListWidth + 20;
constexpr int kRightWidth = 470;
constexpr int kBodyWidth = 160;
constexpr int kBottom = kTop + kCaption + kListHeight;

/// A field below its caption, which may be somewhat wider.
void PlaceField(platform::Label& caption, platform::TextBox& field, const platform::Rect& place) {
  caption.SetBounds(place.left, place.top, place.width, kCaption);
  field.SetBounds(place.left, place.top + kCaption, place.width, place.height);
}

}  // namespace

FrmSada::FrmSada(const std::string& programFolder, const Forms& forms) : forms_(forms) {
  preview.SetPictures(programFolder + "/pictures");
  Chg.set_visible(false);
  Text3.set_max_length(kLargestSmallNumber);
  Text1.set_max_length(kLargestSmallNumber);
  constexpr int kMostDigits = 9;
  txtBody.set_max_length(kMostDigits);
  txtBody.set_text("00000");
  MakeMenus();
  TieControls();
  Place();
}

void FrmSada::MakeMenus() {
  const auto item = [](platform::MenuItem& menu, const std::string& keys, std::function<void()> action) {
    menu.set_shortcut_text(keys);
    menu.on_click = std::move(action);
  };
  item(mnuNew, "Ctrl+N", [this] { mnuNew_Click(); });
  item(mnuOpen, "Ctrl+O", [this] { mnuOpen_Click(); });
  item(mnuSave, "Ctrl+S", [this] { mnuSave_Click(); });
  item(mnuSaveAs, "", [this] { mnuSaveAs_Click(); });
  item(mnuGratulace, "Ctrl+G", [this] { mnuGratulace_Click(); });
  item(mnuClose, "", [this] { mnuClose_Click(); });
  item(mnuCopy, "Ctrl+Insert", [this] { mnuCopy_Click(); });
  item(mnuPaste, "Shift+Insert", [this] { mnuPaste_Click(); });
  item(mnuAdd[0], "F3", [this] { mnuAdd_Click(0); });
  item(mnuAdd[1], "", [this] { mnuAdd_Click(1); });
  item(mnuEdit, "F4", [this] { mnuEdit_Click(); });
  item(mnuUp, "F5", [this] { mnuUp_Click(); });
  item(mnuDown, "F6", [this] { mnuDown_Click(); });
  item(mnuDelete, "F8", [this] { mnuDelete_Click(); });
  mnuCaves.on_open = [this] { mnuCaves_Click(); };
}

void FrmSada::TieControls() {
  Label7.on_click = [this] { mnuSada.PopUp(Label7, 0, Label7.height()); };
  Label3.on_click = [this] { mnuCaves.PopUp(Label3, 0, Label3.height()); };
  Label8.on_click = [this] { forms_.mnuHelpP->PopUp(Label8, 0, Label8.height()); };
  Text1.on_change = [this] { Text1_Change(); };
  Text2.on_change = [this] { Text2_Change(); };
  Text3.on_change = [this] { Text3_Change(); };
  Text4.on_change = [this] { Text4_Change(); };
  txtBody.on_got_focus = [this] { txtBody_GotFocus(); };
  txtBody.on_lost_focus = [this] { txtBody_LostFocus(); };
  VScroll1.on_change = [this] { VScroll1_Change(); };
  List1.set_tab_stop(true);
  List1.on_wheel = [this](const platform::WheelEvent& event) { VScroll1.set_value(VScroll1.value() - event.steps); };
  on_key_down = [this](platform::KeyEvent& event) { Form_KeyDown(event); };
  on_close_query = [this] { return Form_QueryUnload(); };
}

void FrmSada::Place() {
  const platform::Theme& theme = platform::Application::theme();
  Resize(kRight + kRightWidth + kEdge, kBottom + kEdge);
  fraBar.SetBounds(0, 0, width(), MenuBar::kHeight);
  fraBar.set_back_colour(theme.panel);

  Label2.SetBounds(kEdge, kTop, kListWidth, kCaption);
  List1.SetBounds(kEdge, kTop + kCaption, kListWidth, kListHeight);
  List1.set_border(true);
  List1.set_back_colour(theme.field);
  Picture1.SetBounds(kPad, kPad, kRowWidth, kRowsShown * kRow);
  Picture2.SetBounds(0, 0, kRowWidth, kHighestCaveNumber * kRow);
  shpAktK.set_line_width(0);
  VScroll1.SetBounds(kListWidth - kPad - kBarWidth, kPad, kBarWidth, kRowsShown * kRow);
  VScroll1.set_large_change(kRowsShown);

  constexpr int kStep = kCaption + kField + 8;
  constexpr int kDescription = 104;
  int top = kTop;
  PlaceField(Label4, Text3, {kRight, top, kRightWidth, kField});
  top += kStep;
  PlaceField(Label1, Text1, {kRight, top, kRightWidth, kField});
  top += kStep;
  PlaceField(Label9, Text2, {kRight, top, kRightWidth - kBodyWidth - 12, kField});
  PlaceField(lblBody, txtBody, {kRight + kRightWidth - kBodyWidth, top, kBodyWidth, kField});
  top += kStep;
  PlaceField(Label6, Text4, {kRight, top, kRightWidth, kDescription});
  top += kCaption + kDescription + 12;
  preview.SetBounds(kRight, top, kRightWidth, kBottom - top);
  preview.set_border(true);
}

void FrmSada::FrmLoad() {
  for (int i = 1; i <= kHighestCaveNumber; ++i) MakeRow(i);
  lblPoc[1]->set_enabled(false);
}

void FrmSada::MakeRow(int i) {
  const auto row = static_cast<std::size_t>(i);
  const int top = kRow * i - kRow;
  const auto make = [&](Column& column, int left, int columnTop, int columnWidth) -> platform::Label& {
    auto& label = column[row];
    label = std::make_unique<platform::Label>(&Picture2);
    label->SetBounds(left, columnTop, columnWidth, kRow);
    label->set_visible(false);
    label->set_middle(true);
    label->set_font({16, false, false, false});
    label->set_pointer(platform::Pointer::kHand);
    label->on_click = [this, i] {
      List1.SetFocus();
      lblCave_Click(i);
    };
    label->on_double_click = [this] { List1_DblClick(); };
    return *label;
  };
  platform::Label& num = make(lblNum, 0, top - 1, kNumWidth);
  num.set_alignment(platform::Alignment::kCentre);
  num.set_fore_colour(platform::Application::theme().muted_text);
  num.set_caption(Digits(i, 2));
  make(lblCave, kNumWidth, top, kRowWidth - kNumWidth - kPocWidth);
  platform::Label& poc = make(lblPoc, kRowWidth - kPocWidth, top, kPocWidth);
  poc.set_alignment(platform::Alignment::kCentre);
  poc.set_font({15, true, false, false});
  poc.set_fore_colour(platform::Application::theme().accent);
  poc.on_click = [this, i] { lblPoc_Click(i); };
  poc.on_double_click = {};
  constexpr int kSlot = 22;
  shpPoc[row] = std::make_unique<platform::Shape>(&Picture2, platform::ShapeKind::kRounded);
  shpPoc[row]->SetBounds(kRowWidth - (kPocWidth + kSlot) / 2, top + (kRow - kSlot) / 2, kSlot, kSlot);
  shpPoc[row]->set_corner(5);
  shpPoc[row]->set_fore_colour(platform::Application::theme().button);
  shpPoc[row]->set_visible(false);
}

void FrmSada::ShowTexts() {
  const EditedSet set = *this;  // showing one text takes it over at once
  Text3.set_text(set.Name);
  Text1.set_text(set.Author);
  Text2.set_text(set.Mail);
  Text4.set_text(set.Description);
}

void FrmSada::SetLW() {
  const std::pair<platform::Label&, text::Row> labels[] = {
      {Label7, text::kSetMenu},      {Label3, text::kCaveMenu},           {Label8, text::kHelpMenu},
      {Label2, text::kCavesLabel},   {Label4, text::kSetNameLabel},       {Label1, text::kSetAuthorLabel},
      {Label9, text::kSetMailLabel}, {Label6, text::kSetDescriptionLabel}};
  for (const auto& [label, row] : labels) label.set_caption(LangStr[row]);
  const std::pair<platform::MenuItem&, text::Row> items[] = {{mnuNew, text::kNewSetItem},
                                                             {mnuOpen, text::kOpenSetItem},
                                                             {mnuSave, text::kSaveSetItem},
                                                             {mnuSaveAs, text::kSaveSetAsItem},
                                                             {mnuGratulace, text::kCongratulationItem},
                                                             {mnuClose, text::kCloseItem},
                                                             {mnuCopy, text::kCopyCave},
                                                             {mnuPaste, text::kPasteCave},
                                                             {mnuAddmnu, text::kAddCave},
                                                             {mnuAdd[0], text::kSmallCave},
                                                             {mnuAdd[1], text::kBigCave},
                                                             {mnuEdit, text::kEditCave},
                                                             {mnuMove, text::kMoveCave},
                                                             {mnuUp, text::kMoveUp},
                                                             {mnuDown, text::kMoveDown},
                                                             {mnuDelete, text::kDeleteCaveItem}};
  for (const auto& [item, row] : items) item.set_caption(LangStr[row]);
  // Without a row in the language files: it is the same in every language.
  lblBody.set_caption(ReadableFromUtf8("Body na začátek", PageInForce()));
  set_caption(LangStr[text::kSetEditorTitle]);
  bar_.Place();
  List1.set_accessible_name(LangStr[text::kCavesLabel]);
  VScroll1.set_accessible_name(LangStr[text::kCavesLabel]);
  Text3.set_accessible_name(LangStr[text::kSetNameLabel]);
  Text1.set_accessible_name(LangStr[text::kSetAuthorLabel]);
  Text2.set_accessible_name(LangStr[text::kSetMailLabel]);
  Text4.set_accessible_name(LangStr[text::kSetDescriptionLabel]);
  txtBody.set_accessible_name(lblBody.caption());
}

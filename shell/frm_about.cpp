#include "shell/frm_about.h"

#include <algorithm>
#include <utility>

#include "base/lang_str.h"
#include "base/language.h"
#include "base/web_hosts.h"
#include "platform/application.h"
#include "shell/links.h"

FrmAbout::FrmAbout() {
  Label2.set_caption("09.12.2000 - 27.08.2001");
  Label5.set_caption("FREEWARE");
  Label7.set_caption(kAuthorHost);
  Label10.set_caption(kAuthorCavesHost);
  Label4.set_caption(kAuthorMail);
  Label1.set_font({18, true, false, false});
  const auto link = [](platform::Label& label, std::function<void()> action) {
    label.set_font({0, false, false, true});
    label.set_fore_colour(platform::Application::theme().link);
    label.set_pointer(platform::Pointer::kHand);
    label.set_tab_stop(true);
    label.on_click = std::move(action);
  };
  link(Label6, [this] { OtevriOdkaz("http://" + Label6.caption()); });
  link(Label7, OpenAuthorPage);
  link(Label10, [this] { OtevriOdkaz("http://" + Label10.caption()); });
  link(Label4, WriteToAuthor);
  Command1.on_click = [this] { Hide(); };
  set_default_button(&Command1);
  set_cancel_button(&Command1);
  Command1.SetFocus();
}

void FrmAbout::SetLW(const platform::Picture& logo) {
  set_caption(LangStr[text::kAboutGame]);
  Image1.set_picture(logo);
  Label1.set_caption(LangStr[text::kVersion] + " 1.1L");
  Label8.set_caption(LangStr[text::kAboutWebPages]);
  Label14.set_caption(LangStr[text::kAboutContests]);
  Label3.set_caption(LangStr[text::kAboutCreditsGame]);
  Label9.set_caption(LangStr[text::kAboutCreditsBy]);
  Label6.set_caption(WebHra);
  Label6.set_tool_tip("http://" + WebHra);
  Place();
}

void FrmAbout::Place() {
  constexpr int kEdge = 24;
  constexpr int kLine = 24;
  const std::initializer_list<platform::Label*> lines = {&Label1,  &Label2, &Label5, &Label3,  &Label9, &Label8,
                                                         &Label14, &Label6, &Label7, &Label10, &Label4};
  int inner = 340;
  for (const platform::Label* line : lines) inner = std::max(inner, line->text_width() + 8);
  Image1.MoveTo(kEdge + (inner - Image1.width()) / 2, kEdge - 8);
  int top = kEdge + Image1.height();
  for (platform::Label* line : lines) {
    const bool new_part = line == &Label3 || line == &Label8 || line == &Label6;
    if (new_part) top += 12;
    const int width = line->text_width() + 8;
    line->set_alignment(platform::Alignment::kCentre);
    line->set_middle(true);
    line->SetBounds(kEdge + (inner - width) / 2, top, width, kLine);
    top += kLine;
  }
  top += 16;
  Command1.SetBounds(kEdge + (inner - 120) / 2, top, 120, 36);
  Resize(inner + 2 * kEdge, top + 36 + kEdge);
}

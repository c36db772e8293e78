#include "shell/help_menu.h"

#include "base/lang_str.h"
#include "base/language.h"
#include "shell/frm_slang.h"
#include "shell/links.h"

HelpMenu::HelpMenu() {
  const auto page = [](platform::MenuItem& item, const std::string& name) {
    item.on_click = [name] { OtevriOdkaz(HelpCesta + name); };
  };
  page(mnuHlpPravidla, "pravidla.html");
  page(mnuAbout, "oprogramu.html");
  page(mnuHlpRady, "editovat.html");
  page(mnuHlpPrispet, "prispet.html");
  page(mnuHlp2, "help.html");
  mnuHlp1.on_click = [this] {
    if (showAbout) showAbout();
  };
  mnuAboutTr.on_click = ShowAboutTranslation;
  mnuHlp3.on_click = [] { OtevriOdkaz("http://" + WebHra); };
  mnuHlp4.on_click = OpenAuthorPage;
  mnuHlp5.on_click = WriteToAuthor;
}

void HelpMenu::SetLW() {
  mnuHlp1.set_caption(LangStr[text::kAboutGame]);
  mnuHlp2.set_caption(LangStr[text::kOpenHelp]);
  mnuHlp3.set_caption(LangStr[text::kGameHomePage]);
  mnuHlp4.set_caption(LangStr[text::kAuthorHomePage]);
  mnuHlp5.set_caption(LangStr[text::kWriteToAuthor]);
  mnuHlpPravidla.set_caption(LangStr[text::kHelpRules]);
  mnuAbout.set_caption(LangStr[text::kHelpMore]);
  mnuHlpRady.set_caption(LangStr[text::kHelpAdvice]);
  mnuHlpPrispet.set_caption(LangStr[text::kHelpContribute]);
  mnuAboutTr.set_caption(LangStr[text::kAboutTranslation]);
}

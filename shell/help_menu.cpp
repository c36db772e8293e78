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
  mnuHlp1.set_caption(LangStr[10]);
  mnuHlp2.set_caption(LangStr[11]);
  mnuHlp3.set_caption(LangStr[12]);
  mnuHlp4.set_caption(LangStr[13]);
  mnuHlp5.set_caption(LangStr[14]);
  mnuHlpPravidla.set_caption(LangStr[34]);
  mnuAbout.set_caption(LangStr[35]);
  mnuHlpRady.set_caption(LangStr[36]);
  mnuHlpPrispet.set_caption(LangStr[37]);
  mnuAboutTr.set_caption(LangStr[99]);
}

#include "shell/links.h"

#include "base/code_page.h"
#include "base/language.h"
#include "base/web_hosts.h"
#include "platform/links.h"

void OtevriOdkaz(const std::string& text) { platform::OpenLink(text); }

void OpenAuthorPage() { OtevriOdkaz(std::string("http://") + kAuthorHost); }

void WriteToAuthor() {
  OtevriOdkaz(std::string("mailto:") + kAuthorMail + "?subject=" + ToUtf8(HeroName, PageInForce()));
}

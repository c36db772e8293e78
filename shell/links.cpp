#include "shell/links.h"

#include <cctype>
#include <cstdio>
#include <string_view>

#include "base/code_page.h"
#include "base/language.h"
#include "base/web_hosts.h"
#include "platform/links.h"

void OtevriOdkaz(const std::string& text) { platform::OpenLink(text); }

std::string MailTo(const std::string& address) {
  std::string link = "mailto:";
  for (const char c : address) {
    const bool plain = std::isalnum(static_cast<unsigned char>(c)) != 0 ||
                       std::string_view("@.-_+~").find(c) != std::string_view::npos;
    char coded[4] = {c, 0, 0, 0};
    if (!plain) std::snprintf(coded, sizeof coded, "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    link += coded;
  }
  return link;
}

void OpenAuthorPage() { OtevriOdkaz(std::string("http://") + kAuthorHost); }

void WriteToAuthor() {
  OtevriOdkaz(std::string("mailto:") + kAuthorMail + "?subject=" + ToUtf8(HeroName, PageInForce()));
}

#include "shell/links.h"

#include "platform/links.h"

void OtevriOdkaz(const std::string& text) { platform::OpenLink(text); }

#pragma once

#include <functional>

#include "platform/menu.h"

/// The help menu of the start screen and of the set editor: pages, links, what the program is.
class HelpMenu {
 public:
  HelpMenu();

  /// Texts of the language in force.
  void SetLW();

  std::function<void()> showAbout;

  platform::MenuItem mnuHelpP;
  platform::MenuItem mnuHlpPravidla{&mnuHelpP};
  platform::MenuItem mnuAbout{&mnuHelpP};
  platform::MenuItem mnuHlpRady{&mnuHelpP};
  platform::MenuItem mnuHlpPrispet{&mnuHelpP};
  platform::MenuItem mnuLine1{&mnuHelpP, "-"};
  platform::MenuItem mnuHlp2{&mnuHelpP};
  platform::MenuItem mnuHlp3{&mnuHelpP};
  platform::MenuItem mnuHlp4{&mnuHelpP};
  platform::MenuItem mnuHlp5{&mnuHelpP};
  platform::MenuItem mnuLine2{&mnuHelpP, "-"};
  platform::MenuItem mnuAboutTr{&mnuHelpP};
  platform::MenuItem mnuHlp1{&mnuHelpP};
};

#include "editor/menu_bar.h"

#include <utility>

#include "base/code_page.h"
#include "platform/application.h"
#include "platform/keys.h"

namespace {

constexpr int kNobody = -1;

/// The key of the caption's first letter, or 0 when that is none of "A" to "Z".
int LetterKey(const std::string& caption) {
  const std::size_t first = caption.find_first_not_of(' ');
  if (first == std::string::npos) return 0;
  const char letter = ToUpper(caption.substr(first, 1), CodePage::k1250)[0];
  return letter >= 'A' && letter <= 'Z' ? letter : 0;
}

}  // namespace

MenuBar::MenuBar(std::vector<platform::Label*> labels) : labels_(std::move(labels)) {
  const platform::Theme& theme = platform::Application::theme();
  for (platform::Label* label : labels_) {
    label->set_back_colour(theme.panel);
    label->set_font({16, true, false, false});
    label->set_alignment(platform::Alignment::kCentre);
    label->set_middle(true);
    label->set_pointer(platform::Pointer::kHand);
    label->set_tab_stop(true);
    label->on_got_focus = [label, &theme] { label->set_fore_colour(theme.accent); };
    label->on_lost_focus = [label] { label->set_fore_colour({}); };
  }
}

void MenuBar::Place() {
  constexpr int kAround = 10;  // beside a caption
  int left = 0;
  for (platform::Label* label : labels_) {
    label->SetBounds(left, 0, label->text_width() + 2 * kAround, kHeight);
    left += label->width();
  }
}

int MenuBar::Focused() const {
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    if (labels_[i]->has_focus()) return static_cast<int>(i);
  }
  return kNobody;
}

bool MenuBar::KeyDown(const platform::KeyEvent& event) {
  constexpr int kF10 = platform::kF1 + 9;
  if (event.code == kF10 && event.shift == 0) {
    labels_.front()->SetFocus();
    return true;
  }
  if (event.shift == platform::kAlt) {
    for (const platform::Label* label : labels_) {
      if (event.code != LetterKey(label->caption())) continue;
      label->on_click();
      return true;
    }
    return false;
  }
  const int focused = Focused();
  if (focused == kNobody || event.shift != 0) return false;
  const int count = static_cast<int>(labels_.size());
  const auto at = [&](int index) { return labels_[static_cast<std::size_t>((index + count) % count)]; };
  switch (event.code) {
    case platform::kKeyLeft:
      at(focused - 1)->SetFocus();
      return true;
    case platform::kKeyRight:
      at(focused + 1)->SetFocus();
      return true;
    case platform::kKeyDown:
      at(focused)->on_click();
      return true;
    default:
      return false;
  }
}

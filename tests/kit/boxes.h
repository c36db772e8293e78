#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "platform/message_box.h"
#include "platform/testing.h"

inline std::string Utf8(const std::string& text) { return ToUtf8(text, CodePage::k1250); }

/// Answers boxes while it exists and keeps what they said: "title: text", UTF-8.
class Boxes {
 public:
  /// answers: of the boxes to come, in order; those after them get OK or No. meanwhile: done while each is open.
  explicit Boxes(std::vector<platform::BoxAnswer> answers = {}, std::function<void()> meanwhile = {})
      : answers_(std::move(answers)) {
    platform::SetBoxResponder([this, meanwhile = std::move(meanwhile)](const platform::MessageBox& box) {
      texts.push_back(Utf8(box.title + ": " + box.text));
      if (meanwhile) meanwhile();
      if (next_ < answers_.size()) return answers_[next_++];
      return box.buttons == platform::BoxButtons::kOk ? platform::BoxAnswer::kOk : platform::BoxAnswer::kNo;
    });
  }
  ~Boxes() { platform::SetBoxResponder({}); }
  Boxes(const Boxes&) = delete;
  Boxes& operator=(const Boxes&) = delete;

  std::vector<std::string> texts;

 private:
  std::vector<platform::BoxAnswer> answers_;
  std::size_t next_ = 0;
};

/// Does these things one after another, each with the box or dialog that is then in front.
inline void InTurn(std::vector<std::function<void()>> actions) {
  if (actions.empty()) return;
  platform::user::WhenFront([actions = std::move(actions)]() mutable {
    const auto first = actions.front();
    actions.erase(actions.begin());
    first();
    InTurn(std::move(actions));
  });
}

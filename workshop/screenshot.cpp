// screenshot: the game window at a moment of a record, as its player saw it.

#include <cstdlib>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "platform/application.h"
#include "platform/message_box.h"
#include "platform/testing.h"
#include "tools/command_line.h"
#include "view/form_hra.h"

namespace {

constexpr int kMessageTicks = 30;  // a message stands for three seconds
constexpr int kMostPixels = 20000;

struct Options {
  std::string record;
  std::string picture;
  std::string language = "cestina.zbl";
  int tick = 100;
  bool replay = false;
  std::vector<int> screen = {1280, 800};
  int ratio = 1;
};

/// The window as it is while somebody plays: a replay runs by the same rules but looks a little different.
void LookPlayed(FormHra& form) {
  form.Image2.set_visible(false);
  form.Label5.set_visible(false);
  form.chkRec.set_value(1);
  form.chkRec.set_visible(true);
  const platform::Colour light = form.Picture7.back_colour().value_or(platform::Colour{});
  form.Picture7.set_back_colour(platform::Colour{light.blue, 0, 0});
}

void Shoot(const Options& options) {
  const std::string folder = ZORBIK_PROGRAM_DATA;
  NactiJazyk(folder + "/" + options.language);
  platform::Application::set_default_charset(platform::CharsetOf(PageInForce()));
  // No box waits for anybody. One tells whose record it is; any other, that it does not fit.
  std::string fault;
  platform::SetBoxResponder([&fault](const platform::MessageBox& box) {
    if (box.title != LangStr[text::kForeignReplayTitle]) fault = ToUtf8(box.text, PageInForce());
    return platform::BoxAnswer::kOk;
  });
  const Settings settings;
  FormHra form(folder, settings);
  form.SetLW();
  form.CurrentFile = options.record;
  form.Replay();
  form.tmrHra.Stop();
  for (int tick = 0; tick < options.tick && !form.game.Won && fault.empty(); ++tick) {
    if (tick == options.tick - kMessageTicks) form.tmrMsg_Timer();
    form.tmrHra_Timer();
  }
  if (!fault.empty()) throw Fault(fault);
  if (options.tick == 0) {
    form.tmrMsg_Timer();
    form.Picture5.set_visible(true);
  }
  if (!options.replay) LookPlayed(form);
  platform::user::Grab(form).SavePng(options.picture);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Plays a record in a game window that nobody sees and saves what the window shows.", "screenshot");
  Options options;
  app.add_option("RECORD.zbr", options.record)->required();
  app.add_option("OUT.png", options.picture)->required();
  app.add_option("--tick", options.tick, "after so many ticks, 0: before the start (100)")
      ->check(CLI::Range(0, 1000000));
  app.add_flag("--replay", options.replay, "as it looks to somebody who watches the record");
  app.add_option("--screen", options.screen, "on a screen of WxH pixels (1280x800)")
      ->delimiter('x')
      ->expected(2)
      ->check(CLI::Range(1, kMostPixels));
  app.add_option("--ratio", options.ratio, "with so many device pixels each (1)")->check(CLI::Range(1, 4));
  app.add_option("--language", options.language, "language file in the program's folder (cestina.zbl)");
  return RunCommand(app, argc, argv, [&] {
    setenv("QT_SCALE_FACTOR", std::to_string(options.ratio).c_str(), 1);
    platform::user::UseOffscreen(options.screen[0], options.screen[1]);
    platform::Application application(argc, argv, "screenshot");
    Shoot(options);
    return 0;
  });
}

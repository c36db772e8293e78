// screenshot: the game window at a moment of a record, as its player saw it.

#include <getopt.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/tool.h"
#include "platform/application.h"
#include "platform/message_box.h"
#include "platform/testing.h"
#include "view/form_hra.h"

namespace {

constexpr const char* kUsage =
    "Usage: screenshot [OPTIONS] RECORD.zbr OUT.png\n"
    "\n"
    "Plays a record in a game window that nobody sees and saves what the window shows.\n"
    "\n"
    "Options:\n"
    "  --tick N        after so many ticks, 0: before the start (100)\n"
    "  --replay        as it looks to somebody who watches the record\n"
    "  --screen WxH    on a screen of so many pixels (1280x800)\n"
    "  --ratio N       with so many device pixels each, 1 to 4 (1)\n"
    "  --language F    language file in the program's folder (cestina.zbl)\n"
    "  --help          this text\n";

constexpr int kMessageTicks = 30;  // a message stands for three seconds
constexpr int kMostPixels = 20000;

struct Options {
  std::string record;
  std::string picture;
  std::string language = "cestina.zbl";
  int tick = 100;
  bool replay = false;
  int width = 1280;
  int height = 800;
  int ratio = 1;
};

/// A whole number from least to most, and nothing behind it.
bool ReadNumber(std::string_view text, int least, int most, int& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number >= least && number <= most;
}

bool ReadScreen(std::string_view text, Options& options) {
  const std::size_t by = text.find('x');
  return by != std::string_view::npos && ReadNumber(text.substr(0, by), 1, kMostPixels, options.width) &&
         ReadNumber(text.substr(by + 1), 1, kMostPixels, options.height);
}

/// False when the command line cannot be understood.
bool ReadArguments(int argc, char** argv, Options& options) {
  static const std::array<option, 7> kOptions = {{{"tick", required_argument, nullptr, 't'},
                                                  {"replay", no_argument, nullptr, 'p'},
                                                  {"screen", required_argument, nullptr, 's'},
                                                  {"ratio", required_argument, nullptr, 'r'},
                                                  {"language", required_argument, nullptr, 'l'},
                                                  {"help", no_argument, nullptr, 'h'},
                                                  {nullptr, 0, nullptr, 0}}};
  for (int c = 0; (c = getopt_long(argc, argv, "h", kOptions.data(), nullptr)) != -1;) {
    switch (c) {
      case 't':
        if (!ReadNumber(optarg, 0, 1000000, options.tick)) return false;
        break;
      case 'p':
        options.replay = true;
        break;
      case 's':
        if (!ReadScreen(optarg, options)) return false;
        break;
      case 'r':
        if (!ReadNumber(optarg, 1, 4, options.ratio)) return false;
        break;
      case 'l':
        options.language = optarg;
        break;
      case 'h':
        std::cout << kUsage;
        std::exit(0);
      default:
        return false;
    }
  }
  if (optind + 2 != argc) return false;
  options.record = argv[optind];
  options.picture = argv[optind + 1];
  return true;
}

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
    if (box.title != LangStr[106]) fault = ToUtf8(box.text, PageInForce());
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
  Options options;
  if (!ReadArguments(argc, argv, options)) {
    std::cerr << kUsage;
    return 2;
  }
  setenv("QT_SCALE_FACTOR", std::to_string(options.ratio).c_str(), 1);
  platform::user::UseOffscreen(options.width, options.height);
  platform::Application application(argc, argv, "screenshot");
  return RunTool("screenshot", [&] {
    Shoot(options);
    return 0;
  });
}

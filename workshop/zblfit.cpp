// zblfit: texts of language files that the program's screens cut off.

#include <array>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "own_home.h"
#include "platform/application.h"
#include "platform/cramped.h"
#include "platform/message_box.h"
#include "platform/testing.h"
#include "program/program.h"
#include "tools/command_line.h"

namespace {

/// Rows that a running cave shows in the panel of its messages.
constexpr std::array<std::size_t, 9> kMessages = {text::kStartOneHero, text::kStartFewHeroes, text::kStartManyHeroes,
                                                  text::kMagicStarts,  text::kAmoebaToGems,   text::kAmoebaToRocks,
                                                  text::kAmoebaFaster, text::kMagicEnds,      text::kExitOpens};

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The row whose text makes up most of a caption; "a text of the program" for a caption that comes from no row.
std::string RowIn(const std::string& caption) {
  std::size_t longest = 0;
  std::string row = "a text of the program";
  for (std::size_t i = 0; i < LangStr.size(); ++i) {
    const std::string text = Trimmed(LangStr[i]);
    if (text.size() <= longest || caption.find(text) == std::string::npos) continue;
    longest = text.size();
    row = "row " + std::string(3 - std::to_string(i).size(), '0') + std::to_string(i);
  }
  return row;
}

/// Tells of the texts of one language that are cut off.
class Fit {
 public:
  explicit Fit(std::string file) : file_(std::move(file)) {}

  void Look(const char* name, const platform::Form& form) {
    for (const platform::Cramped& text : platform::CrampedTexts(form)) {
      Tell(name, text.control->caption(), text.pixels, text.high);
    }
  }

  /// A message is as wide as its text. The window would shrink one that it cannot hold.
  void LookAtMessages(FormHra& form) {
    for (const std::size_t row : kMessages) {
      form.ShowMessage(LangStr[row], 0xFFFFFF);
      form.Message1.set_font({18, true, false, false});
      const int excess = form.Message1.text_width() + 60 - form.Frame1.width();
      if (excess > 0) Tell("hra", LangStr[row], excess, false);
    }
  }

  bool good() const { return good_; }

 private:
  void Tell(const char* form, const std::string& caption, int pixels, bool high) {
    good_ = false;
    std::cout << Visible(file_ + ": " + RowIn(caption) + ", in " + form + ": \"" + ToUtf8(caption, PageInForce()) +
                         "\" is " + std::to_string(pixels) + " pixels too " + (high ? "high" : "wide"))
              << "\n";
  }

  std::string file_;
  bool good_ = true;
};

/// True when every text of the file has its room on the screens.
bool Check(const std::string& path) {
  platform::Application::set_default_charset(platform::Charset::kCentralEuropean);  // as at every start
  const OwnHome home("cestina.zbl", "Eva");
  Program program(ZORBIK_PROGRAM_DATA, "zorbik", home.data());
  program.Main();
  NactiJazyk(std::filesystem::absolute(path).string());

  Fit fit(path);
  program.frmStart2.Command3_Click();  // to the overview of the shipped set, whose last cave is locked
  program.frmPoSt.lblCave_Click(program.frmPoSt.PocetK);
  fit.Look("frmPoSt", program.frmPoSt);
  program.frmPoSt.lblCave_Click(1);
  program.frmPoSt.Command2_Click();  // into the cave
  program.hra.tmrHra.Stop();
  fit.Look("hra", program.hra);
  fit.LookAtMessages(program.hra);
  program.hra.Hide();

  fit.Look("frmStart2", program.frmStart2);
  fit.Look("frmSettings", program.frmSettings);
  fit.Look("frmAnalyze", program.frmAnalyze);
  fit.Look("frmAbout", program.frmAbout);
  fit.Look("frmDialog2", program.frmDialog2);
  fit.Look("frmDialog3", program.frmDialog3);
  fit.Look("frmLoading", program.frmLoading);
  fit.Look("frmSLang", program.frmSLang);
  fit.Look("frmSada", program.frmSada);
  fit.Look("frmMain", program.frmMain);
  fit.Look("frmFormality", program.frmFormality);
  return fit.good();
}

int CheckAll(const std::vector<std::string>& files) {
  platform::SetBoxResponder([](const platform::MessageBox&) { return platform::BoxAnswer::kOk; });
  bool good = true;
  for (const std::string& file : files) {
    try {
      good = Check(file) && good;
    } catch (const Fault& fault) {
      std::cerr << "zblfit: " << Visible(fault.message()) << "\n";
      good = false;
    }
  }
  return good ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(
      "Looks for texts of language files that the screens cut off. Ends with 0 when there are none, 1 when there are.",
      "zblfit");
  std::vector<std::string> files;
  app.add_option("FILE.zbl", files)->required();
  return RunCommand(app, argc, argv, [&] {
    platform::user::UseOffscreen(800, 600);  // the smallest screen that holds the program
    platform::Application application(argc, argv, "zblfit");
    return CheckAll(files);
  });
}

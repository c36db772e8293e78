// The start of the program.

#include <filesystem>
#include <memory>
#include <string>

#include "base/code_page.h"
#include "base/folders.h"
#include "base/language.h"
#include "campaign/frm_settings.h"
#include "cave/cave_text.h"
#include "cave/set_file.h"
#include "platform/application.h"
#include "view/form_analyze.h"
#include "view/form_hra.h"

namespace {

/// The folder of the executable, without a "/" at its end.
std::string ProgramFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path().string(); }

/// The forms, and what each does for the others.
class Program {
 public:
  explicit Program(std::string folder) : folder_(std::move(folder)), analyze_(folder_), hra_(folder_, settings_) {
    hra_.frmAnalyze = &analyze_;
    settings_.SetSett();
    settings_.settingsTaken = [this] { hra_.SetSpeed(); };
    hra_.showSettings = [this] {
      settings_.SetSett();
      settings_.ShowModal();
    };
    hra_.restartCave = [this] {
      hra_.OpenCave(cave_);
      hra_.Command1_Click();
    };
    hra_.caveWon = [this] { OpenNextCave(); };
    hra_.leave = [] { platform::Application::Quit(0); };
    OnSetLW([this] {
      hra_.SetLW();
      settings_.SetLW();
      analyze_.SetLW();
    });
  }

  void Start() {
    NactiJazyk(folder_ + "/cestina.zbl");
    hra_.SetFile = folder_ + "/Komnaty/Komnaty.zb";
    hra_.SetName = ReadSetName(hra_.SetFile);
    hra_.PlayerName = HeroName;
    CestaKomnaty = folder_ + "/Komnaty/";
    CestaHraci = folder_ + "/Hráči";
    std::filesystem::create_directories(CestaHraci + "/" + ToUtf8(hra_.PlayerName, CodePage::k1250));
    hra_.OpenCave(cave_);
    hra_.Show();
  }

 private:
  void OpenNextCave() {
    ++cave_;
    if (LoadCaveText(hra_.SetFile, cave_).empty()) cave_ = 1;
    hra_.OpenCave(cave_);
  }

  std::string folder_;
  int cave_ = 1;
  FrmSettings settings_;
  FormAnalyze analyze_;
  FormHra hra_;
};

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv, "Zorbik");
  std::unique_ptr<Program> program;
  return application.Run([&program] {
    program = std::make_unique<Program>(ProgramFolder());
    program->Start();
  });
}

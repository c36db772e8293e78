// The start of the program.

#include <filesystem>
#include <memory>
#include <string>

#include "base/language.h"
#include "campaign/frm_settings.h"
#include "cave/cave_text.h"
#include "platform/application.h"
#include "view/form_hra.h"

namespace {

/// The folder of the executable, without a "/" at its end.
std::string ProgramFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path().string(); }

/// The forms, and what each does for the others.
class Program {
 public:
  explicit Program(std::string folder) : folder_(std::move(folder)), hra_(folder_, settings_) {
    settings_.SetSett();
    settings_.settingsTaken = [this] { TakeSpeed(); };
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
    });
  }

  void Start() {
    NactiJazyk(folder_ + "/cestina.zbl");
    hra_.SetFile = folder_ + "/Komnaty/Komnaty.zb";
    hra_.PlayerName = HeroName;
    hra_.OpenCave(cave_);
    hra_.Show();
  }

 private:
  void TakeSpeed() {
    const int speed = hra_.game.PlayingReplay ? settings_.RychlostZ : settings_.Rychlost;
    hra_.tmrHra.set_interval((speed - 1) * 20 + 1);
  }

  void OpenNextCave() {
    ++cave_;
    if (LoadCaveText(hra_.SetFile, cave_).empty()) cave_ = 1;
    hra_.OpenCave(cave_);
  }

  std::string folder_;
  int cave_ = 1;
  FrmSettings settings_;
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

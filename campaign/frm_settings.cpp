#include "campaign/frm_settings.h"

#include <algorithm>
#include <cstdint>

#include "base/lang_str.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "shell/registry_values.h"
#include "view/picture_files.h"
#include "view/tile_pictures.h"

namespace {

constexpr int kSign = 20;     // logical pixels
constexpr int kSlowest = 10;  // speeds run from 1, the fastest, to 10; a bar to the right means faster

/// A stored speed; a damaged one becomes the slowest.
std::uint8_t ReadSpeed(const char* name) {
  return static_cast<std::uint8_t>(std::clamp(ReadNumber(name), 0, kSlowest));
}

std::uint8_t ReadFlag(const char* name) { return static_cast<std::uint8_t>(ReadNumber(name) != 0); }

std::uint8_t SpeedOf(const platform::ScrollBar& bar) { return static_cast<std::uint8_t>(kSlowest + 1 - bar.value()); }

}  // namespace

FrmSettings::FrmSettings(const std::string& programFolder) {
  for (std::size_t i = 0; i < imgSpeed.size(); ++i) {
    imgSpeed[i].set_picture(LoadExtra(programFolder + "/pictures", i % 2 == 0 ? picture::kSlow : picture::kFast, kSign,
                                      kSign, platform::Application::PixelRatio()));
  }
  for (platform::ScrollBar* bar : {&HScroll1, &HScroll2}) {
    bar->set_min(1);
    bar->set_max(kSlowest);
    bar->set_large_change(3);
  }
  Check4.set_caption("Joystick");
  Command1.set_caption("OK");
  Command1.on_click = [this] { Command1_Click(); };
  set_default_button(&Command1);
  on_key_down = [this](platform::KeyEvent& event) {
    if (event.code == platform::kKeyEscape) Close();
  };
  Place();
}

void FrmSettings::Place() {
  constexpr int kEdge = 20;
  int inner = 300;
  for (const platform::Label* label : {&Label1, &Label2}) inner = std::max(inner, label->text_width());
  for (const platform::CheckBox* box : {&Check1, &Check2, &Check3, &Check4})
    inner = std::max(inner, box->text_width() + 34);
  int top = kEdge;
  const auto place = [&top, inner](platform::Control& control, int height, int gap) {
    control.SetBounds(kEdge, top, inner, height);
    top += height + gap;
  };
  const auto placeBar = [&](platform::ScrollBar& bar, std::size_t signs, int gap) {
    const int barTop = top;
    place(bar, kSign, gap);
    bar.SetBounds(kEdge + kSign + 8, barTop, inner - 2 * (kSign + 8), kSign);
    imgSpeed[signs].MoveTo(kEdge, barTop);
    imgSpeed[signs + 1].MoveTo(kEdge + inner - kSign, barTop);
  };
  place(Label1, 22, 4);
  placeBar(HScroll1, 0, 14);
  place(Label2, 22, 4);
  placeBar(HScroll2, 2, 18);
  for (platform::CheckBox* box : {&Check1, &Check2, &Check3, &Check4}) place(*box, 26, 4);
  top += 14;
  Command1.SetBounds(kEdge + (inner - 120) / 2, top, 120, 36);
  Resize(inner + 2 * kEdge, top + 36 + kEdge);
}

void FrmSettings::ReadValues() {
  Rychlost = ReadSpeed(registry::kRychlost);
  if (Rychlost == 0) {
    static_cast<Settings&>(*this) = Settings();
    CreateProgramKey();
    WriteValues();
    return;
  }
  // A speed of no replay is mended here alone: the store keeps it until the dialog is confirmed.
  RychlostZ = std::max<std::uint8_t>(ReadSpeed(registry::kRychlostZ), 1);
  Joystick = ReadFlag(registry::kJoystick);
  AnimovatAaB = ReadFlag(registry::kAnimovatAaB);
  DatPauzu = ReadFlag(registry::kDatPauzu);
  Zvuk = ReadFlag(registry::kZvuk);
}

void FrmSettings::WriteValues() const {
  WriteNumber(registry::kAnimovatAaB, AnimovatAaB);
  WriteNumber(registry::kRychlost, Rychlost);
  WriteNumber(registry::kRychlostZ, RychlostZ);
  WriteNumber(registry::kDatPauzu, DatPauzu);
  WriteNumber(registry::kZvuk, Zvuk);
  WriteNumber(registry::kJoystick, Joystick);
}

void FrmSettings::SetSett() {
  Check1.set_value(AnimovatAaB);
  HScroll1.set_value(kSlowest + 1 - Rychlost);
  HScroll2.set_value(kSlowest + 1 - RychlostZ);
  Check2.set_value(DatPauzu);
  Check3.set_value(Zvuk);
  Check4.set_value(Joystick);
}

void FrmSettings::Command1_Click() {
  AnimovatAaB = static_cast<std::uint8_t>(Check1.value());
  Rychlost = SpeedOf(HScroll1);
  RychlostZ = SpeedOf(HScroll2);
  DatPauzu = static_cast<std::uint8_t>(Check2.value());
  Zvuk = static_cast<std::uint8_t>(Check3.value());
  Joystick = static_cast<std::uint8_t>(Check4.value());
  WriteValues();
  if (settingsTaken) settingsTaken();
  Hide();
}

void FrmSettings::SetLW() {
  set_caption(LangStr[text::kSettingsTitle]);
  Label1.set_caption(LangStr[text::kSpeed]);
  Label2.set_caption(LangStr[text::kReplaySpeed]);
  Check1.set_caption(LangStr[text::kAnimateAmoeba]);
  Check2.set_caption(LangStr[text::kPauseWhenIdle]);
  Check3.set_caption(LangStr[text::kSound]);
  Place();
}

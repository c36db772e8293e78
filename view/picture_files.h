#pragma once

#include <array>
#include <string_view>

#include "engine/pictures.h"

/// The files of the pictures, in the folder "pictures" of the program's data. They are square unless noted.
namespace picture {

/// How a picture meets what lies under it.
enum class Kind : unsigned char {
  kOpaque,   // fills its cell and runs on into its neighbours
  kObject,   // drawn over kEmpty; its surroundings are transparent
  kOverlay,  // drawn over the finished picture of its cell, here a splitter or a teleport
};

/// One picture file.
struct File {
  std::string_view name;
  Kind kind;
  bool tinted = false;  // its sentinel colours are replaced by those of the cave's tint before it is rendered
};

/// A colour that stands in a tinted file for a shade of the tint: each channel of the tint's base colour times the
/// factor, at most 255. The sentinels occur in no file that is not tinted.
struct Sentinel {
  std::string_view colour;  // as written in the file
  double factor;
};
inline constexpr std::array<Sentinel, 4> kSentinels = {{
    {"#7f7f81", 1.0},
    {"#9f9fa1", 1.25},
    {"#5f5f61", 0.75},
    {"#fefefc", 2.0},
}};

/// By picture number.
inline constexpr std::array<File, kCount> kFiles = {{
    {"empty.svg", Kind::kOpaque},
    {"dirt.svg", Kind::kOpaque, true},
    {"rock.svg", Kind::kObject, true},
    {"gem.svg", Kind::kObject},
    {"wall.svg", Kind::kOpaque, true},
    // kAnim9
    {"steel.svg", Kind::kOpaque, true},
    {"exit_open.svg", Kind::kOpaque, true},
    {"crate.svg", Kind::kObject},
    {"growwall_h.svg", Kind::kOpaque},
    {"growwall_v.svg", Kind::kOpaque},
    // kRedGem
    {"gem_red.svg", Kind::kObject},
    {"gem_green.svg", Kind::kObject},
    {"gem_blue.svg", Kind::kObject},
    // kRedLock
    {"lock_red.svg", Kind::kObject},
    {"lock_green.svg", Kind::kObject},
    {"lock_blue.svg", Kind::kObject},
    // kAnim6
    {"firefly_0.svg", Kind::kObject},
    {"firefly_1.svg", Kind::kObject},
    {"firefly_2.svg", Kind::kObject},
    {"firefly_3.svg", Kind::kObject},
    // kAnim7
    {"butterfly_0.svg", Kind::kObject},
    {"butterfly_1.svg", Kind::kObject},
    {"butterfly_2.svg", Kind::kObject},
    {"butterfly_3.svg", Kind::kObject},
    // kAnim10
    {"amoeba_0.svg", Kind::kOpaque},
    {"amoeba_1.svg", Kind::kOpaque},
    {"amoeba_2.svg", Kind::kOpaque},
    {"amoeba_3.svg", Kind::kOpaque},
    // kAnim14
    {"slime_0.svg", Kind::kOpaque},
    {"slime_1.svg", Kind::kOpaque},
    {"slime_2.svg", Kind::kOpaque},
    {"slime_3.svg", Kind::kOpaque},
    // kAnim15
    {"fly_0.svg", Kind::kObject},
    {"fly_1.svg", Kind::kObject},
    // kAnimMW
    {"magic_0.svg", Kind::kOpaque},
    {"magic_1.svg", Kind::kOpaque},
    {"magic_2.svg", Kind::kOpaque},
    {"magic_3.svg", Kind::kOpaque},
    // kExpld
    {"explosion_0.svg", Kind::kObject},
    {"explosion_1.svg", Kind::kObject},
    {"explosion_2.svg", Kind::kObject},
    {"explosion_3.svg", Kind::kObject},
    {"explosion_4.svg", Kind::kObject},
    {"explosion_5.svg", Kind::kObject},
    {"explosion_6.svg", Kind::kObject},
    {"explosion_7.svg", Kind::kObject},
    {"explosion_8.svg", Kind::kObject},
    {"explosion_9.svg", Kind::kObject},
    {"explosion_10.svg", Kind::kObject},
    {"explosion_11.svg", Kind::kObject},
    {"explosion_12.svg", Kind::kObject},
    {"explosion_13.svg", Kind::kObject},
    {"explosion_14.svg", Kind::kObject},
    {"explosion_15.svg", Kind::kObject},
    // kImgRzd
    {"rzd_0.svg", Kind::kOverlay},
    {"rzd_1.svg", Kind::kOverlay},
    {"rzd_2.svg", Kind::kOverlay},
    // kImgTLP
    {"tlp_0.svg", Kind::kOverlay},
    {"tlp_1.svg", Kind::kOverlay},
    // kImgZBP
    {"zbp.svg", Kind::kObject},
    {"zbw.svg", Kind::kObject},
    {"zbw21.svg", Kind::kObject},
    {"zbw22.svg", Kind::kObject},
    {"zbz.svg", Kind::kObject},
    {"zbr.svg", Kind::kObject},
    {"zbl.svg", Kind::kObject},
    // kMultiPes
    {"multipes_1.svg", Kind::kObject},
    {"multipes_2.svg", Kind::kObject},
    {"multipes_3.svg", Kind::kObject},
    {"multipes_4.svg", Kind::kObject},
    {"multipes_5.svg", Kind::kObject},
    {"multipes_6.svg", Kind::kObject},
    {"multipes_7.svg", Kind::kObject},
    {"multipes_8.svg", Kind::kObject},
    {"multipes_9.svg", Kind::kObject},
    // kSinglePes
    {"singlepes.svg", Kind::kObject},
    {"mrtvejpes.svg", Kind::kObject},
}};

// Pictures of the screens around the cave.
inline constexpr std::string_view kBlesk = "blesk.svg";    // flash over the window, 950 x 550, partly transparent
inline constexpr std::string_view kBonus = "bonus.svg";    // mark of a cave with a bonus
inline constexpr std::string_view kReplay = "replay.svg";  // mark of a running replay
inline constexpr std::string_view kIconClock = "icon_clock.svg";    // panel icons, 24 x 24
inline constexpr std::string_view kIconGem = "icon_gem.svg";        // gems gathered
inline constexpr std::string_view kIconNeed = "icon_need.svg";      // gems that open the exit
inline constexpr std::string_view kIconPoints = "icon_points.svg";  // points for a gem
inline constexpr std::string_view kIconScore = "icon_score.svg";    // points so far
inline constexpr std::string_view kLogo = "logo.svg";               // the name with the dog, 400 x 160
inline constexpr std::string_view kLogoEnglish = "logo_borzeek.svg";
inline constexpr std::string_view kLogoRussian = "logo_zorbi.svg";
inline constexpr std::string_view kApp = "app.svg";  // program icon, 256 x 256

}  // namespace picture

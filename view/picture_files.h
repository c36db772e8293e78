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

/// A picture that has no number: one of the screens around the cave or of the editor. Its size is in units of the file.
struct Extra {
  std::string_view name;
  int width;
  int height;
};
inline constexpr Extra kBlesk = {"blesk.svg", 950, 550};  // flash over the window, partly transparent
inline constexpr Extra kBonus = {"bonus.svg", 50, 50};    // mark of a cave with a bonus
inline constexpr Extra kReplay = {"replay.svg", 50, 50};  // mark of a running replay
inline constexpr Extra kIconClock = {"icon_clock.svg", 24, 24};
inline constexpr Extra kIconGem = {"icon_gem.svg", 24, 24};        // gems gathered
inline constexpr Extra kIconNeed = {"icon_need.svg", 24, 24};      // gems that open the exit
inline constexpr Extra kIconPoints = {"icon_points.svg", 24, 24};  // points for a gem
inline constexpr Extra kIconScore = {"icon_score.svg", 24, 24};    // points so far
inline constexpr Extra kLamp = {"lamp.svg", 24, 24};               // ring and glass over a light of any colour
inline constexpr Extra kStart = {"start.svg", 326, 326};           // the big disc of the start screen
inline constexpr Extra kButton = {"button.svg", 152, 152};         // its round buttons, below a caption
inline constexpr Extra kContest = {"contest.svg", 115, 70};        // its badge for the contests
inline constexpr Extra kPlaque = {"plaque.svg", 290, 242};         // the plate under its lists
inline constexpr Extra kLogo = {"logo.svg", 400, 160};
inline constexpr Extra kLogoEnglish = {"logo_borzeek.svg", 400, 160};
inline constexpr Extra kLogoRussian = {"logo_zorbi.svg", 400, 160};
inline constexpr Extra kApp = {"app.svg", 256, 256};  // program icon
// Overlays of the editor: where a firefly or a butterfly first faces, and what tells a magic wall from a plain one.
inline constexpr Extra kFacingLeft = {"facing_left.svg", 50, 50};
inline constexpr Extra kFacingUp = {"facing_up.svg", 50, 50};
inline constexpr Extra kFacingRight = {"facing_right.svg", 50, 50};
inline constexpr Extra kFacingDown = {"facing_down.svg", 50, 50};
inline constexpr Extra kMagicMark = {"magic_mark.svg", 50, 50};
// Around the palette of the editor: which button or keys draw a tile, and a sign beside what a cave lacks.
inline constexpr Extra kMouseLeft = {"mouse_left.svg", 24, 24};
inline constexpr Extra kMouseMiddle = {"mouse_middle.svg", 24, 24};
inline constexpr Extra kMouseRight = {"mouse_right.svg", 24, 24};
inline constexpr Extra kKeysLeft = {"keys_left.svg", 36, 24};
inline constexpr Extra kKeysMiddle = {"keys_middle.svg", 76, 24};
inline constexpr Extra kKeysRight = {"keys_right.svg", 76, 24};
inline constexpr Extra kWarning = {"warning.svg", 24, 24};
// At the ends of a bar for a speed.
inline constexpr Extra kSlow = {"slow.svg", 24, 24};
inline constexpr Extra kFast = {"fast.svg", 24, 24};

inline constexpr std::array<Extra, 31> kExtras = {
    kBlesk,      kBonus,      kReplay,     kIconClock,   kIconGem,    kIconNeed,  kIconPoints,  kIconScore,
    kLamp,       kStart,      kButton,     kContest,     kPlaque,     kLogo,      kLogoEnglish, kLogoRussian,
    kApp,        kFacingLeft, kFacingUp,   kFacingRight, kFacingDown, kMagicMark, kMouseLeft,   kMouseMiddle,
    kMouseRight, kKeysLeft,   kKeysMiddle, kKeysRight,   kWarning,    kSlow,      kFast};

}  // namespace picture

#include "view/tile_pictures.h"

#include <cstdio>

#include "view/colours.h"

namespace {

std::string Hex(platform::Colour colour) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red, colour.green, colour.blue);
  return text;
}

platform::Substitutions ShadesAsText(int tint) {
  platform::Substitutions pairs;
  for (const picture::Sentinel& sentinel : picture::kSentinels) {
    pairs.emplace_back(sentinel.colour, Hex(ScaledColour(TintColour(tint), sentinel.factor)));
  }
  return pairs;
}

}  // namespace

void TilePictures::LoadTint(int tint) {
  if (tint == tint_) return;
  const platform::Substitutions shades = ShadesAsText(tint);
  for (std::size_t i = 0; i < pictures_.size(); ++i) {
    const picture::File& file = picture::kFiles[i];
    if (pictures_[i].empty() || file.tinted)
      pictures_[i] = Load(file, file.tinted ? shades : platform::Substitutions{});
  }
  tint_ = tint;
}

platform::Picture TilePictures::Load(const picture::File& file, const platform::Substitutions& tint) const {
  const auto picture = platform::Picture::LoadSvg(folder_ + "/" + std::string(file.name), size_, size_, ratio_, tint);
  return file.kind == picture::Kind::kObject ? picture.Over(pictures_[picture::kEmpty]) : picture;
}

platform::Picture LoadNumbered(const std::string& folder, int number, int size, int ratio) {
  const std::string_view name = picture::kFiles[static_cast<std::size_t>(number)].name;
  return platform::Picture::LoadSvg(folder + "/" + std::string(name), size, size, ratio);
}

platform::Picture LoadTinted(const std::string& folder, int number, int tint, int size, int ratio) {
  const std::string_view name = picture::kFiles[static_cast<std::size_t>(number)].name;
  return platform::Picture::LoadSvg(folder + "/" + std::string(name), size, size, ratio, ShadesAsText(tint));
}

platform::Picture LoadExtra(const std::string& folder, const picture::Extra& extra, int width, int height, int ratio) {
  return platform::Picture::LoadSvg(folder + "/" + std::string(extra.name), width, height, ratio);
}

#include "editor/status_line.h"

#include "platform/application.h"
#include "view/picture_files.h"
#include "view/tile_pictures.h"

namespace {

constexpr int kHeight = 36;
constexpr int kSign = 18;
constexpr int kPlaceWidth = 58;
constexpr std::array<int, 3> kNumberWidths = {70, 18, 26};

}  // namespace

StatusLine::StatusLine(platform::Container* parent, const std::string& pictures) : Frame(parent) {
  set_border(true);
  const platform::Picture sign =
      LoadExtra(pictures, picture::kWarning, kSign, kSign, platform::Application::PixelRatio());
  for (platform::Image& image : imgWarning) {
    image.set_picture(sign);
    image.set_visible(false);
  }
  for (platform::Image* image : {&imgTile, &imgCount[0], &imgCount[1], &imgCount[2]}) image->set_stretch(true);
  for (platform::Label* label : {&lblPlace, &lblTile, &lblCount[0], &lblCount[1], &lblCount[2]})
    label->set_middle(true);
  lblPlace.set_alignment(platform::Alignment::kCentre);
  lblPlace.set_fore_colour(platform::Application::theme().accent);
}

void StatusLine::Place(int left, int top, int width) {
  SetBounds(left, top, width, kHeight);
  constexpr int kGap = 6;
  int right = width - kGap;
  for (int i = kExits; i >= kGems; --i) {
    const auto index = static_cast<std::size_t>(i);
    right -= kSign;
    imgWarning[index].MoveTo(right, (kHeight - kSign) / 2);
    right -= kNumberWidths[index] + 2;
    lblCount[index].SetBounds(right, 0, kNumberWidths[index], kHeight);
    right -= CaveEdit::kCell + 4;
    imgCount[index].SetBounds(right, (kHeight - CaveEdit::kCell) / 2, CaveEdit::kCell, CaveEdit::kCell);
    right -= kGap;
  }
  lblPlace.SetBounds(kGap, 0, kPlaceWidth, kHeight);
  imgTile.SetBounds(lblPlace.left() + kPlaceWidth + kGap, (kHeight - CaveEdit::kCell) / 2, CaveEdit::kCell,
                    CaveEdit::kCell);
  lblTile.SetBounds(imgTile.left() + CaveEdit::kCell + kGap, 0, right - imgTile.left() - CaveEdit::kCell - 2 * kGap,
                    kHeight);
}

void StatusLine::SetTiles(const std::array<platform::Picture, 3>& pictures, const std::array<std::string, 3>& names) {
  names_ = names;
  for (std::size_t i = 0; i < pictures.size(); ++i) imgCount[i].set_picture(pictures[i]);
  ShowCounts(counts_, need_);
}

void StatusLine::ShowCell(int x, int y, const platform::Picture& picture, const std::string& name) {
  lblPlace.set_caption(std::to_string(x) + ", " + std::to_string(y));
  imgTile.set_picture(picture);
  lblTile.set_caption(name);
  lblTile.set_tool_tip(name);
}

void StatusLine::ShowCounts(const CaveCounts& counts, int need) {
  counts_ = counts;
  need_ = need;
  const bool few = counts.gems < need;
  const bool lacking = few && !counts.gemsGrow;
  const std::string more = few && counts.gemsGrow ? "+" : "";
  ShowCount(kGems, std::to_string(counts.gems) + more + " / " + std::to_string(need), lacking);
  ShowCount(kHeroes, std::to_string(counts.heroes), counts.heroes == 0);
  ShowCount(kExits, std::to_string(counts.exits), counts.exits == 0);
}

void StatusLine::ShowCount(int index, const std::string& text, bool lacking) {
  const auto i = static_cast<std::size_t>(index);
  lblCount[i].set_caption(text);
  lblCount[i].set_fore_colour(lacking ? std::optional(platform::Application::theme().accent) : std::nullopt);
  imgWarning[i].set_visible(lacking);
  const std::string told = names_[i] + ": " + text + (lacking ? " !" : "");
  for (platform::Control* control :
       std::initializer_list<platform::Control*>{&imgCount[i], &lblCount[i], &imgWarning[i]})
    control->set_tool_tip(told);
  lblCount[i].set_accessible_name(told);
}

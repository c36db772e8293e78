#include "editor/status_line.h"

#include "platform/application.h"
#include "view/picture_files.h"
#include "view/tile_pictures.h"

namespace {

constexpr int kRow = 32;
constexpr int kEdge = (StatusLine::kHeight - 2 * kRow) / 2;
constexpr int kGap = 6;
constexpr int kTile = CaveEdit::kCell;
constexpr int kTileTop = (kRow - kTile) / 2;
constexpr int kSign = 18;
constexpr int kPlaceWidth = 58;

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
  lblPlace.SetBounds(kGap, kEdge, kPlaceWidth, kRow);
  imgTile.SetBounds(kGap + kPlaceWidth + kGap, kEdge + kTileTop, kTile, kTile);
  const int name = imgTile.left() + kTile + kGap;
  lblTile.SetBounds(name, kEdge, width - kGap - name, kRow);
  constexpr int kCounts = kEdge + kRow;
  const int column = (width - imgTile.left()) / static_cast<int>(imgCount.size());
  for (std::size_t i = 0; i < imgCount.size(); ++i) {
    const int at = imgTile.left() + static_cast<int>(i) * column;
    imgCount[i].SetBounds(at, kCounts + kTileTop, kTile, kTile);
    lblCount[i].SetBounds(at + kTile + kGap, kCounts, column - kTile - 2 * kGap, kRow);
  }
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
  imgWarning[i].MoveTo(lblCount[i].left() + lblCount[i].text_width() + kGap, lblCount[i].top() + (kRow - kSign) / 2);
  imgWarning[i].set_visible(lacking);
  const std::string told = names_[i] + ": " + text + (lacking ? " !" : "");
  for (platform::Control* control :
       std::initializer_list<platform::Control*>{&imgCount[i], &lblCount[i], &imgWarning[i]})
    control->set_tool_tip(told);
  lblCount[i].set_accessible_name(told);
}

// The cave editor by keyboard.
//
// On the canvas arrows move a cell cursor (Home, End, Page Up and Page Down far, with Ctrl arrows scroll the view),
// Space draws the left button's tile, Shift+Space the right one's, Ctrl+Space the middle one's, and Shift with an arrow
// draws a trail of the left one's. On the palette arrows go from tile to tile and the same keys choose. 1 to 9 choose
// the hero, F10 goes to the bar, F4 shows the properties, F5 starts the test play, Escape goes back to the canvas,
// Ctrl+W closes.

#include <algorithm>

#include "editor/frm_main.h"
#include "platform/keys.h"

namespace {

using platform::kCtrl;
using platform::kShift;

struct Step {
  int x = 0;
  int y = 0;
};

Step StepOf(int key) {
  switch (key) {
    case platform::kKeyLeft:
      return {-1, 0};
    case platform::kKeyRight:
      return {1, 0};
    case platform::kKeyUp:
      return {0, -1};
    case platform::kKeyDown:
      return {0, 1};
    default:
      return {};
  }
}

bool IsArrow(int key) { return key >= platform::kKeyLeft && key <= platform::kKeyDown; }

/// The mouse button whose tile Space means with these keys held.
int ButtonOf(int shift) {
  if ((shift & kCtrl) != 0) return platform::kMiddleButton;
  return (shift & kShift) != 0 ? platform::kRightButton : platform::kLeftButton;
}

}  // namespace

void FrmMain::Form_KeyDown(platform::KeyEvent& event) {
  event.handled = bar_.KeyDown(event);
  if (event.handled || (event.shift & platform::kAlt) != 0) return;
  if (EditKom.has_focus()) {
    event.handled = CanvasKey(event);
  } else if (FocusedTile() >= 0) {
    event.handled = PaletteKey(event);
  }
  if (!event.handled) event.handled = AnywhereKey(event);
}

bool FrmMain::AnywhereKey(const platform::KeyEvent& event) {
  const int digit = event.code > platform::kNumpad0 ? event.code - platform::kNumpad0 : event.code - '0';
  if (event.shift == 0 && digit >= 1 && digit <= 9) {
    Dog_Click(digit);
    return true;
  }
  if (event.repeated) return false;
  switch (event.code) {
    case platform::kF1 + 3:
      Label3_Click();
      return true;
    case platform::kF1 + 4:
      Label8_Click();
      return true;
    case platform::kKeyEscape:
      EditKom.SetFocus();
      return true;
    case 'W':
      if ((event.shift & kCtrl) == 0) return false;
      Close();
      return true;
    default:
      return false;
  }
}

// --- Canvas --------------------

bool FrmMain::CanvasKey(const platform::KeyEvent& event) {
  const bool far = (event.shift & kCtrl) != 0;
  constexpr int kPage = 11;
  if (IsArrow(event.code)) {
    const Step step = StepOf(event.code);
    if (far) {
      HScroll1.set_value(HScroll1.value() + 2 * step.x);
      VScroll1.set_value(VScroll1.value() + 2 * step.y);
      return true;
    }
    const bool trail = (event.shift & kShift) != 0;
    if (trail) DrawAtCursor(platform::kLeftButton);
    MoveCursor(cursorX_ + step.x, cursorY_ + step.y);
    if (trail) DrawAtCursor(platform::kLeftButton);
    return true;
  }
  switch (event.code) {
    case platform::kKeySpace:
      DrawAtCursor(ButtonOf(event.shift));
      return true;
    case platform::kKeyHome:
      MoveCursor(0, far ? 0 : cursorY_);
      return true;
    case platform::kKeyEnd:
      MoveCursor(edit.Sirka - 1, far ? edit.Vyska - 1 : cursorY_);
      return true;
    case platform::kKeyPageUp:
      MoveCursor(cursorX_, cursorY_ - kPage);
      return true;
    case platform::kKeyPageDown:
      MoveCursor(cursorX_, cursorY_ + kPage);
      return true;
    default:
      return false;
  }
}

/// The cursor stays within the cave; the view stays where it is.
void FrmMain::SetCursor(int x, int y) {
  cursorX_ = std::clamp(x, 0, std::max(edit.Sirka - 1, 0));
  cursorY_ = std::clamp(y, 0, std::max(edit.Vyska - 1, 0));
  const int left = cursorX_ * CaveEdit::kCell;
  const int top = cursorY_ * CaveEdit::kCell;
  shpCursorLine.SetBounds(left, top, CaveEdit::kCell, CaveEdit::kCell);
  shpCursor.SetBounds(left + 1, top + 1, CaveEdit::kCell - 2, CaveEdit::kCell - 2);
}

/// Moves the cursor, and the view as far as it has to follow.
void FrmMain::MoveCursor(int x, int y) {
  SetCursor(x, y);
  // In half cells, as the bars count.
  const auto follow = [](platform::ScrollBar& bar, int cell, int shown) {
    bar.set_value(std::clamp(bar.value(), 2 * (cell + 1 - shown), 2 * cell));
  };
  follow(HScroll1, cursorX_, Ram.width() / CaveEdit::kCell);
  follow(VScroll1, cursorY_, Ram.height() / CaveEdit::kCell);
  if (edit.Sirka == 0) return;  // no cave yet
  ShowCursor(EditKom.has_focus());
  ShowCell(cursorX_, cursorY_);
}

void FrmMain::ShowCursor(bool visible) {
  if (shpCursor.visible() == visible) return;
  shpCursorLine.set_visible(visible);
  shpCursor.set_visible(visible);
}

void FrmMain::DrawAtCursor(int button) {
  MoveCursor(cursorX_, cursorY_);  // the author sees what is drawn
  edit.EditKom_MouseMove(button, cursorX_ * CaveEdit::kCell, cursorY_ * CaveEdit::kCell);
  ShowCounts();
  ShowCursor(true);
  ShowCell(cursorX_, cursorY_);
}

// --- Palette --------------------

int FrmMain::FocusedTile() const {
  for (int i = 0; i < kPaletteSize; ++i) {
    if (imgS[static_cast<std::size_t>(i)]->has_focus()) return i;
  }
  return -1;
}

/// Tab stops at one tile only, the one that had the focus last. It does so behind the canvas and its bars.
void FrmMain::StopAtTile(int palette) {
  for (auto& tile : imgS) tile->set_tab_stop(false);
  platform::Image& stop = *imgS[static_cast<std::size_t>(palette)];
  stop.set_tab_stop(true);
  stop.set_tab_after(VScroll1);
}

bool FrmMain::PaletteKey(const platform::KeyEvent& event) {
  const int tile = FocusedTile();
  if (event.code == platform::kKeySpace || event.code == platform::kKeyEnter) {
    imgS_MouseDown(tile, ButtonOf(event.shift));
    return true;
  }
  if (!IsArrow(event.code)) return false;
  // The hero stands behind the end of the lower row.
  const int columns = static_cast<int>(kPaletteRows[0].size());
  int row = 1;
  int column = columns;
  for (std::size_t r = 0; r < kPaletteRows.size(); ++r) {
    const auto place = std::find(kPaletteRows[r].begin(), kPaletteRows[r].end(), tile);
    if (place == kPaletteRows[r].end()) continue;
    row = static_cast<int>(r);
    column = static_cast<int>(place - kPaletteRows[r].begin());
  }
  const Step step = StepOf(event.code);
  row = std::clamp(row + step.y, 0, 1);
  column = std::clamp(column + step.x, 0, columns);
  const int next =
      column == columns ? kPaletteHero : kPaletteRows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  StopAtTile(next);
  imgS[static_cast<std::size_t>(next)]->SetFocus();
  return true;
}

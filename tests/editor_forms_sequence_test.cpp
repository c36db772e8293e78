// Random sequences of real mouse and key events on the cave editor and its properties.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "base/random.h"
#include "editor/frm_formality.h"
#include "editor/frm_main.h"
#include "game_window.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "platform/testing.h"

using namespace platform;

namespace {

/// An author who does anything.
class Author {
 public:
  explicit Author(int seed) : random_(static_cast<std::uint64_t>(seed)) {
    forms_.frmMain = &main;
    forms_.frmFormality = &formality_;
    formality_.FrmLoad();
    main.OpenCave(CaveTemplate(NewCave::kBig));
    main.Show();
    user::WaitUntil([this] { return user::HasInput(main); });
  }

  void Act() {
    switch (Below(6)) {
      case 0:
        return Drag();
      case 1:
        return user::Click(*main.imgS.at(static_cast<std::size_t>(Below(kPaletteSize))), 4, 4, 1 << Below(3));
      case 2:
        return Keys();
      case 3:
        (Below(2) == 0 ? main.HScroll1 : main.VScroll1).set_value(Below(60));
        return;
      case 4:
        return Operate();
      default:
        return ChangeProperties();
    }
  }

  /// The canvas that a cave would have that was opened as this one is now.
  Picture FreshCanvas() {
    FrmMain fresh(kData, forms_);
    fresh.OpenCave(main.edit.Text());
    return fresh.EditKom.surface().Snapshot();
  }

 private:
  int Below(int range) { return static_cast<int>(random_.Bits() % static_cast<std::uint64_t>(range)); }

  /// From somewhere in the window on the cave to places inside and outside of it.
  void Drag() {
    const int button = 1 << Below(3);
    const int left = -main.EditKom.left();
    const int top = -main.EditKom.top();
    user::PressMouse(main.EditKom, left + Below(494), top + Below(286), button);
    const int held = Below(4) == 0 ? kLeftButton | kRightButton : button;
    int x = 0;
    int y = 0;
    for (int i = Below(8); i >= 0; --i) {
      x = left + Below(600) - 50;
      y = top + Below(400) - 50;
      user::MoveMouse(main.EditKom, x, y, held);
    }
    user::ReleaseMouse(main.EditKom, x, y, button);
  }

  /// On the canvas alone: Tab would go on to test play and menus.
  void Keys() {
    main.EditKom.SetFocus();
    static constexpr std::array kKeys = {kKeyLeft, kKeyRight,  kKeyUp,   kKeyDown, kKeySpace,   kKeyHome,
                                         kKeyEnd,  kKeyPageUp, int{'3'}, int{'1'}, kKeyPageDown};
    for (int i = Below(10); i >= 0; --i) {
      user::TapKey(kKeys.at(static_cast<std::size_t>(Below(kKeys.size()))), Below(4));
    }
  }

  void Operate() {
    switch (Below(3)) {
      case 0:
        return main.mnuReplEvery_Click(1 + Below(2));
      case 1:
        return main.mnuReplRan_Click(std::array{0, 1, 5, 10}.at(static_cast<std::size_t>(Below(4))));
      default:
        return main.mnuOkraj_Click();
    }
  }

  void ChangeProperties() {
    user::WhenFront([this] {
      for (TextBox* field : {&formality_.Text1, &formality_.Text2, &formality_.Text5, &formality_.Text11}) {
        field->SetFocus();
        field->SelectAll();
        user::Type(std::to_string(Below(90)));
      }
      user::TapKey(Below(4) == 0 ? kKeyEscape : kKeyEnter);
    });
    main.Label3_Click();
  }

  Forms forms_;
  Random random_;
  FrmFormality formality_{kData, forms_};

 public:
  FrmMain main{kData, forms_};
};

TEST(EditorSequenceTest, TheCanvasShowsTheCaveWhateverIsDone) {
  int boxes = 0;
  SetBoxResponder([&boxes](const MessageBox&) {
    ++boxes;
    return BoxAnswer::kOk;
  });
  for (int seed = 1; seed <= 3; ++seed) {
    Author author(seed);
    for (int turn = 1; turn <= 120; ++turn) {
      author.Act();
      if (turn % 20 != 0) continue;
      ASSERT_TRUE(author.main.EditKom.surface().Snapshot() == author.FreshCanvas()) << seed << " " << turn;
    }
    EXPECT_EQ(author.main.EditKom.width(), author.main.edit.EdKomnata.Width * CaveEdit::kCell);
  }
  SetBoxResponder({});
  EXPECT_GT(boxes, 0) << "the properties have been corrected";
}

}  // namespace

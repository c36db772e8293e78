#pragma once

#include <functional>
#include <string>
#include <vector>

namespace platform {

class Control;

/// An item of a menu; with items of its own it is a menu. Menus are data and outlive their showing: set captions and
/// states whenever they change, and pop the menu up when it is asked for. Captions are in the application's default
/// charset. An item has to be gone before its menu is, so declare it behind its menu.
///
///   MenuItem mnuCaves;
///   MenuItem mnuCopy{&mnuCaves, "Copy"};
///   MenuItem mnuMove{&mnuCaves, "Move"};
///   MenuItem mnuUp{&mnuMove, "Up"};
class MenuItem {
 public:
  /// menu: the one that the item joins at its end, null for a menu that pops up by itself. The caption "-" makes a
  /// separator.
  explicit MenuItem(MenuItem* menu = nullptr, const std::string& caption = {});
  ~MenuItem();
  MenuItem(const MenuItem&) = delete;
  MenuItem& operator=(const MenuItem&) = delete;

  const std::string& caption() const { return caption_; }
  void set_caption(const std::string& caption) { caption_ = caption; }
  bool visible() const { return visible_; }
  void set_visible(bool visible) { visible_ = visible; }
  bool enabled() const { return enabled_; }
  void set_enabled(bool enabled) { enabled_ = enabled; }
  bool checked() const { return checked_; }
  void set_checked(bool checked) { checked_ = checked; }
  /// Names the key that does the same, at the right of the caption. The key itself is the form's business.
  const std::string& shortcut_text() const { return shortcut_text_; }
  void set_shortcut_text(const std::string& text) { shortcut_text_ = text; }
  /// The items of a menu, in their order.
  const std::vector<MenuItem*>& items() const { return items_; }

  /// Does what the user's choice of the item does.
  void Click() const;
  /// Shows the menu with its upper left corner at a place of a control, moved so that it is whole on the screen, and
  /// returns once it is closed and the handler of the item chosen has run. Timers run on; forms get no keys meanwhile.
  void PopUp(const Control& control, int x, int y) const;

  /// The user has chosen the item; the menu is closed by then.
  std::function<void()> on_click;
  /// Of a menu: before it, or the menu around it, is shown. Here it brings its items up to date.
  std::function<void()> on_open;

 private:
  MenuItem* menu_;
  std::vector<MenuItem*> items_;
  std::string caption_;
  std::string shortcut_text_;
  bool visible_ = true;
  bool enabled_ = true;
  bool checked_ = false;
};

}  // namespace platform

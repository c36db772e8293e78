#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/control.h"

class QAbstractItemModel;
class QStringListModel;

namespace platform {

/// Rows of text, counted from 0, one of them selected at most. An index of a row that does not exist is answered by
/// std::out_of_range.
///
/// The selection changes in three ways. The user selects another row: on_click follows. Choose selects a row for the
/// user: on_click follows, too, even when the row was selected before. set_list_index and all that changes the rows
/// call no handler.
class ListControl : public Control {
 public:
  int count() const { return static_cast<int>(rows_.size()); }
  const std::string& item(int index) const;
  void set_item(int index, const std::string& text);
  /// charset: of this row alone, whatever that of the list is; without one the row follows the list.
  void Add(const std::string& text, std::optional<Charset> charset = {});
  /// The charset in which a row is shown.
  Charset row_charset(int index) const { return row(index).charset.value_or(charset()); }
  /// A selected row takes the selection with it.
  void Remove(int index);
  void Clear();

  /// The selected row, -1 for none.
  int list_index() const { return list_index_; }
  void set_list_index(int index);
  void Choose(int index);

 protected:
  ListControl(Container* parent, QWidget* widget);

  QAbstractItemModel* model() const;
  /// The user has selected a row; nothing happens when it was selected before.
  void Picked(int index);
  /// Makes Qt's widget show list_index.
  virtual void ShowSelection() = 0;
  /// Changes rows or selection of Qt's widget; what it reports meanwhile is not the user's doing.
  void Change(const std::function<void()>& change);
  void AppearanceChanged() override;
  bool handles_mouse() const override { return true; }

 private:
  struct Row {
    std::string text;
    std::optional<Charset> charset;
  };

  void CheckIndex(int index, int lowest) const;
  const Row& row(int index) const;
  /// Gives Qt's widget the text of a row.
  void ShowRow(int index);

  std::vector<Row> rows_;
  QStringListModel* model_;
  int list_index_ = -1;
  bool changing_ = false;
};

/// A list that shows several rows at once and scrolls. A text that is too long ends in an ellipsis and shows whole
/// under the mouse. Arrows, page keys, Home, End and the first letters of a text select rows; Enter does what a double
/// click does, when there is a handler for that.
class ListBox : public ListControl {
 public:
  explicit ListBox(Container* parent);

 protected:
  void ShowSelection() override;
  bool takes_enter() const override { return static_cast<bool>(on_double_click); }
};

/// A drop-down list: it shows the selected row, and the others on a click, Space, F4 or Alt with an arrow. Arrows and
/// first letters select rows also while it is closed; the mouse wheel does not.
class ComboBox : public ListControl {
 public:
  explicit ComboBox(Container* parent);

 protected:
  void ShowSelection() override;
};

}  // namespace platform

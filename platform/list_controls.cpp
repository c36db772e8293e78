#include "platform/list_controls.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QListView>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <stdexcept>

#include "platform/application.h"
#include "platform/native.h"

namespace platform {

namespace {

/// Rows as wide as the list: what is longer is shortened, and shown whole as a tool tip.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
    return {1, option.font.pixelSize() * 3 / 2};
  }

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    if (event->type() != QEvent::ToolTip || !index.isValid()) return false;
    const QString text = index.data().toString();
    constexpr int kMargins = 8;
    const bool whole = option.fontMetrics.horizontalAdvance(text) + kMargins <= option.rect.width();
    const QString own_tip = view->toolTip();
    QToolTip::showText(event->globalPos(), whole ? own_tip : "<span>" + text.toHtmlEscaped() + "</span>", view);
    return true;
  }
};

class RowView : public QListView {
 public:
  RowView() {
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setItemDelegate(new RowDelegate(this));
  }

 protected:
  /// Ctrl with a click does not take the selection away.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override {
    const QItemSelectionModel::SelectionFlags flags = QListView::selectionCommand(index, event);
    const bool leaves_a_row = flags & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle);
    return leaves_a_row ? QItemSelectionModel::NoUpdate : flags;
  }
};

}  // namespace

ListControl::ListControl(Container* parent, QWidget* widget)
    : Control(parent, widget), model_(new QStringListModel(widget)) {}

QAbstractItemModel* ListControl::model() const { return model_; }

void ListControl::CheckIndex(int index, int lowest) const {
  if (index < lowest || index >= count()) {
    throw std::out_of_range("The list has no row " + std::to_string(index) + ".");
  }
}

const ListControl::Row& ListControl::row(int index) const {
  CheckIndex(index, 0);
  return rows_[static_cast<std::size_t>(index)];
}

void ListControl::ShowRow(int index) {
  QString glyphs = ToGlyphs(row(index).text, row_charset(index));
  model_->setData(model_->index(index), glyphs.replace(u'\n', u' '));
}

const std::string& ListControl::item(int index) const { return row(index).text; }

void ListControl::set_item(int index, const std::string& text) {
  CheckIndex(index, 0);
  rows_[static_cast<std::size_t>(index)].text = text;
  Change([&] { ShowRow(index); });
}

void ListControl::Add(const std::string& text, std::optional<Charset> charset) {
  rows_.push_back({text, charset});
  Change([this] {
    model_->insertRow(count() - 1);
    ShowRow(count() - 1);
  });
}

void ListControl::Remove(int index) {
  CheckIndex(index, 0);
  rows_.erase(rows_.begin() + index);
  if (list_index_ == index) {
    list_index_ = -1;
  } else if (list_index_ > index) {
    --list_index_;
  }
  Change([&] { model_->removeRow(index); });
}

void ListControl::Clear() {
  rows_.clear();
  list_index_ = -1;
  Change([this] { model_->setStringList({}); });
}

void ListControl::set_list_index(int index) {
  CheckIndex(index, -1);
  list_index_ = index;
  Change([] {});
}

void ListControl::Choose(int index) {
  set_list_index(index);
  if (on_click) on_click();
}

void ListControl::Picked(int index) {
  if (changing_ || index == list_index_) return;
  list_index_ = index;
  if (on_click) on_click();
}

void ListControl::Change(const std::function<void()>& change) {
  changing_ = true;
  change();
  ShowSelection();
  changing_ = false;
}

void ListControl::AppearanceChanged() {
  SetFieldColours(*this);
  Change([this] {
    for (int index = 0; index < count(); ++index) ShowRow(index);
  });
  Control::AppearanceChanged();
}

ListBox::ListBox(Container* parent) : ListControl(parent, new RowView) {
  auto* view = static_cast<RowView*>(widget());
  view->setModel(model());
  QObject::connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, [this, view] {
    const QModelIndexList rows = view->selectionModel()->selectedRows();
    if (!rows.isEmpty()) Picked(rows.first().row());
  });
  QObject::connect(view, &QListView::activated, [this] {
    if (on_double_click) on_double_click();
  });
  Resize(160, 120);
}

void ListBox::ShowSelection() {
  auto* view = static_cast<RowView*>(widget());
  if (list_index() >= 0) {
    view->setCurrentIndex(model()->index(list_index(), 0));
  } else {
    view->selectionModel()->clear();
  }
}

ComboBox::ComboBox(Container* parent) : ListControl(parent, new QComboBox) {
  auto* box = static_cast<QComboBox*>(widget());
  box->setModel(model());
  box->setItemDelegate(new RowDelegate(box));
  box->setMaxVisibleItems(12);
  QObject::connect(box, &QComboBox::activated, [this](int index) { Picked(index); });
  Resize(160, 30);
}

void ComboBox::ShowSelection() { static_cast<QComboBox*>(widget())->setCurrentIndex(list_index()); }

}  // namespace platform

#include "platform/menu.h"

#include <QMenu>
#include <algorithm>

#include "platform/application.h"
#include "platform/native.h"

namespace platform {

namespace {

QString CaptionOf(const MenuItem& item) {
  const Charset charset = Application::default_charset();
  // A tab would begin the shortcut.
  const QString caption = ToPlainCaption(item.caption(), charset).replace(u'\t', u' ').replace(u'\n', u' ');
  return item.shortcut_text().empty() ? caption : caption + "\t" + ToGlyphs(item.shortcut_text(), charset);
}

void Fill(QMenu& menu, const MenuItem& owner);

void Add(QMenu& menu, MenuItem& item) {
  if (!item.visible()) return;
  if (item.caption() == "-") {
    menu.addSeparator();
    return;
  }
  QAction* action = nullptr;
  if (item.items().empty()) {
    action = menu.addAction(CaptionOf(item));
  } else {
    QMenu* inner = menu.addMenu(CaptionOf(item));
    Fill(*inner, item);
    action = inner->menuAction();
  }
  const QMenu* inner = action->menu();
  action->setEnabled(item.enabled() && (!inner || !inner->isEmpty()));
  action->setCheckable(item.checked());
  action->setChecked(item.checked());
  action->setData(QVariant::fromValue<void*>(&item));
}

void Fill(QMenu& menu, const MenuItem& owner) {
  if (owner.on_open) owner.on_open();
  for (MenuItem* item : owner.items()) Add(menu, *item);
}

}  // namespace

MenuItem::MenuItem(MenuItem* menu, const std::string& caption) : menu_(menu), caption_(caption) {
  if (menu_) menu_->items_.push_back(this);
}

MenuItem::~MenuItem() {
  if (menu_) std::erase(menu_->items_, this);
}

void MenuItem::Click() const {
  if (on_click) on_click();
}

void MenuItem::PopUp(const Control& control, int x, int y) const {
  const QWidget* widget = Native::Widget(control);
  const MenuItem* chosen = nullptr;
  {
    QMenu menu(widget->window());
    Fill(menu, *this);
    const QAction* action = menu.isEmpty() ? nullptr : menu.exec(widget->mapToGlobal(QPoint(x, y)));
    if (action) chosen = static_cast<const MenuItem*>(action->data().value<void*>());
  }
  if (chosen) chosen->Click();
}

}  // namespace platform

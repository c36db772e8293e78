#include "platform/message_box.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "platform/application.h"
#include "platform/key_state.h"
#include "platform/native.h"
#include "platform/timer.h"

namespace platform {

namespace {

BoxResponder responder;

QMessageBox::StandardButtons ToQt(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::kYesNo:
    case BoxButtons::kYesDefaultNo:
      return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxButtons::kOk:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon ToQt(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kInformation:
      return QMessageBox::Information;
    case BoxIcon::kExclamation:
      return QMessageBox::Warning;
    case BoxIcon::kQuestion:
      return QMessageBox::Question;
    case BoxIcon::kCritical:
      return QMessageBox::Critical;
    case BoxIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

BoxAnswer FromQt(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return BoxAnswer::kYes;
    case QMessageBox::No:
      return BoxAnswer::kNo;
    case QMessageBox::Cancel:
      return BoxAnswer::kCancel;
    default:
      return BoxAnswer::kOk;
  }
}

/// As much of a text as the screen has room for beside title and buttons, with "…" for what is left out.
QString FittingText(const QString& text, const QFont& font) {
  constexpr int kAround = 200;       // pixels above and below the text, a task bar included
  constexpr int kNarrowest = 300;    // pixels that Qt gives to a text in several lines at least
  constexpr int kLongestLine = 200;  // letters, however thin
  const int most = (QApplication::primaryScreen()->size().height() - kAround) / QFontMetrics(font).lineSpacing();
  QStringList lines = LayOut(text.left(most * kLongestLine), font, kNarrowest).lines;
  if (lines.size() <= most && text.size() <= most * kLongestLine) return text;
  lines = lines.mid(0, most);
  lines.back().append(u'…');
  return lines.join(u'\n');
}

/// A box is wide enough for its title, not only for its text, unless the screen has no room for that.
void WidenForTitle(QMessageBox& box) {
  constexpr int kTitleButtons = 140;  // pixels that the desktop's icon and buttons take
  constexpr int kWidest = 900;        // pixels; Qt itself makes no box wider than 1000
  const int title = QFontMetrics(box.font()).horizontalAdvance(box.windowTitle()) + kTitleButtons;
  const int width = std::clamp(title, 240, std::min(kWidest, Application::ScreenWidth() * 3 / 5));
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
  }
}

/// Closes a box by a key of its own. Only letting the key go closes it, and only when it was struck here: the stroke
/// that brought the box does not close it at once, and the key is not held any more by what comes after.
class OwnKey : public QObject {
 public:
  /// code: of the key; 0 for none.
  OwnKey(QMessageBox& box, int code) : box_(box), code_(code) {
    if (code != 0) box.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool down = event->type() == QEvent::KeyPress;
    if (!down && event->type() != QEvent::KeyRelease) return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.isAutoRepeat() || VirtualKey(key) != code_) return QObject::eventFilter(watched, event);
    if (!down && struck_) box_.accept();
    struck_ = down;
    return true;
  }

 private:
  QMessageBox& box_;
  int code_;
  bool struck_ = false;
};

}  // namespace

BoxAnswer ShowMessageBox(const MessageBox& box) {
  const TimerPause pause;
  if (responder) return responder(box);
  const Charset charset = Application::default_charset();
  QMessageBox window(FrontWindow());
  window.setTextFormat(Qt::PlainText);
  window.setWindowTitle(ToGlyphs(box.title, charset));
  window.setText(FittingText(ToGlyphs(box.text, charset), window.font()));
  window.setIcon(ToQt(box.icon));
  window.setStandardButtons(ToQt(box.buttons));
  if (box.buttons == BoxButtons::kYesDefaultNo) window.setDefaultButton(QMessageBox::No);
  window.setWindowModality(Qt::ApplicationModal);
  WidenForTitle(window);
  const OwnKey own_key(window, box.key);
  return FromQt(window.exec());
}

void SetBoxResponder(BoxResponder new_responder) { responder = std::move(new_responder); }

}  // namespace platform

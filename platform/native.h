#pragma once

// For the sources of this folder alone: the way from controls to Qt and back.

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/control.h"
#include "platform/picture.h"

namespace platform {

class Form;

struct Native {
  static QWidget* Widget(const Control& control) { return control.widget_; }
  static const QImage& Image(const Picture& picture);
  static const QImage& Image(const Surface& surface);
  static Picture MakePicture(QImage image, int width, int height, int ratio);
  /// The form of a Qt window or null.
  static Form* FormOf(const QObject* window);
  /// The control that owns a widget or null.
  static Control* ControlOf(const QWidget* widget);
  /// Calls the handlers of lost and got focus. Null: a widget that belongs to no control.
  static void FocusMoved(const QWidget* from, const QWidget* to);
  /// The program gives the focus to a control of the window.
  static void FocusChosen(QWidget* window);
  static bool TakesEnter(const Control& control) { return control.takes_enter(); }
  static bool HandleKey(Form& form, KeyEvent event, bool down);
};

inline QColor ToQt(Colour colour) { return {colour.red, colour.green, colour.blue}; }
inline Colour FromQt(QRgb colour) { return Rgb(colour & 0xFFFFFF); }

/// A widget that is painted by a function.
class Canvas : public QWidget {
 public:
  std::function<void(QPainter&)> paint;

  /// Device pixels painted by all canvases so far.
  static long long painted_pixels;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Draws a picture's pixels, ratio device pixels a logical one, with its corner at 0, 0. Without scaling where the
/// device has the same ratio.
void DrawPixels(QPainter& painter, const QImage& image, int ratio);

CodePage PageOf(Charset charset);

/// Text of a charset as Unicode, line breaks as LF; and back, "?" for what the code page lacks.
QString ToGlyphs(const std::string& bytes, Charset charset);
std::string ToBytes(const QString& text, Charset charset);
/// The same with each "&" doubled, for Qt's widgets, to which a single one marks a key.
QString ToPlainCaption(const std::string& bytes, Charset charset);

/// A font of the theme.
QFont ToQt(const Font& font);

/// Gives the widget of a list or text box its control's colours.
void SetFieldColours(const Control& control);

/// A text laid out in lines. Lines are set closer than the font asks, which leaves room for stacked accents that our
/// languages do not have.
struct TextLayout {
  QStringList lines;
  int width = 0;        // of the longest line
  int line_height = 0;  // pixels from line to line
  int baseline = 0;     // of the first line below its top

  int height() const { return line_height * static_cast<int>(lines.size()); }
};

/// wrap_width: lines are broken to it, 0 for not at all.
TextLayout LayOut(const QString& text, const QFont& font, int wrap_width = 0);

/// The window in front, to which a box or dialog belongs; null when none is visible.
QWidget* FrontWindow(const QWidget* except = nullptr);

/// Mask of our shift bits for Qt's modifiers, and of our button bits for Qt's buttons.
int ShiftMask(Qt::KeyboardModifiers modifiers);
int ButtonMask(Qt::MouseButtons buttons);

}  // namespace platform

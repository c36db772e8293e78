#pragma once

// For the sources of this folder alone: how controls look.

#include <QPalette>
#include <QProxyStyle>

#include "platform/theme.h"

namespace platform {

/// The colours of a theme in the roles that Qt's widgets ask for.
QPalette PaletteOf(const Theme& theme);

/// Buttons, check boxes, scroll bars, fields, menus and boxes as carved from wood: raised or sunk, lit from the upper
/// left.
class Look : public QProxyStyle {
 public:
  Look();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
  QPixmap standardPixmap(StandardPixmap pixmap, const QStyleOption* option, const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace platform

#include "platform/look.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QGuiApplication>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>

#include "platform/application.h"
#include "platform/native.h"
#include "platform/signs.h"

namespace platform {

namespace {

constexpr int kCorner = 7;
constexpr int kIndicator = 18;
constexpr int kBarWidth = 16;

QPainterPath Rounded(const QRectF& area, qreal corner) {
  QPainterPath path;
  path.addRoundedRect(area, corner, corner);
  return path;
}

QColor Veil(const QColor& colour, int alpha) { return {colour.red(), colour.green(), colour.blue(), alpha}; }

/// A raised body: light on its upper edge, shade below, a dark line around it.
void DrawRaised(QPainter& painter, const QRectF& area, qreal corner, const QColor& colour, const QColor& outline,
                bool pressed) {
  QLinearGradient body(area.topLeft(), area.bottomLeft());
  body.setColorAt(0, pressed ? colour.darker(125) : colour.lighter(122));
  body.setColorAt(1, pressed ? colour.darker(105) : colour.darker(120));
  painter.setPen(QPen(outline, 1.5));
  painter.setBrush(body);
  painter.drawPath(Rounded(area, corner));
  if (pressed) return;
  painter.save();
  painter.setClipRect(QRectF(area.left(), area.top(), area.width(), area.height() / 2));
  painter.setPen(QPen(Veil(ToQt(Application::theme().text), 70), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(Rounded(area.adjusted(1.5, 1.5, -1.5, -1.5), corner - 1.5));
  painter.restore();
}

/// A sunk ground for a value: dark, with a little light on its lower edge.
void DrawSunk(QPainter& painter, const QRectF& area, qreal corner, const QColor& colour) {
  const Theme& theme = Application::theme();
  painter.setPen(QPen(Veil(ToQt(theme.text), 45), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(Rounded(area.translated(0, 1), corner));
  painter.setPen(QPen(ToQt(theme.outline), 1.5));
  painter.setBrush(colour);
  painter.drawPath(Rounded(area, corner));
}

void DrawButton(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = Application::theme();
  const bool enabled = option.state & QStyle::State_Enabled;
  const bool pressed = option.state & (QStyle::State_Sunken | QStyle::State_On);
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  const bool is_default = button && (button->features & QStyleOptionButton::DefaultButton);
  const bool focused = option.state & QStyle::State_HasFocus;
  QColor colour = option.palette.color(QPalette::Button);
  if (!enabled) colour = colour.darker(140);
  if (enabled && !pressed && (option.state & QStyle::State_MouseOver)) colour = colour.lighter(115);
  const QRectF area = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
  DrawRaised(painter, area, kCorner, colour, ToQt(theme.outline), pressed);
  if (enabled && (focused || is_default)) {
    painter.setPen(QPen(Veil(ToQt(theme.accent), focused ? 255 : 140), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(Rounded(area.adjusted(2.5, 2.5, -2.5, -2.5), kCorner - 2.5));
  }
}

/// The ground of a text box or list, with the focus in the accent's colour.
void DrawField(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = Application::theme();
  const QRectF area = QRectF(option.rect).adjusted(1, 1, -1, -2);
  DrawSunk(painter, area, 5, option.palette.color(QPalette::Base));
  if (!(option.state & QStyle::State_HasFocus)) return;
  painter.setPen(QPen(ToQt(theme.accent), 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(Rounded(area.adjusted(0.5, 0.5, -0.5, -0.5), 4.5));
}

void DrawCheckMark(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = Application::theme();
  const bool enabled = option.state & QStyle::State_Enabled;
  const QRectF area = QRectF(option.rect).adjusted(1, 1, -1, -2);
  DrawSunk(painter, area, 4, ToQt(theme.field));
  // The box alone is as dark as the ground: a line shows it, also while it is empty.
  const bool chosen = enabled && (option.state & (QStyle::State_MouseOver | QStyle::State_HasFocus));
  painter.setPen(QPen(ToQt(chosen ? theme.accent : theme.muted_text), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(Rounded(area.adjusted(1, 1, -1, -1), 3));
  if (!(option.state & QStyle::State_On)) return;
  QPen pen(ToQt(enabled ? theme.accent : theme.muted_text), area.width() / 6, Qt::SolidLine, Qt::RoundCap,
           Qt::RoundJoin);
  painter.setPen(pen);
  const auto at = [&area](qreal x, qreal y) { return area.topLeft() + QPointF(area.width() * x, area.height() * y); };
  painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.72), at(0.78, 0.28)}));
}

void DrawArrow(QPainter& painter, const QRectF& area, Qt::ArrowType direction, bool enabled) {
  const Theme& theme = Application::theme();
  painter.save();
  painter.translate(area.center());
  painter.rotate(direction == Qt::UpArrow      ? 0
                 : direction == Qt::RightArrow ? 90
                 : direction == Qt::DownArrow  ? 180
                                               : 270);
  painter.setPen(QPen(ToQt(enabled ? theme.text : theme.muted_text), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF({QPointF(-3, 1.5), QPointF(0, -1.5), QPointF(3, 1.5)}));
  painter.restore();
}

void DrawScrollBar(const QStyle& style, QPainter& painter, const QStyleOptionSlider& option, const QWidget* widget) {
  const Theme& theme = Application::theme();
  const bool enabled = (option.state & QStyle::State_Enabled) && option.minimum < option.maximum;
  const bool across = option.orientation == Qt::Horizontal;
  const auto part = [&](QStyle::SubControl control) {
    return QRectF(style.subControlRect(QStyle::CC_ScrollBar, &option, control, widget));
  };
  const auto pressed = [&](QStyle::SubControl control) {
    return (option.state & QStyle::State_Sunken) && (option.activeSubControls & control);
  };
  DrawSunk(painter, QRectF(option.rect).adjusted(1, 1, -1, -2), 5, ToQt(theme.field));
  const QColor colour =
      enabled ? option.palette.color(QPalette::Button) : option.palette.color(QPalette::Button).darker(150);
  const auto piece = [&](QStyle::SubControl control) {
    DrawRaised(painter, part(control).adjusted(1.5, 1.5, -1.5, -1.5), 4, colour, ToQt(theme.outline), pressed(control));
  };
  piece(QStyle::SC_ScrollBarSubLine);
  piece(QStyle::SC_ScrollBarAddLine);
  DrawArrow(painter, part(QStyle::SC_ScrollBarSubLine), across ? Qt::LeftArrow : Qt::UpArrow, enabled);
  DrawArrow(painter, part(QStyle::SC_ScrollBarAddLine), across ? Qt::RightArrow : Qt::DownArrow, enabled);
  if (!enabled) return;
  piece(QStyle::SC_ScrollBarSlider);
  if (option.state & QStyle::State_HasFocus) {
    painter.setPen(QPen(ToQt(theme.accent), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(Rounded(part(QStyle::SC_ScrollBarSlider).adjusted(3, 3, -3, -3), 3));
  }
}

/// A drop-down list: a field, with a raised arrow at its right end.
void DrawComboBox(const QStyle& style, QPainter& painter, const QStyleOptionComboBox& option, const QWidget* widget) {
  DrawField(painter, option);
  const bool enabled = option.state & QStyle::State_Enabled;
  const bool open = option.state & QStyle::State_On;
  QColor colour = option.palette.color(QPalette::Button);
  if (!enabled) colour = colour.darker(150);
  if (enabled && (option.state & QStyle::State_MouseOver)) colour = colour.lighter(115);
  const QRectF arrow(style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget));
  DrawRaised(painter, arrow, 4, colour, ToQt(Application::theme().outline), open);
  DrawArrow(painter, arrow, Qt::DownArrow, enabled);
}

/// Saves the painter's state and smooths edges for as long as it exists.
struct Smooth {
  explicit Smooth(QPainter* p) : painter(p) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
  }
  ~Smooth() { painter->restore(); }
  Smooth(const Smooth&) = delete;
  Smooth& operator=(const Smooth&) = delete;
  QPainter* painter;
};

}  // namespace

QPalette PaletteOf(const Theme& theme) {
  QPalette palette;
  const auto set = [&palette](QPalette::ColorRole role, Colour colour) { palette.setColor(role, ToQt(colour)); };
  set(QPalette::Window, theme.background);
  set(QPalette::Base, theme.field);
  set(QPalette::AlternateBase, theme.panel);
  set(QPalette::ToolTipBase, theme.panel);
  set(QPalette::Button, theme.button);
  set(QPalette::Highlight, theme.accent);
  set(QPalette::HighlightedText, theme.accent_text);
  set(QPalette::Link, theme.link);
  set(QPalette::LinkVisited, theme.link);
  set(QPalette::PlaceholderText, theme.muted_text);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, ToQt(theme.panel));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, ToQt(theme.muted_text));
  palette.setColor(QPalette::Light, ToQt(theme.button).lighter(130));
  palette.setColor(QPalette::Midlight, ToQt(theme.button));
  palette.setColor(QPalette::Mid, ToQt(theme.panel));
  palette.setColor(QPalette::Dark, ToQt(theme.outline).lighter(140));
  palette.setColor(QPalette::Shadow, ToQt(theme.outline));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText}) {
    set(role, theme.text);
    palette.setColor(QPalette::Disabled, role, ToQt(theme.muted_text));
  }
  return palette;
}

Look::Look() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void Look::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const {
  const Smooth smooth(painter);
  const Theme& theme = Application::theme();
  switch (element) {
    case PE_PanelButtonCommand:
      DrawButton(*painter, *option);
      break;
    case PE_IndicatorCheckBox:
      DrawCheckMark(*painter, *option);
      break;
    case PE_FrameFocusRect:  // buttons and check boxes show focus and default themselves
    case PE_FrameDefaultButton:
      break;
    case PE_PanelLineEdit:
      DrawField(*painter, *option);
      break;
    case PE_Frame:
      if (qobject_cast<const QAbstractScrollArea*>(widget)) {
        DrawField(*painter, *option);
      } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
      }
      break;
    case PE_PanelMenu:
    case PE_FrameMenu:
      painter->setPen(QPen(ToQt(theme.outline), 1));
      painter->setBrush(element == PE_PanelMenu ? QBrush(ToQt(theme.panel)) : Qt::NoBrush);
      painter->drawRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
      break;
    case PE_PanelTipLabel:
      painter->setPen(QPen(ToQt(theme.accent), 1));
      painter->setBrush(ToQt(theme.panel));
      painter->drawRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
      break;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void Look::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (element == CE_MenuItem && item && item->menuItemType == QStyleOptionMenuItem::Separator) {
    const int y = option->rect.center().y();
    painter->setPen(QPen(Veil(ToQt(Application::theme().muted_text), 140), 1));
    painter->drawLine(option->rect.left() + kCorner, y, option->rect.right() - kCorner, y);
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
}

void Look::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                              const QWidget* widget) const {
  const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && slider) {
    const Smooth smooth(painter);
    DrawScrollBar(*this, *painter, *slider, widget);
  } else if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
             control == CC_ComboBox && box && !box->editable) {
    const Smooth smooth(painter);
    DrawComboBox(*this, *painter, *box, widget);
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

QSize Look::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                             const QWidget* widget) const {
  QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
  constexpr int kButtonEdges = 16;
  if (type == CT_PushButton) result.rwidth() += kButtonEdges;
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  const bool separator = type == CT_MenuItem && item && item->menuItemType == QStyleOptionMenuItem::Separator;
  constexpr int kSeparatorHeight = 9;
  return separator ? QSize(result.width(), kSeparatorHeight) : result;
}

QRect Look::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                           const QWidget* widget) const {
  if (control != CC_ComboBox || part == SC_ComboBoxListBoxPopup) {
    return QProxyStyle::subControlRect(control, option, part, widget);
  }
  constexpr int kArrow = 24;
  QRect area = option->rect.adjusted(4, 4, -4, -5);
  if (part == SC_ComboBoxArrow) area.setLeft(area.right() + 1 - kArrow);
  if (part == SC_ComboBoxEditField) area.adjust(4, 0, -kArrow - 4, 0);
  return part == SC_ComboBoxFrame ? option->rect : area;
}

int Look::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
      return kIndicator;
    case PM_CheckBoxLabelSpacing:
      return 8;
    case PM_ScrollBarExtent:
      return kBarWidth;
    case PM_ScrollBarSliderMin:
      return 24;
    case PM_DefaultFrameWidth:
      return qobject_cast<const QAbstractScrollArea*>(widget) ? 4 : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_ToolTipLabelFrameWidth:
      return 4;
    case PM_ButtonShiftHorizontal:
      return 0;
    case PM_ButtonShiftVertical:
      return 1;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Look::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
  // Controls are laid out by hand and get their words from a language file: no keys are underlined.
  if (hint == SH_UnderlineShortcut || hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  if (hint == SH_EtchDisabledText) return 0;  // the muted colour says it
  // The wheel scrolls what lies below the pointer and never changes a choice by the way.
  if (hint == SH_ComboBox_AllowWheelScrolling || hint == SH_ComboBox_Popup) return 0;
  // A single click selects; on some desktops Qt would take it for a double click.
  if (hint == SH_ItemView_ActivateItemOnSingleClick) return 0;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

QPixmap Look::standardPixmap(StandardPixmap pixmap, const QStyleOption* option, const QWidget* widget) const {
  const QIcon icon = SignOf(pixmap);
  constexpr int kSize = 40;
  return icon.isNull() ? QProxyStyle::standardPixmap(pixmap, option, widget)
                       : icon.pixmap(QSize(kSize, kSize), qApp->devicePixelRatio());
}

QIcon Look::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  const QIcon sign = SignOf(icon);
  return sign.isNull() ? QProxyStyle::standardIcon(icon, option, widget) : sign;
}

}  // namespace platform

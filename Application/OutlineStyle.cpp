#include "Application/OutlineStyle.h"

#include <QtGui/QPainter>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOption>

#include "Platform/Interface/Contrast.h"

namespace {

constexpr double Radius = 2;
constexpr double RoundWidth = 1.5;
constexpr int ButtonPadding = 6;
/// Between the text of an item of a menu and its shortcut, in letters.
constexpr int GapOfShortcut = 3;
constexpr int MenuEdge = 1;
// Of layouts, in the scale of 4, 8, 12 and 16.
constexpr int Margin = 12;
constexpr int Spacing = 8;

void drawOutline(const QStyleOption &option, QPainter *painter, bool isRound) {
    const QRectF frame = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
    const QColor color =
        hasFocus ? Contrast::focus(option.palette) : Contrast::outline(option.palette);
    // A thinner circle blends with its ground.
    painter->setPen(QPen(color, isRound ? RoundWidth : 1));
    if (isRound) {
        painter->drawEllipse(frame);
    } else {
        painter->drawRoundedRect(frame, Radius, Radius);
    }
    painter->restore();
}

/// Draws the edge of a menu, which has no state.
void drawEdge(const QStyleOption &option, QPainter *painter) {
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(Contrast::outline(option.palette));
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

/// Draws the frame of the current item of a list with the focus, selected or not.
void drawCurrentItem(const QStyleOption &option, QPainter *painter) {
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(isSelected ? option.palette.color(QPalette::HighlightedText)
                               : Contrast::focus(option.palette));
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

/// Returns whether `widget` is the button that shows what a bar has no room for.
bool isExtension(const QWidget *widget) {
    return widget &&
           (widget->inherits("QToolBarExtension") || widget->inherits("QMenuBarExtension"));
}

}  // namespace

OutlineStyle::OutlineStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void OutlineStyle::polish(QWidget *widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QAbstractScrollArea *>(widget)) {
        widget->installEventFilter(this);
    }
}

void OutlineStyle::unpolish(QWidget *widget) {
    widget->removeEventFilter(this);
    QProxyStyle::unpolish(widget);
}

bool OutlineStyle::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        static_cast<QWidget *>(object)->update();
    }
    return QProxyStyle::eventFilter(object, event);
}

int OutlineStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                            QStyleHintReturn *returnData) const {
    switch (hint) {
        case SH_DialogButtonBox_ButtonsHaveIcons:
        case SH_EtchDisabledText:
            return 0;
        case SH_DialogButtonLayout:
            return QDialogButtonBox::GnomeLayout;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                 QPainter *painter, const QWidget *widget) const {
    if (element == PE_FrameFocusRect && option->state.testFlag(State_Item)) {
        drawCurrentItem(*option, painter);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
        case PE_IndicatorRadioButton:
            drawOutline(*option, painter, true);
            break;
        case PE_IndicatorCheckBox:
        case PE_FrameLineEdit:
        case PE_PanelButtonCommand:
            drawOutline(*option, painter, false);
            break;
        case PE_Frame:
            if (qobject_cast<const QAbstractScrollArea *>(widget)) {
                drawOutline(*option, painter, false);
            }
            break;
        case PE_FrameMenu:
            drawEdge(*option, painter);
            break;
        case PE_PanelButtonTool:
            if (!option->state.testFlag(State_AutoRaise)) {
                drawOutline(*option, painter, false);
            }
            break;
        default:
            break;
    }
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                      QPainter *painter, const QWidget *widget) const {
    if (control == CC_ToolButton && isExtension(widget)) {
        // Its icon is a black arrow in any palette.
        QStyleOptionToolButton button = *static_cast<const QStyleOptionToolButton *>(option);
        button.icon = {};
        button.features = QStyleOptionToolButton::Arrow;
        button.arrowType = option->direction == Qt::RightToLeft ? Qt::LeftArrow : Qt::RightArrow;
        QProxyStyle::drawComplexControl(control, &button, painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_SpinBox || control == CC_ComboBox) {
        drawOutline(*option, painter, false);
    }
}

QIcon OutlineStyle::standardIcon(StandardPixmap icon, const QStyleOption *option,
                                 const QWidget *widget) const {
    return icon == SP_ToolBarHorizontalExtensionButton || icon == SP_ToolBarVerticalExtensionButton
               ? QIcon()
               : QProxyStyle::standardIcon(icon, option, widget);
}

QRect OutlineStyle::subElementRect(SubElement element, const QStyleOption *option,
                                   const QWidget *widget) const {
    return element == SE_ItemViewItemFocusRect
               ? option->rect
               : QProxyStyle::subElementRect(element, option, widget);
}

int OutlineStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                              const QWidget *widget) const {
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
        case PM_SmallIconSize:
        case PM_ListViewIconSize:
        case PM_ButtonIconSize: {
            const QFontMetrics font = option   ? option->fontMetrics
                                      : widget ? widget->fontMetrics()
                                               : QFontMetrics(QApplication::font());
            return qMax(usual, font.ascent());
        }
        case PM_MenuPanelWidth:
            return MenuEdge;
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return Margin;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return Spacing;
        default:
            return usual;
    }
}

QSize OutlineStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                     const QSize &contents, const QWidget *widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (type == CT_MenuItem && item && item->text.contains(u'\t')) {
        return size + QSize(GapOfShortcut * item->fontMetrics.averageCharWidth(), 0);
    }
    return type == CT_PushButton ? size + QSize(2 * ButtonPadding, 0) : size;
}

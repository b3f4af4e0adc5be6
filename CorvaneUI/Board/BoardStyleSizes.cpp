#include "BoardStyle.h"
#include "Segments.h"
#include "Switch.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QStyleOption>

#include <algorithm>

namespace corvane {

namespace {

constexpr double controlHeight = 28;
constexpr double handleSide = 18;

/// KDE and LXQt put the button that does it first, the others last.
int dialogLayout()
{
    const QByteArrayList desktops = qgetenv("XDG_CURRENT_DESKTOP").split(':');
    return desktops.contains("KDE") || desktops.contains("LXQt") ? QDialogButtonBox::KdeLayout
                                                                 : QDialogButtonBox::GnomeLayout;
}

} // namespace

QRect BoardStyle::subElementRect(
    SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    switch (element) {
    case SE_LineEditContents:
        return option->rect.adjusted(Board::length(8), 0, -Board::length(8), 0);
    case SE_RadioButtonFocusRect:
    case SE_RadioButtonClickRect:
    case SE_CheckBoxFocusRect:
    case SE_CheckBoxClickRect:
        return option->rect;
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect BoardStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
    SubControl part, const QWidget *widget) const
{
    if (control == CC_ScrollBar) {
        if (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine)
            return {};
        const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
        if (bar && part == SC_ScrollBarGroove)
            return option->rect;
        if (bar && part == SC_ScrollBarSlider) {
            const bool isUpright = bar->orientation == Qt::Vertical;
            const int room = isUpright ? option->rect.height() : option->rect.width();
            const int range = bar->maximum - bar->minimum;
            const int side = std::max(
                Board::length(28), int(qint64(room) * bar->pageStep / (range + bar->pageStep)));
            const int at = sliderPositionFromValue(
                bar->minimum, bar->maximum, bar->sliderPosition, room - side, bar->upsideDown);
            return isUpright ? QRect(0, at, option->rect.width(), side)
                             : QRect(at, 0, side, option->rect.height());
        }
    }
    if (control == CC_Slider && part == SC_SliderHandle) {
        const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
        const int side = Board::length(handleSide);
        const int at = sliderPositionFromValue(slider->minimum, slider->maximum,
            slider->sliderPosition, option->rect.width() - side, slider->upsideDown);
        return {option->rect.left() + at, option->rect.center().y() - side / 2, side, side};
    }
    if (control == CC_ComboBox) {
        const int arrow = Board::length(24);
        QRect field = option->rect.adjusted(Board::length(10), 0, -arrow, 0);
        if (part == SC_ComboBoxArrow)
            field = QRect(
                option->rect.right() - arrow, option->rect.top(), arrow, option->rect.height());
        if (part == SC_ComboBoxArrow || part == SC_ComboBoxEditField)
            return visualRect(option->direction, option->rect, field);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize BoardStyle::sizeFromContents(
    ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    const auto control = [](int width, int textHeight) {
        return QSize(
            width, std::max(Board::length(controlHeight), textHeight + 2 * Board::length(4)));
    };
    switch (type) {
    case CT_PushButton: {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        const bool hasBoth = button && !button->icon.isNull() && !button->text.isEmpty();
        const int gap = hasBoth ? Board::length(iconGap) : 0;
        return control(size.width() + gap + 2 * Board::length(12), size.height());
    }
    case CT_LineEdit:
        return control(size.width() + 2 * Board::length(8), size.height());
    case CT_ComboBox:
        return control(size.width() + Board::length(10 + 24), size.height());
    case CT_RadioButton:
        if (widget && qobject_cast<const Segments *>(widget->parentWidget())) {
            const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
            const QSize text = option->fontMetrics.size(Qt::TextShowMnemonic, button->text);
            return control(text.width() + 2 * Board::length(14), text.height());
        }
        break;
    case CT_Slider:
        return size.expandedTo({0, Board::length(handleSide) + 2});
    case CT_CheckBox:
        if (qobject_cast<const Switch *>(widget))
            return Switch::drawnSize();
        break;
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

int BoardStyle::pixelMetric(
    PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return int(ringWidth + ringDistance);
    case PM_IndicatorWidth:
        return Switch::drawnSize().width();
    case PM_IndicatorHeight:
        return Switch::drawnSize().height();
    case PM_SliderThickness:
    case PM_SliderControlThickness:
    case PM_SliderLength:
        return Board::length(handleSide);
    case PM_ScrollBarExtent:
        return Board::length(12);
    case PM_LineEditIconSize:
        return Board::length(16);
    case PM_ButtonIconSize:
        return Board::length(14);
    case PM_DefaultFrameWidth:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_ButtonDefaultIndicator:
        return 0;
    case PM_ButtonMargin:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int BoardStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
    QStyleHintReturn *answer) const
{
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    case SH_ScrollBar_Transient:
        return 0;
    case SH_DialogButtonLayout:
        return dialogLayout();
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton;
    case SH_FocusFrame_AboveWidget:
        return 1;
    case SH_Widget_Animation_Duration:
        return m_look.reducesMotion ? 0 : 150; // milliseconds
    default:
        return QProxyStyle::styleHint(hint, option, widget, answer);
    }
}

} // namespace corvane

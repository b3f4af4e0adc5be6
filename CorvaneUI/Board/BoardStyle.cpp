#include "BoardStyle.h"

#include "AccessibleRoles.h"
#include "DevicePixels.h"
#include "DrawnIcon.h"
#include "Segments.h"
#include "Switch.h"
#include "Symbol.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOption>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double radius = 7; ///< of controls
constexpr double grooveHeight = 4;

bool isEnabled(const QStyleOption &option)
{
    return option.state & QStyle::State_Enabled;
}

bool isOn(const QStyleOption &option)
{
    return option.state & QStyle::State_On;
}

bool isHovered(const QStyleOption &option)
{
    return isEnabled(option) && option.state & QStyle::State_MouseOver;
}

bool isPressed(const QStyleOption &option)
{
    return option.state & QStyle::State_Sunken;
}

/// The button that Return presses.
bool isDefault(const QStyleOption &option)
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&option);
    return button && button->features & QStyleOptionButton::DefaultButton && isEnabled(option);
}

QColor mixed(const QColor &color, const QColor &other, float share)
{
    const auto part = [share](float one, float two) { return one + (two - one) * share; };
    return QColor::fromRgbF(part(color.redF(), other.redF()), part(color.greenF(), other.greenF()),
        part(color.blueF(), other.blueF()));
}

QRectF middle(const QRectF &rect, double height)
{
    return {rect.left(), rect.center().y() - height / 2, rect.width(), height};
}

void fillRounded(QPainter &painter, const QRectF &rect, double corner, const QColor &color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(snapped(painter, rect), corner, corner);
    painter.restore();
}

} // namespace

BoardStyle::BoardStyle(const DesktopLook &look)
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s)), m_look(look)
{
}

BoardStyle &BoardStyle::shared()
{
    static auto *const style = [] {
        auto *made = new BoardStyle({}); // the application owns it
        QApplication::setStyle(made);
        AccessibleRoles::install();
        return made;
    }();
    return *style;
}

void BoardStyle::setLook(const DesktopLook &look)
{
    m_look = look;
    Board::useFont(look);
    QApplication::setPalette(standardPalette());
    Q_EMIT lookChanged();
}

QIcon BoardStyle::icon(const QString &symbol, QColor Board::Palette::*tone)
{
    return drawnIcon([symbol, tone](QPainter &painter, const QRectF &rect, QIcon::Mode) {
        Symbol::paint(painter, rect, symbol, {shared().colors().*tone});
    });
}

void BoardStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QAbstractButton *>(widget) || qobject_cast<QComboBox *>(widget)
        || qobject_cast<QAbstractSlider *>(widget) || qobject_cast<QLineEdit *>(widget))
        widget->setAttribute(Qt::WA_Hover);
}

QPalette BoardStyle::standardPalette() const
{
    const Board::Palette &board = colors();
    QPalette palette;
    for (const auto &[role, color] :
        {std::pair(QPalette::Window, board.ground), {QPalette::WindowText, board.fore},
            {QPalette::Base, board.control}, {QPalette::AlternateBase, board.sheet},
            {QPalette::Text, board.fore}, {QPalette::PlaceholderText, board.muted},
            {QPalette::Button, board.control}, {QPalette::ButtonText, board.fore},
            {QPalette::ToolTipBase, board.raised}, {QPalette::ToolTipText, board.fore},
            {QPalette::Highlight, board.accent}, {QPalette::HighlightedText, board.onAccent},
            {QPalette::Link, board.accentType}, {QPalette::Mid, board.edge}})
        palette.setColor(role, color);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, board.faint);
    return palette;
}

QColor BoardStyle::edgeOf(const QStyleOption &option) const
{
    return isHovered(option) ? colors().muted : colors().edge;
}

void BoardStyle::drawButton(QPainter &painter, const QStyleOption &option) const
{
    const Board::Palette &board = colors();
    QColor fill = isDefault(option) ? board.accent : board.control;
    if (isPressed(option) || isOn(option))
        fill = mixed(fill, board.fore, 0.12F);
    else if (isDefault(option) && isHovered(option))
        fill = mixed(fill, board.fore, 0.08F);
    drawField(painter, option.rect, Board::length(radius), isEnabled(option) ? fill : board.sheet,
        isDefault(option) ? fill : edgeOf(option));
}

void BoardStyle::drawButtonLabel(QPainter &painter, const QStyleOptionButton &button) const
{
    const QColor ink = isDefault(button) ? colors().onAccent : colors().fore;
    painter.setPen(isEnabled(button) ? ink : colors().faint);
    QRect text = button.rect;
    if (!button.icon.isNull()) {
        const QSize side = button.iconSize;
        const int gap = button.text.isEmpty() ? 0 : Board::length(iconGap);
        const QSize words = button.fontMetrics.size(Qt::TextShowMnemonic, button.text);
        QRect all(0, 0, side.width() + gap + words.width(), button.rect.height());
        all.moveCenter(button.rect.center());
        const QRect icon(
            all.left(), all.center().y() - side.height() / 2, side.width(), side.height());
        button.icon.paint(&painter, visualRect(button.direction, all, icon), Qt::AlignCenter,
            isEnabled(button) ? QIcon::Normal : QIcon::Disabled);
        text = visualRect(button.direction, all, all.adjusted(side.width() + gap, 0, 0, 0));
    }
    painter.drawText(text, Qt::AlignCenter | Qt::TextShowMnemonic, button.text);
}

void BoardStyle::drawFocusRing(QPainter &painter, const QRectF &rect) const
{
    const double width = ringWidth;
    const QRectF ring =
        snapped(painter, rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    const double corner = Board::length(radius) + ringDistance + width / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors().accent, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ring, corner, corner);
    painter.restore();
}

void BoardStyle::drawSegment(
    QPainter &painter, const QStyleOption &option, const QWidget *widget) const
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&option);
    if (!button)
        return;
    const Board::Palette &board = colors();
    if (isOn(option) || isPressed(option) || isHovered(option)) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipPath(Segments::shapeOf(*widget));
        painter.fillRect(
            option.rect, isOn(option) ? board.accent : mixed(board.control, board.fore, 0.06F));
        painter.restore();
    }
    const QColor text = isOn(option) ? board.onAccent : board.muted;
    painter.setPen(isEnabled(option) ? text : board.faint);
    painter.drawText(option.rect, Qt::AlignCenter | Qt::TextShowMnemonic, button->text);
}

void BoardStyle::drawSlider(QPainter &painter, const QStyleOptionComplex &option) const
{
    const Board::Palette &board = colors();
    const QRectF handle = subControlRect(CC_Slider, &option, SC_SliderHandle, nullptr);
    const QRectF groove = middle(option.rect, Board::length(grooveHeight));
    const double corner = groove.height() / 2;
    fillRounded(painter, groove, corner, board.edge);
    QRectF travelled = groove;
    if (option.direction == Qt::LeftToRight)
        travelled.setRight(handle.center().x());
    else
        travelled.setLeft(handle.center().x());
    fillRounded(painter, travelled, corner, isEnabled(option) ? board.accent : board.faint);
    const QColor edge = m_look.isDark ? board.muted : board.edge;
    drawField(painter, handle, handle.width() / 2, m_look.isDark ? board.fore : board.raised,
        isPressed(option) || isHovered(option) ? board.accent : edge);
}

void BoardStyle::drawScrollBar(QPainter &painter, const QStyleOptionComplex &option) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(&option);
    if (!bar || bar->minimum == bar->maximum)
        return;
    const QRectF slider = subControlRect(CC_ScrollBar, &option, SC_ScrollBarSlider, nullptr);
    const double inset = Board::length(isHovered(option) || isPressed(option) ? 2 : 3);
    const QRectF thumb = bar->orientation == Qt::Vertical ? slider.adjusted(inset, 2, -inset, -2)
                                                          : slider.adjusted(2, inset, -2, -inset);
    const double corner = std::min(thumb.width(), thumb.height()) / 2;
    fillRounded(painter, thumb, corner, isHovered(option) ? colors().muted : colors().edge);
}

void BoardStyle::drawComboBox(QPainter &painter, const QStyleOptionComplex &option) const
{
    const Board::Palette &board = colors();
    drawField(painter, option.rect, Board::length(radius),
        isEnabled(option) ? board.control : board.sheet, edgeOf(option));
    const QRectF arrow = subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, nullptr);
    const double width = Board::length(8);
    const QPointF tip = arrow.center() + QPointF(0, width / 4);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(board.muted, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{
        tip + QPointF(-width / 2, -width / 2), tip, tip + QPointF(width / 2, -width / 2)});
    painter.restore();
}

void BoardStyle::drawProgress(
    QPainter &painter, const QStyleOption &option, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(&option);
    if (!bar)
        return;
    const QRectF groove = middle(option.rect, Board::length(grooveHeight));
    QRectF done = groove;
    if (bar->maximum > bar->minimum) {
        const double share =
            double(bar->progress - bar->minimum) / double(bar->maximum - bar->minimum);
        done.setWidth(groove.width() * std::clamp(share, 0.0, 1.0));
        if (option.direction == Qt::RightToLeft)
            done.moveRight(groove.right());
    } else {
        const QVariant at = widget ? widget->property(busyAt) : QVariant();
        done.setWidth(groove.width() / 3);
        done.translate((groove.width() - done.width()) * (at.isValid() ? at.toDouble() : 0.5), 0);
    }
    fillRounded(painter, done, groove.height() / 2, colors().accent);
}

void BoardStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
    QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_FrameFocusRect: // the ring is drawn outside the control
    case PE_Frame:
    case PE_FrameLineEdit:
    case PE_PanelScrollAreaCorner:
        return;
    case PE_PanelLineEdit:
        return drawField(*painter, option->rect, Board::length(radius),
            isEnabled(*option) ? colors().control : colors().sheet,
            widget && widget->property(wrongInput).toBool() ? colors().error : edgeOf(*option));
    case PE_PanelTipLabel:
        return drawField(*painter, option->rect, Board::length(4), colors().raised, colors().edge);
    case PE_IndicatorCheckBox:
        if (const auto *lever = qobject_cast<const Switch *>(widget))
            return lever->draw(*painter, option->rect, colors(), edgeOf(*option));
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void BoardStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
    const QWidget *widget) const
{
    switch (element) {
    case CE_FocusFrame:
        return drawFocusRing(*painter, option->rect);
    case CE_PushButtonBevel:
        return drawButton(*painter, *option);
    case CE_PushButtonLabel:
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option))
            return drawButtonLabel(*painter, *button);
        break;
    case CE_RadioButton:
        if (widget && qobject_cast<const Segments *>(widget->parentWidget()))
            return drawSegment(*painter, *option, widget);
        break;
    case CE_ProgressBarGroove:
        return fillRounded(*painter, middle(option->rect, Board::length(grooveHeight)),
            Board::length(grooveHeight) / 2.0, colors().edge);
    case CE_ProgressBarContents:
        return drawProgress(*painter, *option, widget);
    case CE_ProgressBarLabel:
        return;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void BoardStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
    QPainter *painter, const QWidget *widget) const
{
    switch (control) {
    case CC_Slider:
        return drawSlider(*painter, *option);
    case CC_ScrollBar:
        return drawScrollBar(*painter, *option);
    case CC_ComboBox:
        return drawComboBox(*painter, *option);
    default:
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QIcon BoardStyle::standardIcon(
    StandardPixmap which, const QStyleOption *option, const QWidget *widget) const
{
    // Every menu bar asks for it, and reading a picture file would load the decoders of all formats.
    if (which == SP_ToolBarHorizontalExtensionButton)
        return icon(u"line.3.horizontal"_s, &Board::Palette::muted);
    if (which == SP_LineEditClearButton)
        return drawnIcon([](QPainter &painter, const QRectF &rect, QIcon::Mode) {
            const double side = rect.width() * 0.7;
            QRectF cross(0, 0, side, side);
            cross.moveCenter(rect.center());
            Symbol::paint(painter, cross, u"xmark"_s, {shared().colors().muted});
        });
    return QProxyStyle::standardIcon(which, option, widget);
}

} // namespace corvane

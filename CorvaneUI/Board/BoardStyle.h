#pragma once

#include "Board.h"

#include <QtWidgets/QProxyStyle>

class QStyleOptionButton;

namespace corvane {

/// How the stock controls of all windows are drawn: in the palette of a look, with lengths that grow
/// with the text. The program's menus have a style of their own.
class BoardStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    explicit BoardStyle(const DesktopLook &look);

    /// The style that all windows share; the first call gives it to the application.
    static BoardStyle &shared();

    [[nodiscard]] const DesktopLook &look() const { return m_look; }
    [[nodiscard]] const Board::Palette &colors() const { return Board::palette(m_look); }
    /// Every window is drawn anew, in the look's colours and font.
    void setLook(const DesktopLook &look);
    /// A symbol in a colour of whatever look there is when it is drawn.
    [[nodiscard]] static QIcon icon(const QString &symbol, QColor Board::Palette::*tone);

    void polish(QWidget *widget) override;
    [[nodiscard]] QPalette standardPalette() const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
        QPainter *painter, const QWidget *widget) const override;
    [[nodiscard]] QRect subElementRect(
        SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option,
        SubControl part, const QWidget *widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption *option,
        const QSize &size, const QWidget *widget) const override;
    [[nodiscard]] int pixelMetric(
        PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *answer) const override;
    [[nodiscard]] QIcon standardIcon(
        StandardPixmap which, const QStyleOption *option, const QWidget *widget) const override;

    /// A property of fields: what stands in it was refused.
    static constexpr const char *wrongInput = "wrongInput";
    /// A property of progress bars without an end: where the part that moves is, from 0 to 1.
    static constexpr const char *busyAt = "busyAt";

Q_SIGNALS:
    void lookChanged();

private:
    static constexpr double ringWidth = 2;
    static constexpr double ringDistance = 2; ///< from the control to the ring
    static constexpr double iconGap = 6; ///< between a button's icon and its words

    void drawButton(QPainter &painter, const QStyleOption &option) const;
    void drawButtonLabel(QPainter &painter, const QStyleOptionButton &button) const;
    void drawFocusRing(QPainter &painter, const QRectF &rect) const;
    void drawSegment(QPainter &painter, const QStyleOption &option, const QWidget *widget) const;
    void drawSlider(QPainter &painter, const QStyleOptionComplex &option) const;
    void drawScrollBar(QPainter &painter, const QStyleOptionComplex &option) const;
    void drawComboBox(QPainter &painter, const QStyleOptionComplex &option) const;
    void drawProgress(QPainter &painter, const QStyleOption &option, const QWidget *widget) const;
    [[nodiscard]] QColor edgeOf(const QStyleOption &option) const;

    DesktopLook m_look;
};

} // namespace corvane

#pragma once

#include <QtWidgets/QCommonStyle>

class QMenu;

namespace corvane {

class MenuRows;

/// Draws `RowMenu`s. Behaviour that a menu asks of a style is as on any Linux desktop.
class MenuStyle final : public QCommonStyle
{
    Q_OBJECT

public:
    explicit MenuStyle(const MenuRows &rows) : m_rows(rows) { }

    /// In points.
    [[nodiscard]] static int cornerRadius();

    using QCommonStyle::polish;
    void polish(QWidget *widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
        const QWidget *widget) const override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *answer) const override;

private:
    void drawPanel(QPainter &painter, const QRectF &rect, const QWidget &menu) const;
    void drawRow(const QStyleOption &option, QPainter &painter, const QWidget &widget) const;
    void drawScroller(const QStyleOption &option, QPainter &painter) const;

    const MenuRows &m_rows;
};

} // namespace corvane

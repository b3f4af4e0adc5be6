#pragma once

#include <QtWidgets/QCommonStyle>

namespace corvane {

class RowMenu;

/// Draws every `RowMenu`. What a menu asks of its style beside drawing is as on any Linux desktop.
class MenuStyle final : public QCommonStyle
{
    Q_OBJECT

public:
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
};

} // namespace corvane

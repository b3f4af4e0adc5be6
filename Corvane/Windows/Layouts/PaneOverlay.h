#pragma once

#include "Pane.h"
#include "Rect.h"

#include <QtGui/QRasterWindow>

namespace corvane {

/// A pane over whatever else is on the screen, as an outline and a label. Pointer and focus pass it by,
/// and to screen readers it is not there.
class PaneOverlay final : public QRasterWindow
{
    Q_OBJECT

public:
    /// What is seen of the windows behind it.
    enum class Behind {
        shinesThrough,
        cutOut, ///< only where nothing is drawn
    };

    explicit PaneOverlay(Behind behind);

    /// Shows the pane there, above all that was shown before. In accessibility coordinates.
    void showPane(const Pane &pane, const Rect &frame);

    static void paint(
        QPainter &painter, const QRectF &rect, const Pane &pane, PaneOverlay::Behind behind);
    /// What is drawn of a pane of this size where nothing shines through.
    [[nodiscard]] static QRegion shape(const QSizeF &size, const Pane &pane);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// In the window's points, which may be several pixels each.
    [[nodiscard]] QRectF area() const;

    Behind m_behind;
    Pane m_pane;
    QSizeF m_pixels;
};

} // namespace corvane

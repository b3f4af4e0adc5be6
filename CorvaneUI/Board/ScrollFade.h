#pragma once

#include "Board.h"

#include <QtWidgets/QAbstractScrollArea>

namespace corvane {

/// Whether content goes on beyond the top and the bottom of a scroll view.
struct ScrollEdges {
    bool above = false;
    bool below = false;

    bool operator==(const ScrollEdges &) const = default;
};

/// Shows, over a scroll view, at which edges its content goes on.
class ScrollFade final : public QWidget
{
    Q_OBJECT

public:
    /// Follows the view, which stands on that ground, and is deleted with it.
    explicit ScrollFade(
        QAbstractScrollArea &view, QColor Board::Palette::*ground = &Board::Palette::ground);

    [[nodiscard]] ScrollEdges edges() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *) override;

private:
    void follow();

    QAbstractScrollArea &m_view;
    QColor Board::Palette::*m_ground;
};

} // namespace corvane

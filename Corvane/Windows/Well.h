#pragma once

#include <QtWidgets/QAbstractScrollArea>

namespace corvane {

/// The outline of a field, round something that scrolls.
class Well final : public QWidget
{
    Q_OBJECT

public:
    /// The height of what scrolls is one of the drawings.
    Well(QAbstractScrollArea *area, double height);

protected:
    void paintEvent(QPaintEvent *) override;
};

} // namespace corvane

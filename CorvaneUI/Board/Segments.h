#pragma once

#include <QtGui/QPainterPath>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QWidget>

namespace corvane {

/// One of a few choices, side by side in one outline: radio buttons, which the arrow keys walk.
class Segments final : public QWidget
{
    Q_OBJECT

public:
    /// The titles, in order; the first has number 0.
    Segments(const QString &name, const QStringList &titles, QWidget *parent = nullptr);

    /// None for -1.
    void setCurrent(int number);
    [[nodiscard]] int current() const { return m_group.checkedId(); }

    /// What a segment covers of its own rectangle, within the rounded outline.
    [[nodiscard]] static QPainterPath shapeOf(const QWidget &segment);

Q_SIGNALS:
    /// By the user.
    void chosen(int number);

protected:
    void paintEvent(QPaintEvent *) override;

private:
    QButtonGroup m_group;
};

} // namespace corvane

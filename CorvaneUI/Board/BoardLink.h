#pragma once

#include <QtWidgets/QAbstractButton>

namespace corvane {

/// A text that leads somewhere.
class BoardLink final : public QAbstractButton
{
    Q_OBJECT

public:
    enum class Target {
        inside,
        external, ///< leaves the program, which an arrow says
    };

    BoardLink(const QString &title, Target target, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *) override;

private:
    [[nodiscard]] int arrowWidth() const;

    Target m_target;
};

} // namespace corvane

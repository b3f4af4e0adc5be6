#pragma once

#include <QtWidgets/QPushButton>

namespace corvane {

/// A line that unfolds what stands below it.
class Disclosure final : public QPushButton
{
    Q_OBJECT

public:
    explicit Disclosure(const QString &text, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *) override;
};

} // namespace corvane

#pragma once

#include <QtWidgets/QPushButton>

namespace corvane {

/// A row of a card that opens the rows below it.
class FoldRow final : public QPushButton
{
    Q_OBJECT

public:
    explicit FoldRow(const QString &text, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *) override;
};

} // namespace corvane

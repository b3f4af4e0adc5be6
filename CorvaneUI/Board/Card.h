#pragma once

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QWidget>

namespace corvane {

/// Rows in one frame, with hairlines between them.
class Card final : public QWidget
{
    Q_OBJECT

public:
    explicit Card(QWidget *parent = nullptr);

    /// A row of a title, a sentence about it (which may show keys between "[[" and "]]") and the
    /// control that it is about, which gets both as its accessible name and description. Either
    /// of the latter two may be missing. A row with a `lead` begins with that widget.
    QWidget *addRow(const QString &title, const QString &explanation, QWidget *control,
        QWidget *lead = nullptr);
    void addRow(QWidget *row);
    /// A row's own layout, with the card's margins, at least as high as the text wants.
    [[nodiscard]] static QHBoxLayout *layoutRow(QWidget *row, int height);

protected:
    void paintEvent(QPaintEvent *) override;

private:
    QVBoxLayout *m_rows;
};

} // namespace corvane

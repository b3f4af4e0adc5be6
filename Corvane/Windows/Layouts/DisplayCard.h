#pragma once

#include "LayoutPicture.h"

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace corvane {

class BoardText;
class Card;

/// What concerns the current display: its columns and rows in percents, or all of its panes anew from
/// a list such as 40 / 30 / 30.
class DisplayCard final : public QWidget
{
    Q_OBJECT

public:
    explicit DisplayCard(LayoutPicture &picture, QWidget *parent = nullptr);

    /// Puts the keys into the field of this column or row.
    void focusBand(CutLines cut, int index);

private:
    /// The sizes of the columns, or of the rows.
    struct Bands {
        CutLines cut = CutLines::vertical;
        QWidget *row = nullptr;
        QGridLayout *grid = nullptr;
        QList<QLineEdit *> fields;
        BoardText *note = nullptr; ///< below the fields
        QPushButton *remove = nullptr;
        QPushButton *add = nullptr;
    };

    void addBands(Card &card, Bands &bands, CutLines cut);
    void addReplacement(Card &card);
    void follow();
    void show(Bands &bands, const QList<double> &sizes);
    void setBand(const Bands &bands, int index);
    void replace();
    void showReplacement();
    void removeDisplay();

    LayoutPicture &m_picture;
    BoardText *m_label;
    QWidget *m_missing; ///< shown while the display is not connected
    Bands m_columns;
    Bands m_rows;
    QWidget *m_ungridded; ///< shown in place of both
    QLineEdit *m_fractions;
    QPushButton *m_replace;
    QWidget *m_warning; ///< before `m_consequence`, where it is an error
    BoardText *m_consequence;
};

} // namespace corvane

#include "DisplayCard.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "Card.h"
#include "Drawing.h"
#include "OneLine.h"
#include "Percent.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int fieldsInARow = 4;

void setWrong(QLineEdit &field, const QString &why)
{
    field.setProperty(BoardStyle::wrongInput, !why.isEmpty());
    field.setAccessibleDescription(why);
    field.update();
}

/// Without the applications in this list of panes, those that the other one has.
QStringList goneBetween(const QList<Pane> &before, const QList<Pane> &after)
{
    QStringList gone;
    for (const Pane &pane : before) {
        const bool stays =
            std::ranges::any_of(after, [&pane](const Pane &each) { return each.app == pane.app; });
        if (pane.app && !stays)
            gone << oneLine(pane.app->name);
    }
    gone.removeDuplicates();
    return gone;
}

QWidget *sentence(const QString &text, BoardText::Tone tone)
{
    auto *row = new QWidget;
    QHBoxLayout *line = Card::layoutRow(row, Board::length(40));
    auto *words = new BoardText(text, Board::Type::secondary, tone);
    words->setWordWrap(true);
    line->addWidget(words, 1);
    return row;
}

} // namespace

DisplayCard::DisplayCard(LayoutPicture &picture, QWidget *parent)
    : QWidget(parent), m_picture(picture)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(8));
    m_label = new BoardText({}, Board::Type::label, &Board::Palette::faint);
    column->addWidget(m_label);
    auto *card = new Card;
    card->setAccessibleName(tr("Display"));
    column->addWidget(card);
    m_missing = sentence(tr("Not connected"), &Board::Palette::attention);
    auto *remove = new QPushButton(tr("Remove Display and Its Panes"));
    connect(remove, &QPushButton::clicked, this, &DisplayCard::removeDisplay);
    m_missing->layout()->addWidget(remove);
    card->addRow(m_missing);
    addBands(*card, m_columns, CutLines::vertical);
    addBands(*card, m_rows, CutLines::horizontal);
    m_ungridded = sentence(
        tr("These panes overlap or do not line up, so they are not a grid. Drag an edge on "
           "the picture, or replace them:"),
        &Board::Palette::muted);
    card->addRow(m_ungridded);
    addReplacement(*card);
    for (const auto signal : {&LayoutPicture::currentPaneChanged, &LayoutPicture::shownChanged})
        connect(&picture, signal, this, &DisplayCard::follow);
    follow();
}

void DisplayCard::addBands(Card &card, Bands &bands, CutLines cut)
{
    const bool isColumns = cut == CutLines::vertical;
    bands.cut = cut;
    bands.row = new QWidget;
    auto *column = new QVBoxLayout(bands.row);
    const int margin = Board::length(16);
    column->setContentsMargins(margin, Board::length(8), margin, Board::length(8));
    column->setSpacing(Board::length(6));
    column->addWidget(new BoardText(
        isColumns ? tr("Columns") : tr("Rows"), Board::Type::secondary, &Board::Palette::muted));
    auto *line = new QHBoxLayout;
    line->setSpacing(Board::length(8));
    bands.grid = new QGridLayout;
    bands.grid->setSpacing(Board::length(6));
    bands.note = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    bands.note->setWordWrap(true);
    auto *sizes = new QVBoxLayout;
    sizes->addLayout(bands.grid);
    sizes->addWidget(bands.note);
    line->addLayout(sizes, 1);
    const auto add = [&](const QString &symbol, const QString &explanation,
                         const QString &undoTitle, auto &&change) {
        auto *button = new QPushButton;
        button->setIcon(BoardStyle::icon(symbol, &Board::Palette::fore));
        button->setToolTip(explanation);
        button->setAccessibleName(undoTitle);
        button->setAccessibleDescription(explanation);
        connect(button, &QPushButton::clicked, this, [this, undoTitle, change] {
            const int display = m_picture.currentDisplay();
            m_picture.edit(undoTitle, [&](WindowLayout &layout) { change(layout, display); });
        });
        line->addWidget(button, 0, Qt::AlignTop);
        return button;
    };
    bands.remove = add(u"minus"_s,
        isColumns ? tr("Drops the rightmost column; the one before it grows into the space.")
                  : tr("Drops the bottom row; the one above it grows into the space."),
        isColumns ? tr("Remove Column") : tr("Remove Row"),
        [cut](WindowLayout &layout, int display) { layout.removeGridBand(display, cut); });
    bands.add = add(u"plus"_s,
        isColumns ? tr("Splits the rightmost column in two; nothing else changes width.")
                  : tr("Splits the bottom row in two; nothing else changes height."),
        isColumns ? tr("Add Column") : tr("Add Row"), [cut](WindowLayout &layout, int display) {
            layout.addGridBand(display, cut, EdgeDrag::minimum);
        });
    column->addLayout(line);
    card.addRow(bands.row);
}

void DisplayCard::addReplacement(Card &card)
{
    auto *whole = new QWidget;
    auto *lines = new QVBoxLayout(whole);
    const int margin = Board::length(16);
    lines->setContentsMargins(margin, Board::length(10), margin, Board::length(10));
    lines->setSpacing(Board::length(6));
    auto *line = new QHBoxLayout;
    line->setSpacing(Board::length(12));
    m_fractions = new QLineEdit;
    m_fractions->setFont(Board::font(Board::Type::numerals));
    m_fractions->setPlaceholderText(u"40 / 30 / 30"_s);
    m_fractions->setAccessibleName(tr("Columns"));
    line->addWidget(new BoardText(tr("Replace"), Board::Type::secondary, &Board::Palette::muted));
    line->addWidget(m_fractions, 1);
    m_replace = new QPushButton(tr("Replace this display's panes with these"));
    m_consequence = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    m_consequence->setWordWrap(true);
    m_warning = Drawing::ofSymbol(13, u"exclamationmark.triangle"_s, &Board::Palette::error);
    auto *last = new QHBoxLayout;
    last->setSpacing(Board::length(6));
    last->addWidget(m_warning, 0, Qt::AlignTop);
    last->addWidget(m_consequence, 1);
    lines->addLayout(line);
    lines->addWidget(m_replace);
    lines->addLayout(last);
    card.addRow(whole);
    connect(m_fractions, &QLineEdit::textEdited, this, &DisplayCard::showReplacement);
    connect(m_fractions, &QLineEdit::returnPressed, this, &DisplayCard::replace);
    connect(m_replace, &QPushButton::clicked, this, &DisplayCard::replace);
}

void DisplayCard::follow()
{
    const WindowLayout &layout = m_picture.shown();
    const int display = m_picture.currentDisplay();
    const LayoutScene::Display *shown = m_picture.scene().display(display);
    setEnabled(shown != nullptr);
    if (!shown)
        return;
    m_label->setText(tr("Display · %1").arg(oneLine(shown->key.name)));
    m_missing->setVisible(!shown->isConnected);
    const auto grid = layout.grid(display);
    m_ungridded->setVisible(!grid && !layout.panesOn(display).isEmpty());
    for (Bands *bands : {&m_columns, &m_rows})
        bands->row->setVisible(grid.has_value());
    if (grid) {
        show(m_columns, grid->columns);
        show(m_rows, grid->rows);
    }
    if (!m_fractions->property(BoardStyle::wrongInput).toBool())
        showReplacement();
}

/// Fields that are there already stay, so that the focus does, and what is being typed.
void DisplayCard::show(Bands &bands, const QList<double> &sizes)
{
    const bool isColumns = bands.cut == CutLines::vertical;
    const qsizetype count = sizes.size() > 1 ? sizes.size() : 0;
    while (bands.fields.size() > count)
        delete bands.fields.takeLast();
    while (bands.fields.size() < count) {
        const int index = int(bands.fields.size());
        auto *field = new QLineEdit;
        field->setFont(Board::font(Board::Type::numerals));
        field->setAlignment(Qt::AlignTrailing);
        field->setMaximumWidth(Board::length(72));
        field->setAccessibleName(
            isColumns ? tr("Column %1").arg(index + 1) : tr("Row %1").arg(index + 1));
        field->setToolTip(isColumns
                ? tr("Type a percent and press Return; the next column along absorbs the "
                     "difference.")
                : tr("Type a percent and press Return; the next band along absorbs the "
                     "difference."));
        connect(field, &QLineEdit::returnPressed, this,
            [this, &bands, index] { setBand(bands, index); });
        connect(field, &QLineEdit::textEdited, this, [field] { setWrong(*field, {}); });
        connect(field, &QLineEdit::editingFinished, this, [this, field] {
            if (!field->hasFocus())
                follow();
        });
        bands.grid->addWidget(field, index / fieldsInARow, index % fieldsInARow);
        bands.fields << field;
    }
    for (qsizetype i = 0; i < count; ++i) {
        const QString text = LayoutDrawing::percent(sizes[i]);
        QLineEdit &field = *bands.fields[i];
        if (field.text() != text && !(field.hasFocus() && field.isModified()))
            field.setText(text);
    }
    if (count == 0)
        bands.note->setText(tr("There is only one, so it is the whole display."));
    else if (bands.note->text() != tr("5 % is the smallest"))
        bands.note->clear();
    bands.note->setVisible(!bands.note->text().isEmpty());
    bands.remove->setEnabled(count > 0);
    bands.add->setEnabled(sizes.last() / 2 >= EdgeDrag::minimum);
}

void DisplayCard::focusBand(CutLines cut, int index)
{
    const Bands &bands = cut == CutLines::vertical ? m_columns : m_rows;
    if (index < 0 || index >= bands.fields.size())
        return;
    bands.fields[index]->setFocus(Qt::OtherFocusReason);
    bands.fields[index]->selectAll();
}

void DisplayCard::setBand(const Bands &bands, int index)
{
    QLineEdit &field = *bands.fields[index];
    const auto value = fractionFromPercent(field.text());
    bands.note->clear();
    if (!value || *value < 0) {
        bands.note->setText(tr("%1. Numbers only; commas, slashes or spaces between them.")
                                .arg(field.accessibleName()));
        bands.note->show();
        setWrong(field, bands.note->text());
        return field.selectAll();
    }
    setWrong(field, {});
    field.setModified(false);
    const int display = m_picture.currentDisplay();
    m_picture.edit(bands.cut == CutLines::vertical ? tr("Set Column Width") : tr("Set Row Height"),
        [&](WindowLayout &layout) {
            layout.setGridBand(display, bands.cut, index, *value, EdgeDrag::minimum);
        });
    const auto grid = m_picture.shown().grid(display);
    const QList<double> &sizes = bands.cut == CutLines::vertical ? grid->columns : grid->rows;
    if (std::abs(sizes[index] - *value) > 0.0005)
        bands.note->setText(tr("5 % is the smallest"));
    follow();
    field.selectAll();
}

void DisplayCard::replace()
{
    const auto fractions = WindowLayout::parseFractions(m_fractions->text());
    if (!fractions) {
        const QString why = tr("%1. Numbers only; commas, slashes or spaces between them.")
                                .arg(m_fractions->accessibleName());
        m_consequence->setText(why);
        m_consequence->setTone(&Board::Palette::error);
        m_consequence->show();
        m_warning->show();
        setWrong(*m_fractions, why);
        return m_fractions->selectAll();
    }
    const int display = m_picture.currentDisplay();
    m_picture.edit(tr("Replace Panes"),
        [&](WindowLayout &layout) { layout.setSplit(display, *fractions, CutLines::vertical); });
}

/// Says what goes, before it does.
void DisplayCard::showReplacement()
{
    const auto fractions = WindowLayout::parseFractions(m_fractions->text());
    const int display = m_picture.currentDisplay();
    m_replace->setEnabled(fractions.has_value());
    m_consequence->setTone(&Board::Palette::muted);
    m_warning->hide();
    setWrong(*m_fractions, {});
    QString text;
    if (fractions) {
        const QList<Pane> before = m_picture.shown().panesOn(display);
        WindowLayout after = m_picture.shown();
        after.setSplit(display, *fractions, CutLines::vertical);
        const QStringList gone = goneBetween(before, after.panesOn(display));
        const int count = int(before.size());
        text = gone.isEmpty()  ? tr("%n pane(s) become %1.", nullptr, count)
            : gone.size() == 1 ? tr("%n pane(s) become %1; %2 goes.", nullptr, count)
                               : tr("%n pane(s) become %1; %2 go.", nullptr, count);
        text = text.arg(fractions->size());
        if (!gone.isEmpty())
            text = text.arg(QLocale().createSeparatedList(gone));
    }
    m_consequence->setText(text);
    m_consequence->setVisible(!text.isEmpty());
}

void DisplayCard::removeDisplay()
{
    const int display = m_picture.currentDisplay();
    m_picture.edit(tr("Remove Display"), [display](WindowLayout &layout) {
        layout.displays.removeAt(display);
        layout.panes.removeIf([display](const Pane &pane) { return pane.display == display; });
        for (Pane &pane : layout.panes)
            pane.display -= pane.display > display ? 1 : 0;
    });
}

} // namespace corvane

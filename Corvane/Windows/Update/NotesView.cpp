#include "NotesView.h"

#include "Board.h"
#include "ScrollFade.h"

#include <QtGui/QTextList>

namespace corvane {

namespace {

QTextCharFormat weight(QFont::Weight weight)
{
    QTextCharFormat format;
    format.setFontWeight(weight);
    return format;
}

} // namespace

NotesView::NotesView(QWidget *parent) : QTextEdit(parent)
{
    setReadOnly(true);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setFont(Board::font(Board::Type::body));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // What fades at an edge keeps clear of the rounded corners.
    const int margin = Board::length(4);
    setViewportMargins(margin, margin, 0, margin);
    document()->setDocumentMargin(Board::length(10));
    document()->setIndentWidth(Board::length(16));
    new ScrollFade(*this, &Board::Palette::control);
}

// The texts are never taken for markup: they are inserted as they are, and only their weight is set.
void NotesView::setNotes(const QList<ReleaseNotes::Section> &notes)
{
    clear();
    QTextCursor cursor(document());
    const auto beginBlock = [&cursor](double top) {
        QTextBlockFormat format;
        format.setTopMargin(Board::length(top));
        if (cursor.atStart())
            cursor.setBlockFormat({});
        else
            cursor.insertBlock(format);
    };
    for (const ReleaseNotes::Section &section : notes) {
        if (!section.heading.isEmpty()) {
            beginBlock(12);
            cursor.insertText(section.heading, weight(QFont::DemiBold));
        }
        for (const ReleaseNotes::Item &item : section.items) {
            beginBlock(4);
            QTextListFormat list;
            list.setStyle(QTextListFormat::ListDisc);
            cursor.createList(list);
            for (const ReleaseNotes::Run &run : item)
                cursor.insertText(run.text, weight(run.isBold ? QFont::DemiBold : QFont::Normal));
        }
    }
    moveCursor(QTextCursor::Start);
}

} // namespace corvane

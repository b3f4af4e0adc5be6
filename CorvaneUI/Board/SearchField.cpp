#include "SearchField.h"

#include "Drawing.h"
#include "Symbol.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QWidgetAction>

namespace corvane {

using namespace Qt::StringLiterals;

SearchField::SearchField(const QString &placeholder, QWidget *parent) : QLineEdit(parent)
{
    setPlaceholder(placeholder);
    setClearButtonEnabled(true);
    findChild<QAbstractButton *>()->setAccessibleName(tr("Clear"));
    // A drawing in place of a button that would do nothing.
    auto *glass = new Drawing(
        {20, 14}, [](QPainter &painter, const QRectF &rect, const Board::Palette &palette) {
            Symbol::paint(painter, rect, u"magnifyingglass"_s, {palette.muted});
        });
    glass->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *action = new QWidgetAction(this);
    action->setDefaultWidget(glass);
    addAction(action, LeadingPosition);
}

void SearchField::setPlaceholder(const QString &placeholder)
{
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
}

} // namespace corvane

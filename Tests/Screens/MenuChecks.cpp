#include "MenuChecks.h"

#include "RowDrawing.h"

#include <QtGui/QFontMetricsF>

#include <cmath>

namespace corvane::MenuChecks {

using namespace Qt::StringLiterals;

namespace {

class Check
{
public:
    explicit Check(const QString &subject) : m_subject(subject) { }

    void that(bool holds, const QString &rule)
    {
        if (!holds)
            m_failures << m_subject + u": "_s + rule;
    }
    [[nodiscard]] const QStringList &failures() const { return m_failures; }

private:
    QString m_subject;
    QStringList m_failures;
};

bool fits(const QFont &font, const QString &text, const QRectF &rect)
{
    const QFontMetricsF metrics(font);
    return metrics.horizontalAdvance(text) <= rect.width() + 0.5
        && metrics.height() <= rect.height() + 0.5;
}

QStringList rowFailures(RowMenu &menu, const QAction &action, const MenuRow &row)
{
    Check check(row.title);
    const QRectF rect = menu.actionGeometry(const_cast<QAction *>(&action));
    const RowDrawing::Places at =
        RowDrawing::places(rect, row, menu.look(), RowDrawing::kindOf(action));
    const double tall = Board::length(row.subtitle ? 46 : 30);

    check.that(QRectF(menu.rect()).contains(rect), u"is within the menu"_s);
    check.that(rect.height() <= tall, u"is no taller than its text needs"_s);
    check.that(fits(menu.look().titleFont, row.title, at.title), u"is shown whole"_s);
    if (row.subtitle) {
        check.that(fits(Board::font(Board::Type::secondary), *row.subtitle, at.subtitle),
            u"its subtitle is shown whole"_s);
    }
    if (at.trailing.isNull())
        return check.failures();
    check.that(rect.contains(at.trailing), u"its key caps are within the row"_s);
    check.that(std::abs(at.trailing.right() - rect.left() - menu.columnEnd()) < 0.01,
        u"its trailing part ends where those of the others do"_s);
    check.that(at.trailing.left() - at.title.right() >= Board::length(20),
        u"its key caps stand clear of the title"_s);
    return check.failures();
}

} // namespace

QStringList failures(RowMenu &menu)
{
    QStringList failures;
    for (const QAction *action : menu.actions()) {
        if (const auto row = MenuRow::of(*action))
            failures << rowFailures(menu, *action, *row);
        if (!action->isSeparator() && action->text().isEmpty())
            failures << u"a row has no name"_s;
    }
    return failures;
}

} // namespace corvane::MenuChecks

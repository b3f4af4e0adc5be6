#include "LayoutHistory.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace corvane {

namespace {

template <typename Points>
std::optional<QString> lastTitle(const Points &points)
{
    return points.isEmpty() ? std::nullopt : std::optional(points.last().title);
}

} // namespace

void LayoutHistory::record(const QString &title, const Layouts &present)
{
    m_redo.clear();
    m_undo.append({title, present});
    if (m_undo.size() > depth)
        m_undo.removeFirst();
}

std::optional<LayoutHistory::Layouts> LayoutHistory::undo(const Layouts &present)
{
    return step(m_undo, m_redo, present);
}

std::optional<LayoutHistory::Layouts> LayoutHistory::redo(const Layouts &present)
{
    return step(m_redo, m_undo, present);
}

std::optional<QString> LayoutHistory::undoTitle() const
{
    return lastTitle(m_undo);
}

std::optional<QString> LayoutHistory::redoTitle() const
{
    return lastTitle(m_redo);
}

void LayoutHistory::setSaved(const WindowLayout &layout)
{
    m_saved.insert(layout.id, layout);
}

void LayoutHistory::setSaved(const Layouts &layouts)
{
    m_saved.clear();
    for (const WindowLayout &layout : layouts)
        setSaved(layout);
}

std::optional<WindowLayout> LayoutHistory::savedVersion(const QUuid &id) const
{
    const auto saved = m_saved.constFind(id);
    return saved == m_saved.constEnd() ? std::nullopt : std::optional(*saved);
}

std::optional<LayoutHistory::Layouts> LayoutHistory::revert(const QUuid &id, const Layouts &present)
{
    const std::optional<WindowLayout> saved = savedVersion(id);
    Layouts reverted = present;
    const auto layout = std::ranges::find(reverted, id, &WindowLayout::id);
    if (!saved || layout == reverted.end() || *layout == *saved)
        return std::nullopt;
    record(QCoreApplication::translate("LayoutHistory", "Revert %1").arg(layout->name), present);
    *layout = *saved;
    return reverted;
}

std::optional<LayoutHistory::Layouts> LayoutHistory::step(
    QList<Point> &from, QList<Point> &to, const Layouts &present)
{
    if (from.isEmpty())
        return std::nullopt;
    Point point = from.takeLast();
    to.append({point.title, present});
    return point.layouts;
}

} // namespace corvane

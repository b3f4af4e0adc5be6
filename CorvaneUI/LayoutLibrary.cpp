#include "LayoutLibrary.h"

#include "LayoutMending.h"
#include "Platform.h"
#include "Screens.h"

#include <algorithm>
#include <tuple>

namespace corvane {

namespace {

QList<std::pair<QUuid, KeyCombo>> shortcutsOf(const QList<WindowLayout> &layouts)
{
    QList<std::pair<QUuid, KeyCombo>> shortcuts;
    for (const WindowLayout &layout : layouts) {
        if (layout.shortcut)
            shortcuts << std::pair(layout.id, *layout.shortcut);
    }
    return shortcuts;
}

/// Those that `layouts` has not, by their ids.
void addOthers(QList<WindowLayout> &layouts, const QList<WindowLayout> &present)
{
    for (const WindowLayout &each : present) {
        if (std::ranges::find(layouts, each.id, &WindowLayout::id) == layouts.end())
            layouts << each;
    }
}

} // namespace

LayoutLibrary::LayoutLibrary(LayoutStore store, Notices &notices, SettleShortcuts settleShortcuts)
    : m_store(std::move(store)), m_notices(notices), m_settleShortcuts(std::move(settleShortcuts))
{
}

void LayoutLibrary::load()
{
    read();
    m_history.setSaved(m_layouts);
}

void LayoutLibrary::refresh()
{
    const auto stamp = stampNow();
    // No file is no edit: an editor may be about to put the next one in its place.
    if (!stamp || stamp == m_stamp)
        return;
    const QList<WindowLayout> old = m_layouts;
    read();
    if (m_layouts == old)
        return;
    m_history.record(tr("Change of the File"), old);
    Q_EMIT changed();
    Q_EMIT shortcutsChanged();
}

void LayoutLibrary::read()
{
    m_stamp = stampNow();
    auto [layouts, problem] = m_store.loadKeepingUnreadable();
    const bool keepsOthers = problem && !m_layouts.isEmpty();
    if (const auto sample = layout(m_sample))
        layouts << *sample;
    if (keepsOthers)
        addOthers(layouts, m_layouts);
    m_layouts = std::move(layouts);
    m_notices.tellReading(m_store.url(), problem,
        keepsOthers ? StoreProblem::Instead::present : StoreProblem::Instead::defaults);
    m_settleShortcuts(m_layouts);
}

std::optional<FileStamp> LayoutLibrary::stampNow() const
{
    return FileStamp::of(m_store.url().toLocalFile());
}

std::optional<WindowLayout> LayoutLibrary::layout(const QString &nameOrID) const
{
    if (auto found = layout(QUuid(nameOrID)))
        return found;
    const auto found = std::ranges::find(m_layouts, nameOrID, &WindowLayout::name);
    return found == m_layouts.end() ? std::nullopt : std::optional(*found);
}

std::optional<WindowLayout> LayoutLibrary::layout(const QUuid &id) const
{
    const auto found = std::ranges::find(m_layouts, id, &WindowLayout::id);
    return found == m_layouts.end() ? std::nullopt : std::optional(*found);
}

WindowLayout LayoutLibrary::addEmpty()
{
    refresh();
    WindowLayout layout{.name = uniqueName(tr("Layout"), m_layouts)};
    layout.displays = Screens::signature();
    for (int display = 0; display < layout.displays.size(); ++display)
        layout.panes << Pane{.display = display};
    std::ignore = add(layout, tr("New Layout"));
    return layout;
}

expected<WindowLayout, QString> LayoutLibrary::addCaptured(
    const QString &name, const std::function<WindowLayout(const QString &name)> &capture)
{
    refresh();
    const WindowLayout captured = capture(uniqueName(name, m_layouts));
    return add(captured, tr("Capture Current Windows")).map([&captured] { return captured; });
}

WindowLayout LayoutLibrary::addSample(WindowLayout layout)
{
    refresh();
    layout.id = m_sample;
    m_history.setSaved(layout);
    std::ignore = replaceAll(withoutSample(m_layouts) << layout);
    return layout;
}

QList<WindowLayout> LayoutLibrary::withoutSample(QList<WindowLayout> layouts) const
{
    layouts.removeIf([this](const WindowLayout &each) { return each.id == m_sample; });
    return layouts;
}

std::optional<WindowLayout> LayoutLibrary::duplicate(const QUuid &id)
{
    refresh();
    auto copy = layout(id);
    if (!copy)
        return std::nullopt;
    const qsizetype original = m_layouts.indexOf(*copy);
    copy->id = QUuid::createUuid();
    copy->name = uniqueName(copy->name, m_layouts);
    copy->shortcut.reset();
    copy->applyOnConnect = false;
    copy->created = Platform::current().clock().date();
    for (Pane &pane : copy->panes)
        pane.id = QUuid::createUuid();
    QList<WindowLayout> layouts = m_layouts;
    layouts.insert(original + 1, *copy);
    m_history.setSaved(*copy);
    std::ignore = perform(tr("Duplicate Layout"), std::move(layouts));
    return copy;
}

void LayoutLibrary::remove(const QUuid &id)
{
    refresh();
    QList<WindowLayout> layouts = m_layouts;
    if (layouts.removeIf([&id](const WindowLayout &each) { return each.id == id; }))
        std::ignore = perform(tr("Delete Layout"), std::move(layouts));
}

void LayoutLibrary::rename(const QUuid &id, const QString &name)
{
    refresh();
    auto renamed = layout(id);
    if (!renamed || name.trimmed().isEmpty())
        return;
    renamed->name = name.trimmed();
    update(*renamed, tr("Rename Layout"));
}

void LayoutLibrary::move(const QUuid &id, qsizetype index)
{
    refresh();
    QList<WindowLayout> layouts = m_layouts;
    const auto moved = std::ranges::find(layouts, id, &WindowLayout::id);
    if (moved == layouts.end() || index < 0 || index >= layouts.size())
        return;
    layouts.move(moved - layouts.begin(), index);
    if (layouts != m_layouts)
        std::ignore = perform(tr("Move Layout"), layouts);
}

void LayoutLibrary::update(const WindowLayout &layout, const QString &undoTitle)
{
    refresh();
    QList<WindowLayout> layouts = m_layouts;
    const auto present = std::ranges::find(layouts, layout.id, &WindowLayout::id);
    if (present == layouts.end() || *present == layout)
        return;
    *present = layout;
    std::ignore = perform(undoTitle, std::move(layouts));
}

expected<void, QString> LayoutLibrary::replaceAll(QList<WindowLayout> layouts)
{
    if (layouts == m_layouts)
        return {};
    // Undone, a layout may come back with a shortcut that has found another owner since.
    m_settleShortcuts(layouts);
    const QList<WindowLayout> old = std::exchange(m_layouts, std::move(layouts));
    expected<void, QString> saved;
    if (const auto kept = withoutSample(m_layouts); kept != withoutSample(old)) {
        saved = m_notices.tellSaving(m_store.url(), m_store.save(kept));
        m_stamp = stampNow();
    }
    Q_EMIT changed();
    if (shortcutsOf(old) != shortcutsOf(m_layouts))
        Q_EMIT shortcutsChanged();
    return saved;
}

WindowLayout LayoutLibrary::mend(const WindowLayout &layout)
{
    const WindowLayout whole = mended(layout);
    QList<WindowLayout> layouts = m_layouts;
    if (const qsizetype index = layouts.indexOf(layout); index >= 0 && whole != layout) {
        if (m_history.savedVersion(layout.id) == layout)
            m_history.setSaved(whole);
        layouts[index] = whole;
        std::ignore = replaceAll(std::move(layouts));
    }
    return whole;
}

void LayoutLibrary::undo()
{
    refresh();
    if (auto layouts = m_history.undo(m_layouts))
        std::ignore = replaceAll(std::move(*layouts));
}

void LayoutLibrary::redo()
{
    refresh();
    if (auto layouts = m_history.redo(m_layouts))
        std::ignore = replaceAll(std::move(*layouts));
}

void LayoutLibrary::save(const QUuid &id)
{
    refresh();
    if (const auto saved = layout(id)) {
        m_history.setSaved(*saved);
        Q_EMIT changed();
    }
}

void LayoutLibrary::revert(const QUuid &id)
{
    refresh();
    if (auto layouts = m_history.revert(id, m_layouts))
        std::ignore = replaceAll(std::move(*layouts));
}

expected<void, QString> LayoutLibrary::add(const WindowLayout &layout, const QString &undoTitle)
{
    m_history.setSaved(layout);
    return perform(undoTitle, QList(m_layouts) << layout);
}

expected<void, QString> LayoutLibrary::perform(
    const QString &undoTitle, QList<WindowLayout> layouts)
{
    m_history.record(undoTitle, m_layouts);
    return replaceAll(std::move(layouts));
}

} // namespace corvane

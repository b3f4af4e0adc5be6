#include "AppModel.h"

#include "FlightRecorder.h"
#include "LayoutMending.h"
#include "Platform.h"
#include "Screens.h"

#include <algorithm>
#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;

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

void AppModel::loadLayouts()
{
    m_layoutsStamp = layoutsStamp();
    auto [layouts, problem] = m_layoutStore.loadKeepingUnreadable();
    const bool keepsOthers = problem && !m_layouts.isEmpty();
    if (keepsOthers)
        addOthers(layouts, m_layouts);
    m_layouts = std::move(layouts);
    note(m_layoutStore.url(), problem,
        keepsOthers ? StoreProblem::Instead::present : StoreProblem::Instead::defaults);
    tell(settleShortcuts(m_settings.shortcuts, m_layouts));
}

std::optional<FileStamp> AppModel::layoutsStamp() const
{
    return FileStamp::of(m_layoutStore.url().toLocalFile());
}

void AppModel::refreshLayouts()
{
    const auto stamp = layoutsStamp();
    // No file is no edit: an editor may be about to put the next one in its place.
    if (!stamp || stamp == m_layoutsStamp)
        return;
    const QList<WindowLayout> old = m_layouts;
    loadLayouts();
    if (m_layouts == old)
        return;
    m_history.record(tr("Change of the File"), old);
    Q_EMIT layoutsChanged();
    if (onShortcutsChanged)
        onShortcutsChanged();
}

std::optional<WindowLayout> AppModel::layout(const QString &nameOrID) const
{
    if (auto found = layout(QUuid(nameOrID)))
        return found;
    const auto found = std::ranges::find(m_layouts, nameOrID, &WindowLayout::name);
    return found == m_layouts.end() ? std::nullopt : std::optional(*found);
}

std::optional<WindowLayout> AppModel::layout(const QUuid &id) const
{
    const auto found = std::ranges::find(m_layouts, id, &WindowLayout::id);
    return found == m_layouts.end() ? std::nullopt : std::optional(*found);
}

QString AppModel::uniqueLayoutName(const QString &base) const
{
    return uniqueName(base, m_layouts);
}

expected<void, QString> AppModel::perform(const QString &undoTitle, QList<WindowLayout> layouts)
{
    m_history.record(undoTitle, m_layouts);
    return setLayouts(std::move(layouts));
}

expected<void, QString> AppModel::setLayouts(QList<WindowLayout> layouts)
{
    if (layouts == m_layouts)
        return {};
    // Undone, a layout may come back with a shortcut that has found another owner since.
    tell(settleShortcuts(m_settings.shortcuts, layouts));
    const QList<WindowLayout> old = std::exchange(m_layouts, std::move(layouts));
    const auto saved = save(m_layoutStore.url(), [this] { return m_layoutStore.save(m_layouts); });
    m_layoutsStamp = layoutsStamp();
    Q_EMIT layoutsChanged();
    if (onShortcutsChanged && shortcutsOf(old) != shortcutsOf(m_layouts))
        onShortcutsChanged();
    return saved;
}

WindowLayout AppModel::newEmptyLayout()
{
    refreshLayouts();
    WindowLayout layout{.name = uniqueLayoutName(tr("Layout"))};
    layout.displays = Screens::signature();
    for (int display = 0; display < layout.displays.size(); ++display)
        layout.panes << Pane{.display = display};
    m_history.setSaved(layout);
    static_cast<void>(perform(tr("New Layout"), QList(m_layouts) << layout));
    return layout;
}

expected<WindowLayout, QString> AppModel::captureCurrentWindows(const QString &name)
{
    refreshLayouts();
    const WindowLayout captured = m_layoutApplier.engine().capture(uniqueLayoutName(name));
    FlightRecorder::shared().record(u"layout"_s, u"captured %1 panes"_s.arg(captured.panes.size()));
    m_history.setSaved(captured);
    const auto saved = perform(tr("Capture Current Windows"), QList(m_layouts) << captured);
    return saved.map([&captured] { return captured; });
}

std::optional<WindowLayout> AppModel::duplicateLayout(const QUuid &id)
{
    refreshLayouts();
    auto copy = layout(id);
    if (!copy)
        return std::nullopt;
    const qsizetype original = m_layouts.indexOf(*copy);
    copy->id = QUuid::createUuid();
    copy->name = uniqueLayoutName(copy->name);
    copy->shortcut.reset();
    copy->applyOnConnect = false;
    copy->created = Platform::current().clock().date();
    for (Pane &pane : copy->panes)
        pane.id = QUuid::createUuid();
    QList<WindowLayout> layouts = m_layouts;
    layouts.insert(original + 1, *copy);
    m_history.setSaved(*copy);
    static_cast<void>(perform(tr("Duplicate Layout"), std::move(layouts)));
    return copy;
}

void AppModel::deleteLayout(const QUuid &id)
{
    refreshLayouts();
    QList<WindowLayout> layouts = m_layouts;
    if (layouts.removeIf([&id](const WindowLayout &each) { return each.id == id; }))
        static_cast<void>(perform(tr("Delete Layout"), std::move(layouts)));
}

void AppModel::renameLayout(const QUuid &id, const QString &name)
{
    refreshLayouts();
    auto renamed = layout(id);
    if (!renamed || name.trimmed().isEmpty())
        return;
    renamed->name = name.trimmed();
    updateLayout(*renamed, tr("Rename Layout"));
}

void AppModel::updateLayout(const WindowLayout &layout, const QString &undoTitle)
{
    refreshLayouts();
    QList<WindowLayout> layouts = m_layouts;
    const auto present = std::ranges::find(layouts, layout.id, &WindowLayout::id);
    if (present == layouts.end() || *present == layout)
        return;
    *present = layout;
    static_cast<void>(perform(undoTitle, std::move(layouts)));
}

void AppModel::undo()
{
    refreshLayouts();
    if (auto layouts = m_history.undo(m_layouts))
        static_cast<void>(setLayouts(std::move(*layouts)));
}

void AppModel::redo()
{
    refreshLayouts();
    if (auto layouts = m_history.redo(m_layouts))
        static_cast<void>(setLayouts(std::move(*layouts)));
}

void AppModel::saveLayout(const QUuid &id)
{
    refreshLayouts();
    if (const auto saved = layout(id)) {
        m_history.setSaved(*saved);
        Q_EMIT layoutsChanged();
    }
}

void AppModel::revertLayout(const QUuid &id)
{
    refreshLayouts();
    if (auto layouts = m_history.revert(id, m_layouts))
        static_cast<void>(setLayouts(std::move(*layouts)));
}

void AppModel::connectLayouts()
{
    m_layoutApplier.engine().gap = m_settings.gap;
    m_layoutApplier.engine().onPlaced = [this](const AXWindow &window, const Rect &previous) {
        if (onLayoutMoved && window.frame() != previous)
            onLayoutMoved(window, previous);
    };
    m_layoutApplier.onApplied = [this](const QUuid &layout, const QList<PaneResult> &results) {
        lastApply = LastApply{layout, results, Platform::current().clock().date()};
    };
}

QCoro::Task<QList<PaneResult>> AppModel::apply(WindowLayout layout)
{
    return m_layoutApplier.apply(mend(layout), LayoutEngine::Follow::opened);
}

void AppModel::leaveAlone(const AXWindow &window)
{
    m_layoutApplier.engine().leaveAlone(window);
}

WindowLayout AppModel::mend(const WindowLayout &layout)
{
    const WindowLayout whole = mended(layout);
    QList<WindowLayout> layouts = m_layouts;
    if (const qsizetype index = layouts.indexOf(layout); index >= 0 && whole != layout) {
        if (m_history.savedVersion(layout.id) == layout)
            m_history.setSaved(whole);
        layouts[index] = whole;
        static_cast<void>(setLayouts(std::move(layouts)));
    }
    return whole;
}

void AppModel::applyOnConnect()
{
    m_displayWatch.emplace();
    connect(
        &*m_displayWatch, &DisplayWatch::settled, this, [this](const QList<DisplayKey> &connected) {
            refreshLayouts();
            const auto found = std::ranges::find_if(m_layouts, [&](const WindowLayout &each) {
                return each.applyOnConnect && each.matches(connected);
            });
            if (found != m_layouts.end())
                restore(*found);
        });
}

void AppModel::restore(const WindowLayout &layout)
{
    FlightRecorder::shared().record(u"layout"_s, u"its displays have connected"_s);
    std::ignore = m_layoutApplier.apply(mend(layout), LayoutEngine::Follow::all);
}

} // namespace corvane

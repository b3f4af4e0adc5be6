#include "AppModel.h"

#include "FlightRecorder.h"
#include "Platform.h"

#include <algorithm>
#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;

void AppModel::connectLayouts()
{
    connect(&m_layouts, &LayoutLibrary::changed, this, [this] {
        // Nobody could end the recording for a layout that is gone.
        if (!recordingLayout.value().isNull() && !layout(recordingLayout.value()))
            endRecording();
        Q_EMIT layoutsChanged();
    });
    connect(&m_layouts, &LayoutLibrary::shortcutsChanged, this, [this] {
        if (onShortcutsChanged)
            onShortcutsChanged();
    });
    m_layoutApplier.engine().gap = m_settings.gap;
    m_layoutApplier.engine().onPlaced = [this](const AXWindow &window, const Rect &previous) {
        if (onLayoutMoved && window.frame() != previous)
            onLayoutMoved(window, previous);
    };
    m_layoutApplier.onBegun = [this](const QUuid &layout) {
        applyProgress = ApplyProgress{};
        applying = layout;
    };
    m_layoutApplier.engine().onProgress = [this](
                                              const QList<PaneResult> &settled, qsizetype waiting) {
        applyProgress = ApplyProgress{settled, waiting};
    };
    m_layoutApplier.onApplied = [this](const QUuid &layout, const QList<PaneResult> &results) {
        lastApply = LastApply{layout, results, Platform::current().clock().date()};
        applying = QUuid();
    };
}

expected<WindowLayout, QString> AppModel::captureCurrentWindows(const QString &name)
{
    return m_layouts.addCaptured(name, [this](const QString &uniqueName) {
        const WindowLayout captured = m_layoutApplier.engine().capture(uniqueName);
        FlightRecorder::shared().record(
            u"layout"_s, u"captured %1 panes"_s.arg(captured.panes.size()));
        return captured;
    });
}

QCoro::Task<QList<PaneResult>> AppModel::apply(WindowLayout layout)
{
    return m_layoutApplier.apply(m_layouts.mend(layout), LayoutEngine::Follow::opened);
}

void AppModel::leaveAlone(const AXWindow &window)
{
    m_layoutApplier.engine().leaveAlone(window);
}

void AppModel::applyOnConnect()
{
    m_displayWatch.emplace();
    connect(
        &*m_displayWatch, &DisplayWatch::settled, this, [this](const QList<DisplayKey> &connected) {
            refreshLayouts();
            const auto found = std::ranges::find_if(layouts(), [&](const WindowLayout &each) {
                return each.applyOnConnect && each.matches(connected);
            });
            if (found != layouts().end())
                restore(*found);
        });
}

void AppModel::restore(const WindowLayout &layout)
{
    FlightRecorder::shared().record(u"layout"_s, u"its displays have connected"_s);
    std::ignore = m_layoutApplier.apply(m_layouts.mend(layout), LayoutEngine::Follow::all);
}

} // namespace corvane

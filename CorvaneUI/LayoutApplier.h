#pragma once

#include "ActivityEntry.h"
#include "LayoutEngine.h"

namespace corvane {

/// Puts windows back into layouts, and writes down what was moved. Lives as long as the process.
class LayoutApplier final
{
public:
    using WriteDown = std::function<void(const QList<ActivityEntry> &)>;

    /// How long an app that is opened has to show a window.
    static constexpr Clock::Duration launchWait = std::chrono::seconds(8);
    /// How long panes that still have no window wait for one after that.
    static constexpr Clock::Duration retryFor = std::chrono::seconds(20);

    explicit LayoutApplier(WriteDown writeDown);

    std::function<void(const QUuid &layout)> onBegun;
    /// Told of an apply that no newer one has ended.
    std::function<void(const QUuid &layout, const QList<PaneResult> &results)> onApplied;

    [[nodiscard]] LayoutEngine &engine() { return m_engine; }

    /// Applies the layout, and ends an apply that is under way.
    [[nodiscard]] QCoro::Task<QList<PaneResult>> apply(
        WindowLayout layout, LayoutEngine::Follow follow);

private:
    void writeDown(const QList<PaneResult> &placed) const;

    WriteDown m_writeDown;
    LayoutEngine m_engine;
    QString m_layoutName; ///< of the latest apply, the only one that places windows
    quint64 m_applies = 0;
};

} // namespace corvane

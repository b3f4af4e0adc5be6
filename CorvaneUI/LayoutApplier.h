#pragma once

#include "ActivityEntry.h"
#include "LayoutEngine.h"

namespace corvane {

/// Puts windows back into layouts, looks again where that is called for, and writes down what was
/// moved. Lives as long as the process.
class LayoutApplier final
{
public:
    using WriteDown = std::function<void(const QList<ActivityEntry> &)>;

    explicit LayoutApplier(WriteDown writeDown);

    [[nodiscard]] LayoutEngine &engine() { return m_engine; }

    /// Ends an apply that still waits for its apps.
    [[nodiscard]] QCoro::Task<QList<PaneResult>> apply(WindowLayout layout);
    /// After displays came: puts back what the window manager has moved since the latest apply.
    [[nodiscard]] QCoro::Task<> lookAgain();

private:
    struct Placed {
        AXWindow window;
        Rect frame;
    };

    void writeDown(const WindowLayout &layout, const QList<PaneResult> &results) const;

    WriteDown m_writeDown;
    LayoutEngine m_engine;
    QList<Placed> m_placed; ///< by the latest apply
};

} // namespace corvane

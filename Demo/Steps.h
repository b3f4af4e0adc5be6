#pragma once

#include "Desk.h"
#include "Placement.h"

namespace corvane::demo {

/// One placement that a user asks for.
struct Step {
    Application application;
    Placement pressed;
    /// Where the window belongs: further on in a cycle, or what it keeps on another display.
    Placement becomes = pressed;
    bool filledDisplay = false; ///< before, in the desktop's own way
};

/// Steps after which the desk is worth a picture.
struct Chapter {
    QString picture; ///< the name of its file
    QList<Step> steps;
};

[[nodiscard]] QList<Chapter> scenario();

/// The keys that a user presses for a placement.
struct Shortcut {
    desktop::KeyStroke stroke;
    QString text; ///< as a person reads it, such as "Ctrl+Alt+Super+Left"
};

/// Absent for a placement without a shortcut.
[[nodiscard]] std::optional<Shortcut> shortcut(Placement placement);

/// Works out, apart from the program, where each step must put its window.
class Expectation
{
public:
    /// The displays' usable areas, in the order in which "next display" visits them.
    explicit Expectation(QList<Rect> areas) : m_areas(std::move(areas)) { }

    /// Where the program first sees the window.
    void setOriginal(Application application, const Rect &frame)
    {
        m_originals.insert(application, frame);
    }
    /// The frame that the step asks for, for a window that stands at `current`. Every step is asked
    /// for once, since the window's history grows with it.
    [[nodiscard]] Rect ask(const Step &step, const Rect &current);
    /// Whether the window may stand like this when `asked` is what it was told: exactly, short of it
    /// by less than one cell of its size increments, or larger by what it insists on and kept to the
    /// edges of the display that the target touches.
    [[nodiscard]] bool isLanding(
        const Rect &reached, const Rect &asked, const SizeLimits &limits) const;

private:
    [[nodiscard]] qsizetype areaOf(const Rect &frame) const;
    [[nodiscard]] Rect target(const Step &step, const Rect &current) const;

    QList<Rect> m_areas;
    QHash<Application, Rect> m_originals;
    QHash<Application, QList<Rect>> m_history;
};

} // namespace corvane::demo

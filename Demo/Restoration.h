#pragma once

#include "CorvaneProcess.h"
#include "Desk.h"
#include "Expectation.h"
#include "Pane.h"

namespace corvane::demo {

/// What a layout came to for one of its panes.
struct RestoredPane {
    Pane pane;
    QString status; ///< the program's word for it
    std::optional<Application> application; ///< whose window it was
    std::optional<Rect> asked;
    std::optional<Rect> reached;
    bool isBack = false; ///< where it stood when the layout was made
};

/// Keeps the desk as a layout, as a user does, and later has it put back.
class Restoration
{
public:
    Restoration(Desk &desk, desktop::CorvaneProcess &corvane);

    /// What the program says to it; empty when it failed.
    [[nodiscard]] QString capture();
    /// Puts every window elsewhere. False when one of them did not go.
    [[nodiscard]] bool scatter();
    [[nodiscard]] QList<RestoredPane> apply();
    /// Whether the program reported success and each application has its window back.
    [[nodiscard]] bool isWhole(const QList<RestoredPane> &panes) const;

private:
    [[nodiscard]] RestoredPane restoredPane(const QJsonObject &report);
    [[nodiscard]] std::optional<Application> applicationTitled(const QString &windowTitle);

    Desk &m_desk;
    desktop::CorvaneProcess &m_corvane;
    desktop::WindowProbe m_probe;
    Expectation m_expectation;
    QHash<Application, Rect> m_captured;
    bool m_succeeded = false;
};

} // namespace corvane::demo

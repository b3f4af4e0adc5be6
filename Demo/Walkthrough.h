#pragma once

#include "CorvaneProcess.h"
#include "Desk.h"
#include "Expectation.h"
#include "KeyPresser.h"
#include "Pager.h"

namespace corvane::demo {

/// What one step came to.
struct StepResult {
    Step step;
    QString keys; ///< or the command line, for a placement without a shortcut
    Rect asked;
    std::optional<Rect> reached;
    /// Until the window stood there: from the key press on, or for a command its whole run.
    std::optional<double> milliseconds;
    bool landed = false;
    QString report; ///< the program's own words
};

/// Performs the steps as a person does: brings the application forward, presses the keys, looks.
class Walkthrough
{
public:
    Walkthrough(Desk &desk, desktop::CorvaneProcess &corvane);

    [[nodiscard]] StepResult perform(const Step &step);

private:
    using Predicate = std::function<bool(const Rect &)>;

    [[nodiscard]] bool bringForward(const Step &step);
    [[nodiscard]] std::optional<double> press(
        const desktop::KeyStroke &stroke, xcb_window_t window, const Predicate &hasLanded);
    [[nodiscard]] bool isRegistered(Placement placement) const;

    Desk &m_desk;
    desktop::CorvaneProcess &m_corvane;
    desktop::WindowProbe m_probe;
    desktop::Pager m_pager;
    desktop::KeyPresser m_keys;
    Expectation m_expectation;
};

} // namespace corvane::demo

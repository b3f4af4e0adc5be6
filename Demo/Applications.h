#pragma once

#include "Rect.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include <array>

namespace corvane::demo {

/// The programs that are open on the demonstration's desk.
enum class Application {
    terminal,
    source,
    notes,
    gallery,
    icons,
};

inline constexpr std::array applications{Application::terminal, Application::source,
    Application::notes, Application::gallery, Application::icons};

/// For the table.
[[nodiscard]] QString title(Application application);
/// Part of the WM_CLASS of its window.
[[nodiscard]] QByteArray windowClass(Application application);
/// Where its window stands before anybody tidies up: the visible frame.
[[nodiscard]] Rect startFrame(Application application);
/// The program and its arguments; `logPath` is what the terminal follows.
[[nodiscard]] QStringList commandLine(Application application, const QString &logPath);

} // namespace corvane::demo

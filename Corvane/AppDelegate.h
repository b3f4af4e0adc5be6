#pragma once

#include "HotKey.h"
#include "OutcomeReport.h"
#include "ShortcutPreset.h"
#include "WindowManager.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <memory>
#include <vector>

namespace corvane {

/// The resident program: hears the hot keys and has the window manager act on them.
class AppDelegate final : public QObject
{
    Q_OBJECT

public:
    enum class Log { quiet, verbose };

    explicit AppDelegate(Log log);

    void start();
    OutcomeReport perform(Placement placement);

private:
    void watchTrust();
    void registerHotKeys();
    void log(const QString &line) const;

    Log m_log;
    WindowManager m_windowManager;
    ShortcutMap m_shortcuts;
    std::vector<std::unique_ptr<HotKey>> m_hotKeys;
    QTimer m_pruning;
};

/// Performs one placement and gathers what there is to say of it.
[[nodiscard]] OutcomeReport report(WindowManager &windowManager, Placement placement);

} // namespace corvane

#pragma once

#include "HotKey.h"
#include "Mover.h"
#include "SettingsStore.h"

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

    /// Reads what the user's files say.
    explicit AppDelegate(Log log);

    void start();
    OutcomeReport perform(Placement placement);

private:
    void watchTrust();
    void registerHotKeys();
    void recordLaunch() const;
    void log(const QString &line) const;

    Log m_log;
    SettingsStore::Loaded m_settings;
    Mover m_mover;
    std::vector<std::unique_ptr<HotKey>> m_hotKeys;
    QTimer m_pruning;
};

} // namespace corvane

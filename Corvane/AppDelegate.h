#pragma once

#include "Commands.h"
#include "HotKey.h"

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
    [[nodiscard]] Commands &commands() { return m_commands; }

private:
    void watchTrust();
    void registerHotKeys();
    /// Whether the system took it.
    bool registerHotKey(const KeyCombo &combo, std::function<void()> action);
    void keepHistoryPruned();
    void recordLaunch() const;
    void log(const QString &line) const;

    Log m_log;
    AppModel m_model;
    Mover m_mover;
    Commands m_commands;
    std::vector<std::unique_ptr<HotKey>> m_hotKeys;
    QTimer m_pruning;
};

} // namespace corvane

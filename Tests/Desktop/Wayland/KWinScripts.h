#pragma once

#include "PrivateSession.h"

#include <QtCore/QMutex>
#include <QtCore/QThread>
#include <QtCore/QWaitCondition>
#include <QtDBus/QDBusConnection>

namespace corvane::desktop {

/// Takes what a script tells. KWin calls it on the bus.
class ScriptReport : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.corvane.Tests")

public:
    /// What the script with this number told; nothing when it did not in time.
    [[nodiscard]] std::optional<QString> wait(int number, Milliseconds deadline = patience);

public Q_SLOTS:
    void tell(int number, const QString &text);

private:
    QMutex m_mutex;
    QWaitCondition m_isThere;
    QString m_text;
    int m_number = 0;
};

/// Runs scripts inside KWin, each once.
class KWinScripts
{
public:
    explicit KWinScripts(PrivateSession &session);
    ~KWinScripts();
    Q_DISABLE_COPY_MOVE(KWinScripts)

    /// Whether KWin runs scripts by now: at first it takes some that it never runs.
    [[nodiscard]] bool isThere();
    /// What the script returns, which is a function's body: see KWinScripts.cpp for what it finds.
    std::optional<QString> run(const QString &body, Milliseconds deadline = patience);

private:
    QString m_folder;
    QDBusConnection m_bus;
    ScriptReport m_report;
    QThread m_thread; ///< takes the calls while the tests wait
    int m_number = 0;
};

} // namespace corvane::desktop

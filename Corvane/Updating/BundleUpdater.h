#pragma once

#include "UpdateMessage.h"
#include "Updater.h"

#include <QtCore/QProcess>
#include <QtCore/QTimer>

#include <memory>

namespace corvane {

/// Has a program of its own look for newer versions and install them, one process for each pass. This
/// program never speaks to a server.
class BundleUpdater final : public QObject, public Updater
{
    Q_OBJECT

public:
    struct Setup {
        QString helper; ///< the program that does the work
        /// Starts a program that outlives this one. Why that failed; empty when it runs.
        std::function<QString(const QByteArrayList &command)> spawn;
    };

    explicit BundleUpdater(Setup setup);
    ~BundleUpdater() override;

    expected<void, UpdaterError> start(UpdateUserDriver &driver, UpdaterEvents &events) override;
    void check(UpdateCheck check) override;
    bool checksAutomatically() override;
    void setChecksAutomatically(bool checks) override;
    /// What nobody has chosen to install is never downloaded.
    void setDownloadsAutomatically(bool) override { }
    std::optional<QDateTime> lastCheckDate() override;

private:
    /// Tells the user of a version that did not start, so that this one is back.
    void tellWentBack();
    void begin(UpdateCheck check);
    void read();
    void hear(const UpdateMessage &message);
    void hear(const UpdateMessage::Found &found);
    void hear(const UpdateMessage::Failed &failed);
    void say(UpdateWord word);
    /// Nothing more is wanted of this pass.
    void callOff();
    void processEnded();
    void relaunch();
    void fail(const UpdaterError &error);
    void finish(const std::optional<UpdaterError> &error = {});
    void endProcess();
    [[nodiscard]] bool isShown() const { return m_check == UpdateCheck::asked; }

    Setup m_setup;
    UpdateUserDriver *m_driver = nullptr;
    UpdaterEvents *m_events = nullptr;
    std::optional<UpdateCheck> m_check; ///< of the pass under way
    std::unique_ptr<QProcess> m_process;
    QByteArray m_text; ///< what it has begun to say
    QTimer m_patience;
    bool m_isDownloading = false;
    std::optional<UpdateMessage::Installed> m_installed;
};

} // namespace corvane

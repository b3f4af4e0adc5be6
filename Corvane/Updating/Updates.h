#pragma once

#include "InstallKind.h"
#include "UpdateDriver.h"
#include "UpdaterDelegate.h"

#include <memory>

namespace corvane {

/// How this copy of the program is updated, and what does so; no updater in a copy that others update.
struct UpdateSource {
    InstalledCopy installedCopy = {};
    std::unique_ptr<Updater> updater = {};
};

/// Connects the updater with the model and with what is shown of it.
class Updates final
{
public:
    Updates(AppModel &model, UpdateSource source);

    /// Starts the updater. When it does not start, that is recorded.
    void start();
    /// Checks without anybody being told, if the user has checks made automatically, and again every day.
    void readFeedQuietly();
    [[nodiscard]] UpdateDriver &driver() { return m_driver; }

private:
    void connectModel();
    void planNextCheck();

    AppModel &m_model;
    UpdateDriver m_driver;
    UpdaterDelegate m_delegate;
    std::unique_ptr<Updater> m_updater; ///< none, or one that has started
    /// As long as it exists, it comes.
    QScopedPointer<QObject, QScopedPointerDeleteLater> m_nextCheck;
};

} // namespace corvane

#pragma once

#include "ChooseRelease.h"
#include "DataFolder.h"
#include "Fetch.h"
#include "InstallFolder.h"
#include "SealedFile.h"
#include "UpdateMessage.h"
#include "UpdateState.h"

#include <functional>
#include <memory>

namespace corvane {

/// Looks once whether there is a newer version and, where the user wants it, makes it the one that
/// starts from then on.
class UpdatePass final : public QObject
{
public:
    struct Setup {
        UpdateKeys keys;
        QUrl feed;
        RunningCopy running; ///< without what is remembered of earlier passes
        QDateTime built; ///< the running copy
        Asker asker = Asker::schedule;
        QString folder = InstallFolder::standardPath();
        QString stateFolder = dataFolder();
    };
    struct Listener {
        std::function<void(const UpdateMessage &message)> onMessage;
        /// Called once, the last of all.
        std::function<void()> onEnd;
    };

    UpdatePass(const Setup &setup, Listener listener);

    void start();
    /// What the user wants.
    void hear(UpdateWord word);

private:
    enum class Stage { checking, offering, downloading, ready, over };

    void readFeed(const Fetch::Body &body);
    [[nodiscard]] expected<Feed, UpdateProblem> believe(
        const QByteArray &document, const KnownTime &time);
    void fetchNotes();
    void download();
    void write(const QByteArray &piece, qint64 at);
    void unpack();
    [[nodiscard]] InstallResult<void> unpackAndTry(int file);
    void install();
    void remember();
    void tell(const UpdateMessage &message) const;
    void fail(const UpdateMessage::Failed &failed);
    void fail(const InstallFailure &failure);
    void finish();

    Setup m_setup;
    Listener m_listener;
    Stage m_stage = Stage::checking;
    UpdateState m_state;
    std::optional<ReleaseChoice> m_choice;
    std::unique_ptr<Fetch> m_feed, m_notes, m_download;
    std::optional<InstallFolder> m_folder;
    std::optional<FileDescriptor> m_staging;
    std::optional<SealedFile> m_file;
    std::optional<InstallFailure> m_refused; ///< why the file that was received last is not wanted
    qint64 m_untold = 0; ///< of what has been received, in bytes
};

} // namespace corvane

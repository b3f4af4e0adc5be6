#pragma once

#include "Expected.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <functional>
#include <optional>

namespace corvane {

/// A newer version that can be had.
struct UpdateCandidate {
    QString version; ///< for people
    QString build; ///< what updaters compare
    std::optional<QDateTime> released = {};

    bool operator==(const UpdateCandidate &) const = default;
};

/// What went wrong in a pass.
struct UpdaterError {
    enum class Kind {
        downloadStopped, ///< part way
        other,
    };

    Kind kind = Kind::other;
    QString domain; ///< the part that failed
    int code = 0; ///< in that domain
    QString description; ///< one sentence for the user

    bool operator==(const UpdaterError &) const = default;
};

/// Who wants to know whether there is a newer version.
enum class UpdateCheck {
    asked, ///< the user, who watches the pass
    quiet, ///< nobody: only `UpdaterEvents` hears of it
};

enum class UpdateChoice { install, later };

/// How far a version that was found has come in an earlier pass.
enum class UpdateProgress { notDownloaded, downloaded, installing };

/// Shows the user a pass through the updater, and hands back what they want. A function that came with a
/// call is called at most once, and not after the updater has dismissed the pass. Main thread only.
class UpdateUserDriver
{
public:
    using Cancellation = std::function<void()>; ///< ends the pass
    using Acknowledgement = std::function<void()>; ///< the user has been told
    using Reply = std::function<void(UpdateChoice)>;

    virtual ~UpdateUserDriver() = default;

    virtual void showUserInitiatedUpdateCheck(Cancellation cancellation) = 0;
    virtual void showUpdateFound(
        const UpdateCandidate &candidate, UpdateProgress progress, Reply reply) = 0;
    /// The page as it was downloaded: text in the form of a web page, from somewhere else.
    virtual void showUpdateReleaseNotes(const QByteArray &page) = 0;
    virtual void showUpdateReleaseNotesFailedToDownload(const UpdaterError &error) = 0;
    virtual void showUpdateNotFound(Acknowledgement acknowledgement) = 0;
    /// May come at any time, without a check before it.
    virtual void showUpdaterError(const UpdaterError &error, Acknowledgement acknowledgement) = 0;
    virtual void showDownloadInitiated(Cancellation cancellation) = 0;
    virtual void showDownloadExpects(quint64 bytes) = 0;
    virtual void showDownloadReceived(quint64 moreBytes) = 0;
    virtual void showDownloadDidStartExtracting() = 0;
    virtual void showExtractionProgress(double share) = 0; ///< 0 to 1
    /// All is prepared: with `install`, the program quits and comes back as the new version.
    virtual void showReadyToInstallAndRelaunch(Reply reply) = 0;
    virtual void showInstalling(
        bool hasApplicationTerminated, std::function<void()> retryTerminating) = 0;
    virtual void showInstalled(bool hasRelaunched, Acknowledgement acknowledgement) = 0;
    virtual void showInFocus() = 0;
    /// The pass is over, whatever is still shown.
    virtual void dismiss() = 0;
};

/// Hears of every pass, quiet ones too, and says what the updater needs to know. Main thread only.
class UpdaterEvents
{
public:
    virtual ~UpdaterEvents() = default;

    /// Where the feed is instead of where the program was built to look; empty for that place.
    [[nodiscard]] virtual QString feedAddress() = 0;
    /// Also when the updater checks by itself.
    virtual void willCheck(UpdateCheck check) = 0;
    virtual void didFindUpdate(UpdateCheck check, const UpdateCandidate &candidate) = 0;
    virtual void didNotFindUpdate(UpdateCheck check) = 0;
    /// A check, and what followed from it, is over. No error when there is nothing newer or the user
    /// wants no more.
    virtual void didFinishUpdateCycle(
        UpdateCheck check, const std::optional<UpdaterError> &error) = 0;
    virtual void willRelaunchApplication() = 0;
};

/// Looks for newer versions of the program and installs them. One pass at a time. Main thread only.
class Updater
{
public:
    virtual ~Updater() = default;

    /// To be called once, before all else. Both live longer than the updater.
    [[nodiscard]] virtual expected<void, UpdaterError> start(
        UpdateUserDriver &driver, UpdaterEvents &events) = 0;
    /// Looks for a newer version. While the user watches a pass, that one is shown to them instead; a
    /// quiet check gives way to one that is asked for, and does not begin beside any other.
    virtual void check(UpdateCheck check) = 0;

    /// Whether it checks by itself, once a day. Remembered from run to run.
    [[nodiscard]] virtual bool checksAutomatically() = 0;
    virtual void setChecksAutomatically(bool checks) = 0;
    /// Whether it downloads what it finds before anybody has chosen to install it.
    virtual void setDownloadsAutomatically(bool downloads) = 0;
    /// Of this or an earlier run, whether or not the check reached the server.
    [[nodiscard]] virtual std::optional<QDateTime> lastCheckDate() = 0;
};

} // namespace corvane

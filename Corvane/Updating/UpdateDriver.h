#pragma once

#include "Updater.h"
#include "UpdateSession.h"

namespace corvane {

/// Turns what the updater shows into the stages of a session, and what the user does there into the
/// updater's replies.
class UpdateDriver final : public UpdateUserDriver
{
public:
    UpdateDriver();

    std::function<void()> onShow = [] {}; ///< shows the session's sheet, in front
    std::function<void()> onClose = [] {}; ///< of the sheet, whatever it shows
    std::function<void()> onCheck = [] {}; ///< begins another pass
    QString host; ///< of the server that updates come from

    [[nodiscard]] UpdateSession &session() { return m_session; }

    void showUserInitiatedUpdateCheck(Cancellation cancellation) override;
    void showUpdateFound(
        const UpdateCandidate &candidate, UpdateProgress progress, Reply reply) override;
    void showUpdateReleaseNotes(const QByteArray &page) override;
    void showUpdateReleaseNotesFailedToDownload(const UpdaterError &error) override;
    void showUpdateNotFound(Acknowledgement acknowledgement) override;
    void showUpdaterError(const UpdaterError &error, Acknowledgement acknowledgement) override;
    void showDownloadInitiated(Cancellation cancellation) override;
    void showDownloadExpects(quint64 bytes) override;
    void showDownloadReceived(quint64 moreBytes) override;
    void showDownloadDidStartExtracting() override;
    void showExtractionProgress(double share) override;
    void showReadyToInstallAndRelaunch(Reply reply) override;
    void showInstalling(
        bool hasApplicationTerminated, std::function<void()> retryTerminating) override;
    void showInstalled(bool hasRelaunched, Acknowledgement acknowledgement) override;
    void showInFocus() override;
    void dismiss() override;

private:
    void begin();
    void chooseInstall();
    void callOff();
    [[nodiscard]] QString sentence(const UpdaterError &error) const;

    UpdateSession m_session;
    Cancellation m_cancellation;
    Reply m_reply; ///< to what waits for the user's choice
    bool m_isChecking = false;
    bool m_hasChosenInstall = false;
    bool m_isReady = false; ///< to install
    /// The user wants no more of this pass; what the updater had still to say is not shown.
    bool m_isCalledOff = false;
    bool m_choosesByItself; ///< as a test has it
};

} // namespace corvane

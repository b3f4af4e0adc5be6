#pragma once

#include "Sheet.h"
#include "UpdateSession.h"

class QVBoxLayout;

namespace corvane {

class NotesView;
class UpdateBar;

/// Shows a session, stage by stage, and tells it what the user wants.
class UpdateSheet final : public Sheet
{
    Q_OBJECT

public:
    UpdateSheet(UpdateSession &session, QWidget *window);
    ~UpdateSheet() override;

    [[nodiscard]] const UpdateSession &session() const { return m_session; }
    /// Closes it because the pass is over. The session is told nothing.
    void dismiss();
    void done(int result) override;
    /// Refused where there is no way back.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showStage();
    void beginBody();
    // What has the focus then.
    QWidget *showChecking();
    QWidget *showFound();
    QWidget *showDownloading();
    QWidget *showExtracting();
    QWidget *showInstalling();
    QWidget *showUpToDate();
    QWidget *showFailed(const QString &message);

    void setHead(const QString &label, BoardText::Tone tone = &Board::Palette::muted);
    void addTitle(const QString &title);
    void addText(const QString &text, BoardText::Tone tone = &Board::Palette::fore);
    void addVersion();
    void addNotes();
    void addBar();
    void addAmounts();
    QPushButton *addEnd(const QString &title);
    QPushButton *addDefault(const QString &title, const std::function<void()> &act);
    void openNotes() const;

    void showCandidate();
    void showProgressSoon();
    void showProgress();
    void tellClosed();

    UpdateSession &m_session;
    BoardText *m_label;
    QWidget *m_body = nullptr; ///< what its stage shows
    QVBoxLayout *m_stage = nullptr; ///< lays that out
    // Each is there while its stage shows.
    BoardText *m_released = nullptr;
    NotesView *m_notes = nullptr;
    QWidget *m_missingNotes = nullptr;
    UpdateBar *m_bar = nullptr;
    BoardText *m_amount = nullptr;
    BoardText *m_percent = nullptr;
    bool m_isProgressDue = false;
    bool m_isClosed = false;
};

} // namespace corvane

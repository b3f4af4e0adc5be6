#include "UpdateSheet.h"

#include "BoardLink.h"
#include "Identity.h"
#include "Match.h"
#include "NotesView.h"
#include "Platform.h"
#include "UpdateBar.h"
#include "Well.h"

#include <QtCore/QLocale>
#include <QtCore/QTimeZone>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Stage = UpdateSession::Stage;

constexpr Clock::Duration progressInterval = 250ms;

QString siteName()
{
    return QUrl(Identity::website).host();
}

/// The day on which it was released where it was released.
QString releaseDate(const QDateTime &released)
{
    static const QTimeZone zone("America/New_York");
    const QDateTime there = zone.isValid() ? released.toTimeZone(zone) : released.toUTC();
    return QLocale().toString(there.date(), UpdateSheet::tr("MMM d, yyyy"));
}

QString megabytes(quint64 bytes)
{
    return UpdateSheet::tr("%1 MB").arg(QLocale().toString(double(bytes) / 1e6, 'f', 1));
}

BoardText *mediumText(const QString &text)
{
    auto *line = new BoardText(text);
    QFont font = line->font();
    font.setWeight(QFont::Medium);
    line->setFont(font);
    return line;
}

bool isIrrevocable(const Stage &stage)
{
    return std::holds_alternative<Stage::Extracting>(stage.value)
        || std::holds_alternative<Stage::Installing>(stage.value);
}

} // namespace

UpdateSheet::UpdateSheet(UpdateSession &session, QWidget *window)
    : Sheet(tr("Corvane Update"), 500, window), m_session(session), m_label(addHead({}))
{
    connect(&session, &UpdateSession::stageChanged, this, &UpdateSheet::showStage);
    connect(&session, &UpdateSession::candidateChanged, this, &UpdateSheet::showCandidate);
    connect(&session, &UpdateSession::progressChanged, this, &UpdateSheet::showProgressSoon);
    showStage();
}

// It goes with its window, without being closed.
UpdateSheet::~UpdateSheet()
{
    tellClosed();
}

void UpdateSheet::dismiss()
{
    if (!std::exchange(m_isClosed, true))
        Sheet::done(QDialog::Rejected);
}

void UpdateSheet::done(int result)
{
    tellClosed();
    Sheet::done(result);
}

void UpdateSheet::reject()
{
    if (!isIrrevocable(m_session.stage))
        Sheet::reject();
}

void UpdateSheet::tellClosed()
{
    if (std::exchange(m_isClosed, true))
        return;
    match(
        m_session.stage.value().value, [this](Stage::Checking) { m_session.onCancel(); },
        [this](Stage::Found) { m_session.onLater(); },
        [this](Stage::Downloading) { m_session.onCancel(); }, [](Stage::Extracting) {},
        [](Stage::Installing) {}, [this](Stage::UpToDate) { m_session.onClose(); },
        [this](const Stage::Failed &) { m_session.onClose(); });
}

void UpdateSheet::showStage()
{
    if (m_isClosed)
        return;
    clearButtons();
    beginBody();
    m_released = m_amount = m_percent = nullptr;
    m_notes = nullptr;
    m_missingNotes = nullptr;
    m_bar = nullptr;
    QWidget *focused = match(
        m_session.stage.value().value, [this](Stage::Checking) { return showChecking(); },
        [this](Stage::Found) { return showFound(); },
        [this](Stage::Downloading) { return showDownloading(); },
        [this](Stage::Extracting) { return showExtracting(); },
        [this](Stage::Installing) { return showInstalling(); },
        [this](Stage::UpToDate) { return showUpToDate(); },
        [this](const Stage::Failed &failed) { return showFailed(failed.message); });
    m_body->setVisible(true);
    focused->setFocus();
}

void UpdateSheet::beginBody()
{
    if (m_body) {
        m_body->hide();
        m_body->deleteLater();
    }
    m_body = new QWidget;
    m_stage = new QVBoxLayout(m_body);
    m_stage->setContentsMargins(0, 0, 0, 0);
    m_stage->setSpacing(Board::length(8));
    content().addWidget(m_body);
}

QWidget *UpdateSheet::showChecking()
{
    setHead(tr("CHECKING"));
    addTitle(tr("Looking for a newer Corvane"));
    addText(tr("Reading %1 for a newer version.").arg(siteName()), &Board::Palette::muted);
    return addEnd(tr("Cancel"));
}

QWidget *UpdateSheet::showFound()
{
    setHead(tr("UPDATE AVAILABLE"), &Board::Palette::accentType);
    addVersion();
    addNotes();
    auto *link = new BoardLink(tr("Release Notes"), BoardLink::Target::external);
    connect(link, &BoardLink::clicked, this, &UpdateSheet::openNotes);
    addButton(link, QDialogButtonBox::ResetRole);
    addButton(tr("Later"), QDialogButtonBox::RejectRole);
    QPushButton *install =
        addDefault(tr("Install and Relaunch"), [this] { m_session.onInstall(); });
    showCandidate();
    return install;
}

QWidget *UpdateSheet::showDownloading()
{
    setHead(tr("UPDATING"));
    addTitle(tr("Downloading"));
    addBar();
    addAmounts();
    showProgress();
    return addEnd(tr("Cancel"));
}

QWidget *UpdateSheet::showExtracting()
{
    setHead(tr("UPDATING"));
    addTitle(tr("Unpacking"));
    addBar();
    addText(tr("Checking the signature and unpacking."), &Board::Palette::muted);
    showProgress();
    return m_bar;
}

QWidget *UpdateSheet::showInstalling()
{
    setHead(tr("UPDATING"));
    addTitle(tr("Installing"));
    addBar();
    addText(tr("Corvane closes and opens again as v%1 in a moment.").arg(m_session.version.value()),
        &Board::Palette::muted);
    return m_bar;
}

QWidget *UpdateSheet::showUpToDate()
{
    setHead(tr("UP TO DATE"), &Board::Palette::ready);
    addTitle(tr("You have the newest Corvane"));
    addText(tr("Nothing newer is out. Corvane checks once a day and its menu says when there is."),
        &Board::Palette::muted);
    QPushButton *close = addEnd(tr("Close"));
    close->setDefault(true);
    return close;
}

QWidget *UpdateSheet::showFailed(const QString &message)
{
    setHead(tr("UPDATE STOPPED"), &Board::Palette::attention);
    addTitle(tr("The update did not finish"));
    m_stage->addWidget(mediumText(tr("What happened")));
    addText(message);
    addText(tr("The version you have is untouched and keeps working."), &Board::Palette::muted);
    addEnd(tr("Close"));
    return addDefault(tr("Try Again"), [this] { m_session.onRetry(); });
}

void UpdateSheet::setHead(const QString &label, BoardText::Tone tone)
{
    m_label->setText(label);
    m_label->setTone(tone);
}

/// The first thing that is heard of the stage, too.
void UpdateSheet::addTitle(const QString &title)
{
    m_stage->addWidget(headline(title));
    setAccessibleDescription(title);
}

void UpdateSheet::addText(const QString &text, BoardText::Tone tone)
{
    m_stage->addWidget(new BoardText(text, Board::Type::body, tone));
}

void UpdateSheet::addVersion()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(Board::length(10));
    auto *version = new BoardText(m_session.version, Board::Type::numerals);
    QFont font = version->font();
    font.setPixelSize(Board::length(22));
    version->setFont(font);
    row->addWidget(version, 0, Qt::AlignBaseline);
    m_released = new BoardText({}, Board::Type::secondary, &Board::Palette::muted);
    row->addWidget(m_released, 1, Qt::AlignBaseline);
    m_stage->addLayout(row);
    setAccessibleDescription(m_session.version);
}

void UpdateSheet::addNotes()
{
    m_stage->addSpacing(Board::length(4));
    auto *label = new BoardText(tr("What's New"), Board::Type::label, &Board::Palette::muted);
    m_stage->addWidget(label);
    m_notes = new NotesView;
    m_notes->setAccessibleName(label->text());
    m_notes->setPlaceholderText(tr("Loading what's new…"));
    m_stage->addWidget(new Well(m_notes, 164));
    m_missingNotes = new QWidget;
    auto *column = new QVBoxLayout(m_missingNotes);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Board::length(8));
    column->addWidget(new BoardText(tr("The notes for this version did not load here.")));
    auto *link = new BoardLink(tr("Read them on %1").arg(siteName()), BoardLink::Target::external);
    connect(link, &BoardLink::clicked, this, &UpdateSheet::openNotes);
    column->addWidget(link, 0, Qt::AlignLeading);
    m_stage->addWidget(m_missingNotes);
}

void UpdateSheet::addBar()
{
    m_stage->addSpacing(Board::length(4));
    m_bar = new UpdateBar(accessibleDescription());
    m_stage->addWidget(m_bar);
    m_stage->addSpacing(Board::length(4));
}

void UpdateSheet::addAmounts()
{
    auto *row = new QHBoxLayout;
    m_amount = new BoardText({}, Board::Type::numerals, &Board::Palette::muted);
    m_percent = new BoardText({}, Board::Type::numerals, &Board::Palette::muted);
    row->addWidget(m_amount, 1);
    row->addWidget(m_percent);
    m_stage->addLayout(row);
}

/// Ends what is shown, as Esc does.
QPushButton *UpdateSheet::addEnd(const QString &title)
{
    return Sheet::addButton(title, QDialogButtonBox::RejectRole);
}

QPushButton *UpdateSheet::addDefault(const QString &title, const std::function<void()> &act)
{
    QPushButton *button = Sheet::addButton(title, QDialogButtonBox::AcceptRole);
    connect(button, &QPushButton::clicked, this, act);
    button->setDefault(true);
    return button;
}

void UpdateSheet::openNotes() const
{
    Platform::current().session().openAddress(m_session.notesURL);
}

void UpdateSheet::showCandidate()
{
    if (!m_notes)
        return;
    const auto &released = m_session.released.value();
    m_released->setText(released ? tr("Released %1").arg(releaseDate(*released)) : QString());
    const bool isMissing = m_session.notesFailed;
    m_missingNotes->setVisible(isMissing);
    m_notes->parentWidget()->setVisible(!isMissing);
    m_notes->setNotes(m_session.notes);
}

// A number that changes all the time cannot be read.
void UpdateSheet::showProgressSoon()
{
    if (std::exchange(m_isProgressDue, true))
        return;
    Platform::current().clock().after(progressInterval, this, [this] {
        m_isProgressDue = false;
        showProgress();
    });
}

void UpdateSheet::showProgress()
{
    if (std::holds_alternative<Stage::Extracting>(m_session.stage.value().value))
        return m_bar->setShare(m_session.extraction);
    if (!m_amount)
        return;
    const quint64 received = m_session.received;
    const quint64 expected = m_session.expected;
    if (expected == 0) {
        m_bar->setShare(std::nullopt);
        m_amount->setText(megabytes(received));
        return m_percent->clear();
    }
    const double share = std::min(double(received) / double(expected), 1.0);
    m_bar->setShare(share);
    m_amount->setText(tr("%1 of %2").arg(megabytes(received), megabytes(expected)));
    m_percent->setText(tr("%1 %").arg(qRound(share * 100)));
}

// The notes scroll wherever the focus is.
void UpdateSheet::keyPressEvent(QKeyEvent *event)
{
    const bool isPage = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    if (m_notes && isPage)
        m_notes->verticalScrollBar()->triggerAction(event->key() == Qt::Key_PageUp
                ? QAbstractSlider::SliderPageStepSub
                : QAbstractSlider::SliderPageStepAdd);
    else
        Sheet::keyPressEvent(event);
}

} // namespace corvane

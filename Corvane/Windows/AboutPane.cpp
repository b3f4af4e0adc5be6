#include "AboutPane.h"

#include "BoardLink.h"
#include "BoardStyle.h"
#include "BoardText.h"
#include "Build.h"
#include "Card.h"
#include "CorvaneMark.h"
#include "DataFolder.h"
#include "Drawing.h"
#include "Identity.h"
#include "Match.h"
#include "Notices.h"
#include "Platform.h"
#include "Switch.h"
#include "Symbol.h"

#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtWidgets/QPushButton>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Whether an update can be had.
struct Status {
    QString sentence;
    QString symbol;
    BoardText::Tone tone = &Board::Palette::muted;
};

Status statusOf(const UpdateStatus &status)
{
    if (status.checking)
        return {AboutPane::tr("Checking"), u"circle.dotted"_s};
    if (status.failed)
        return {AboutPane::tr("The update server could not be reached."),
            u"exclamationmark.triangle"_s, &Board::Palette::attention};
    return match(
        status.availability.value,
        [](UpdateAvailability::Unknown) {
            return Status{AboutPane::tr("Not checked yet"), u"minus"_s};
        },
        [](UpdateAvailability::UpToDate) {
            return Status{
                AboutPane::tr("You're up to date."), u"checkmark"_s, &Board::Palette::ready};
        },
        [](const UpdateAvailability::Available &available) {
            return Status{AboutPane::tr("%1 is yours to install.").arg(available.version),
                u"sparkles"_s, &Board::Palette::accentType};
        });
}

/// When somebody last looked, as far as it is known.
QString checkedSuffix(const UpdateStatus &status)
{
    if (!status.lastChecked)
        return {};
    const QDateTime at = status.lastChecked->toLocalTime();
    const QLocale locale;
    return AboutPane::tr(" · checked %1")
        .arg(at.date() == QDate::currentDate() ? locale.toString(at.time(), QLocale::ShortFormat)
                                               : locale.toString(at.date(), QLocale::ShortFormat));
}

/// What tells one build of a version from another.
QString buildSuffix()
{
    const auto committed = Build::committed();
    return committed
        ? u" · %1 · %2"_s.arg(Build::sha().first(std::min<qsizetype>(7, Build::sha().size())),
            QLocale().toString(committed->date(), QLocale::ShortFormat))
        : QString();
}

} // namespace

AboutPane::AboutPane(AppModel &model, QWidget *parent)
    : SettingsPage(SettingsPane::about, parent), m_model(model)
{
    addProduct();
    addData();
    addUpdates();
    scrolledContent().addStretch(1);
    connect(&model, &AppModel::updateStatusChanged, this, &AboutPane::showUpdates);
    connect(&model, &AppModel::automaticUpdateChecksChanged, this, &AboutPane::showUpdates);
    showUpdates();
}

void AboutPane::addProduct()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(Board::length(18));
    row->addWidget(CorvaneMark::widget(64));
    auto *texts = new QVBoxLayout;
    texts->setSpacing(Board::length(6));
    auto *name = new BoardText(Build::name(), Board::Type::label);
    QFont large = name->font();
    large.setPixelSize(Board::length(17));
    name->setFont(large);
    texts->addWidget(name);
    texts->addWidget(new BoardText(
        tr("WINDOWS WHERE YOU WANT THEM"), Board::Type::label, &Board::Palette::muted));
    auto *website = new BoardLink(tr("Corvane Website"), BoardLink::Target::external);
    connect(website, &BoardLink::clicked, this,
        [] { Platform::current().session().openAddress(QUrl(Identity::website)); });
    texts->addWidget(website);
    row->addLayout(texts, 1);
    auto *tour = new QPushButton(tr("Corvane Tour"));
    tour->setIcon(BoardStyle::icon(u"sparkles"_s, &Board::Palette::fore));
    connect(tour, &QPushButton::clicked, this, [this] { m_model.replayTour(); });
    auto *report = new QPushButton(tr("Report a Problem…"));
    report->setIcon(BoardStyle::icon(u"exclamationmark.bubble"_s, &Board::Palette::fore));
    connect(report, &QPushButton::clicked, this, [this] { m_model.pendingReport = QString(); });
    auto *actions = new QVBoxLayout;
    actions->setSpacing(Board::length(8));
    actions->addWidget(tour);
    actions->addWidget(report);
    row->addLayout(actions);
    row->setAlignment(actions, Qt::AlignTrailing | Qt::AlignVCenter);
    scrolledContent().addLayout(row);
}

void AboutPane::addData()
{
    Card &card = addSection(tr("Your Data"));
    card.addRow(tr("What Leaves This Mac"), tr("No telemetry, no analytics, no account."), nullptr);
    auto *show = new QPushButton(tr("Show in Finder"));
    show->setIcon(BoardStyle::icon(u"folder"_s, &Board::Palette::fore));
    connect(show, &QPushButton::clicked, this, [] {
        Platform::current().session().reveal(
            QUrl::fromLocalFile(dataFolder() + u"/settings.json"_s));
    });
    card.addRow(tr("Everything else stays on this Mac, as readable files."),
        abbreviatedPath(dataFolder()), show);
}

void AboutPane::addUpdates()
{
    m_updates = &addSection(tr("Updates"));
}

void AboutPane::showUpdates()
{
    empty(*m_updates->layout());
    const UpdateStatus &status = m_model.updateStatus;
    const QString running = tr("Running v%1").arg(Build::version());
    if (!m_model.onCheckForUpdatesNow) {
        m_updates->addRow(running + buildSuffix(), {}, nullptr);
        return;
    }
    auto *actions = new QWidget;
    auto *row = new QHBoxLayout(actions);
    row->setContentsMargins(0, 0, 0, 0);
    auto *check = new QPushButton(tr("Check Now"));
    check->setEnabled(!status.checking);
    connect(check, &QPushButton::clicked, this, [this] { m_model.onCheckForUpdatesNow(); });
    row->addWidget(check);
    if (std::holds_alternative<UpdateAvailability::Available>(status.availability.value)
        && m_model.onInstallUpdate) {
        auto *install = new QPushButton(tr("Install…"));
        install->setDefault(true);
        connect(install, &QPushButton::clicked, this, [this] { m_model.onInstallUpdate(); });
        row->addWidget(install);
    }
    const Status shown = statusOf(status);
    m_updates->addRow(shown.sentence, running + checkedSuffix(status), actions,
        Drawing::ofSymbol(16, shown.symbol, shown.tone));
    if (const auto checks = m_model.automaticUpdateChecks.value()) {
        auto *lever = new Switch;
        lever->setChecked(*checks);
        connect(lever, &Switch::toggled, this,
            [this](bool isOn) { m_model.setAutomaticUpdateChecks(isOn); });
        m_updates->addRow(tr("Check for updates automatically"),
            tr("Once a day. The menu says when there is one."), lever);
    }
}

} // namespace corvane

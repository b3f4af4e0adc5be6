#include "AboutPane.h"

#include "BoardLink.h"
#include "BoardStyle.h"
#include "BoardText.h"
#include "Build.h"
#include "Buttons.h"
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
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
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
        [&](UpdateAvailability::Unknown) {
            return Status{
                status.lastChecked ? status.statusLine() : AboutPane::tr("Not checked yet"),
                u"minus"_s};
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

/// When the server was last asked, as far as it is known, and whether it will be again.
QString checkedSuffix(const AppModel &model)
{
    const UpdateStatus &status = model.updateStatus;
    if (!status.lastChecked)
        return model.automaticUpdateChecks.value() == false
            ? AboutPane::tr(" · automatic checks are off")
            : QString();
    const QDateTime at = status.lastChecked->toLocalTime();
    const QLocale locale;
    const QString when = at.date() == Platform::current().clock().date().toLocalTime().date()
        ? locale.toString(at.time(), QLocale::ShortFormat)
        : locale.toString(at.date(), AboutPane::tr("MMM d"));
    return status.failed ? AboutPane::tr(" · last checked %1").arg(when)
                         : AboutPane::tr(" · checked %1").arg(when);
}

QString runningLine()
{
    return AboutPane::tr("Running v%1").arg(Build::version());
}

QString flatpakSentence(const QString &maker)
{
    return maker.isEmpty()
        ? AboutPane::tr("This copy came as a Flatpak, so its maker updates it.")
        : AboutPane::tr("This copy came as a Flatpak from %1, who updates it.").arg(maker);
}

QString imageSentence(const QString &maker)
{
    return maker.isEmpty()
        ? AboutPane::tr("This copy came as an AppImage, so its maker updates it.")
        : AboutPane::tr("This copy came as an AppImage from %1, who updates it.").arg(maker);
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
    m_updates = &addSection(tr("Updates"));
    m_updates->setObjectName(u"updates"_s);
    scrolledContent().addStretch(1);
    connect(&model, &AppModel::updateStatusChanged, this, &AboutPane::showUpdates);
    connect(&model, &AppModel::automaticUpdateChecksChanged, this, &AboutPane::showUpdates);
    connect(&model, &AppModel::installedCopyChanged, this, &AboutPane::showUpdates);
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

void AboutPane::showUpdates()
{
    const bool hadFocus = m_updates->isAncestorOf(window()->focusWidget());
    empty(*m_updates->layout());
    const InstalledCopy &installedCopy = m_model.installedCopy;
    switch (installedCopy.kind) {
    case InstallKind::development:
        addKeeper(tr("Built from source"), runningLine() + buildSuffix());
        break;
    case InstallKind::package:
        addPackage();
        break;
    case InstallKind::flatpak:
        addKeeper(flatpakSentence(installedCopy.maker), runningLine());
        break;
    case InstallKind::image:
        addKeeper(imageSentence(installedCopy.maker), runningLine());
        break;
    case InstallKind::bundle:
        if (!installedCopy.isInPlace)
            addKeeper(tr("This copy is not in the Applications folder, so it cannot update itself. "
                         "Move it there and open it again."),
                runningLine());
        else if (m_model.onCheckForUpdatesNow)
            addUpdateStatus();
        else
            addKeeper(tr("This build has no updater."), runningLine() + buildSuffix());
    }
    if (hadFocus)
        takeFocus();
}

/// What had the focus is gone, or cannot be pressed now.
void AboutPane::takeFocus()
{
    const QLayout &rows = *m_updates->layout();
    for (int i = 0; i < rows.count(); ++i) {
        QWidget *row = rows.itemAt(i)->widget();
        row->setVisible(true); // at once: what is hidden takes no focus
        for (auto *each : row->findChildren<QAbstractButton *>()) {
            if (each->isEnabled())
                return each->setFocus();
        }
    }
}

void AboutPane::addKeeper(const QString &sentence, const QString &explanation, QWidget *control)
{
    m_updates->addRow(sentence, explanation, control,
        Drawing::ofSymbol(16, u"internaldrive"_s, &Board::Palette::muted));
}

// The file that came with the package names a command where there is no program with windows.
void AboutPane::addPackage()
{
    const QString sentence =
        tr("This copy came with a package, so your package manager updates it.");
    const QString command = m_model.installedCopy.value().command;
    if (command.isEmpty())
        return addKeeper(sentence, runningLine(), pushButton(tr("Open Software"), this, [] {
            Platform::current().session().openAddress(
                QUrl(u"appstream:"_s + Identity::bundleIdentifier));
        }));
    addKeeper(sentence, runningLine() + u" · "_s + command,
        pushButton(tr("Copy Command"), this,
            [command] { QGuiApplication::clipboard()->setText(command); }));
}

void AboutPane::addUpdateStatus()
{
    const UpdateStatus &status = m_model.updateStatus;
    auto *actions = new QWidget;
    auto *buttons = new QHBoxLayout(actions);
    buttons->setContentsMargins(0, 0, 0, 0);
    auto *check = pushButton(tr("Check Now"), this, [this] { m_model.onCheckForUpdatesNow(); });
    check->setEnabled(!status.checking);
    buttons->addWidget(check);
    if (std::holds_alternative<UpdateAvailability::Available>(status.availability.value)) {
        auto *install = pushButton(tr("Install…"), this, [this] { m_model.onInstallUpdate(); });
        install->setDefault(true);
        buttons->addWidget(install);
    }
    const Status shown = statusOf(status);
    QWidget *row = m_updates->addRow(shown.sentence, runningLine() + checkedSuffix(m_model),
        actions, Drawing::ofSymbol(16, shown.symbol, shown.tone));
    const auto line =
        status.lastCheckLine(Platform::current().clock().date(), QTimeZone::systemTimeZone());
    row->setToolTip(line.value_or(QString()));
    if (m_model.automaticUpdateChecks.value())
        addAutomaticChecks();
}

void AboutPane::addAutomaticChecks()
{
    auto *lever = new Switch;
    lever->setChecked(*m_model.automaticUpdateChecks.value());
    connect(lever, &Switch::toggled, this,
        [this](bool isOn) { m_model.setAutomaticUpdateChecks(isOn); });
    m_updates->addRow(tr("Check for updates automatically"),
        tr("Once a day. The menu says when there is one."), lever);
}

} // namespace corvane

#include "WindowOpener.h"

#include "BoardStyle.h"
#include "DataFolder.h"
#include "Identity.h"
#include "Platform.h"
#include "ReportSheet.h"
#include "ReportWiring.h"
#include "SettingsWindow.h"
#include "UpdateSheet.h"

#include <QtGui/QWindow>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace corvane {

namespace {

/// Acts once, when a window is to be seen for the first time.
class WhenExposed final : public QObject
{
public:
    WhenExposed(QWindow &window, std::function<void()> act)
        : QObject(&window), m_act(std::move(act))
    {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Expose && static_cast<QWindow *>(watched)->isExposed()) {
            m_act();
            deleteLater();
        }
        return false;
    }

private:
    std::function<void()> m_act;
};

/// The heap would keep what a window took, for the next one, which comes seldom.
void giveMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace

WindowOpener::WindowOpener(AppModel &model, MenuTarget target)
    : m_model(model)
    , m_target(std::move(target))
    , m_report(ReportSession::realSteps(), dataFolder())
    , m_tour(model)
{
    connect(&model, &AppModel::pendingPaneChanged, this, [this] {
        if (!m_model.pendingPane.value().isEmpty())
            openSettings();
    });
    connect(&model, &AppModel::pendingTourPageChanged, this, [this] {
        if (m_model.pendingTourPage.value())
            openTour();
    });
    connect(&m_tour, &OnboardingController::practiceShown, this,
        [this](QWidget &window) { bringForward(window, true); });
    connect(&model, &AppModel::pendingReportChanged, this, [this] {
        if (m_model.pendingReport.value())
            openReport();
    });
    connect(&model, &AppModel::pendingUpdatePreviewChanged, this, [this] {
        if (m_model.pendingUpdatePreview.value())
            openUpdatePreview();
    });
    connect(&model, &AppModel::lookChanged, this, [this] {
        if (m_settings || m_tour.window() || m_reportSheet || m_updateSheet)
            BoardStyle::shared().setLook(m_model.look);
    });
}

WindowOpener::~WindowOpener()
{
    delete m_updateSheet;
    delete m_reportSheet;
    delete m_settings;
}

void WindowOpener::openSettings()
{
    m_model.refreshTrust();
    const bool isNew = !m_settings;
    if (isNew) {
        m_model.refreshCompetitors();
        m_model.refreshActivity();
        BoardStyle::shared().setLook(m_model.look);
        m_settings = new SettingsWindow(m_model, m_target);
        connect(m_settings, &QObject::destroyed, this, giveMemoryBack, Qt::QueuedConnection);
        m_settings->setVisible(true);
    }
    bringForward(*m_settings, isNew);
}

void WindowOpener::openTour()
{
    m_model.refreshTrust();
    m_model.refreshCompetitors();
    const bool isNew = !m_tour.window();
    if (isNew)
        BoardStyle::shared().setLook(m_model.look);
    m_tour.startPage = m_model.pendingTourPage.value().value_or(1) - 1;
    m_model.pendingTourPage = std::nullopt;
    m_tour.show();
    if (isNew)
        connect(m_tour.window(), &QObject::destroyed, this, giveMemoryBack, Qt::QueuedConnection);
    bringForward(*m_tour.window(), isNew);
}

void WindowOpener::openReport()
{
    const QString added = m_model.pendingReport.value().value_or(QString());
    m_model.pendingReport = std::nullopt;
    m_report.begin(added);
    const bool isNew = !m_reportSheet || m_reportSheet->isHidden(); // which goes soon
    if (isNew) {
        BoardStyle::shared().setLook(m_model.look);
        m_reportSheet = makeReportSheet(m_report, sheetParent());
        open(*m_reportSheet);
    }
    bringForward(*m_reportSheet, isNew);
}

void WindowOpener::openUpdate(UpdateSession &session)
{
    if (m_updateSheet && &m_updateSheet->session() != &session)
        m_updateSheet->close();
    const bool isNew = !m_updateSheet || m_updateSheet->isHidden(); // which goes soon
    if (isNew) {
        BoardStyle::shared().setLook(m_model.look);
        m_updateSheet = new UpdateSheet(session, sheetParent());
        open(*m_updateSheet);
    }
    bringForward(*m_updateSheet, isNew);
}

void WindowOpener::closeUpdate()
{
    if (m_updateSheet)
        m_updateSheet->dismiss();
}

void WindowOpener::openUpdatePreview()
{
    const auto preview = *m_model.pendingUpdatePreview.value();
    m_model.pendingUpdatePreview = std::nullopt;
    m_updatePreview.version = preview.version;
    m_updatePreview.released = Platform::current().clock().date();
    m_updatePreview.notesURL = QUrl(Identity::website);
    m_updatePreview.notes = ReleaseNotes::parse(preview.notes.value_or(QByteArray()));
    m_updatePreview.notesFailed = preview.notes && m_updatePreview.notes.value().isEmpty();
    m_updatePreview.onInstall = [this] { closeUpdate(); };
    m_updatePreview.stage = UpdateSession::Stage{UpdateSession::Stage::Found{}};
    openUpdate(m_updatePreview);
}

// A window that is minimised would take the sheet with it.
QWidget *WindowOpener::sheetParent() const
{
    return m_settings && !m_settings->isMinimized() ? m_settings.data() : nullptr;
}

void WindowOpener::open(Sheet &sheet)
{
    connect(&sheet, &QObject::destroyed, this, giveMemoryBack, Qt::QueuedConnection);
    sheet.open();
}

void WindowOpener::bringForward(QWidget &window, bool isNew)
{
    const QString token = m_model.pendingActivation;
    m_model.pendingActivation = QString();
    const auto bringForward = [number = quint64(window.winId()), token] {
        Platform::current().ownWindows().bringForward(number, token);
    };
    // Before it is there, the window manager does not know it; on another workspace it stays unexposed.
    if (isNew) {
        new WhenExposed(*window.windowHandle(), bringForward);
        return;
    }
    bringForward();
    // Only then: a window on another workspace counts as minimised under some window managers, which
    // would take the user there to show it.
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
}

} // namespace corvane

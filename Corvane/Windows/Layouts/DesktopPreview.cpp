#include "DesktopPreview.h"

#include "AppIcons.h"
#include "BoardStyle.h"
#include "DisplayMapping.h"
#include "Geometry.h"
#include "LayoutPicture.h"
#include "PaneOverlay.h"
#include "Platform.h"
#include "Screens.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QShortcut>
#include <QtGui/QWindow>
#include <QtWidgets/QAbstractButton>

#include <chrono>

namespace corvane {

using namespace std::chrono_literals;

namespace {
constexpr auto releaseWait =
    30ms; ///< in which the press of a repetition comes, but no eye sees a delay
}

QList<PanePlace> placesOf(
    const WindowLayout &layout, const QList<ScreenInfo> &connected, double gap)
{
    const auto mapping = displayMapping(layout.displays, Screens::signature(connected));
    QList<PanePlace> places;
    for (const Pane &pane : layout.panes) {
        if (const auto screen = mapping.constFind(pane.display); screen != mapping.cend())
            places << PanePlace{
                pane, Geometry::frame(pane.rect, connected[*screen].visibleFrame, gap)};
    }
    return places;
}

DesktopPreview::DesktopPreview(
    AppModel &model, LayoutPicture &picture, QWidget &list, QAbstractButton &button)
    : QObject(&picture)
    , m_model(model)
    , m_picture(picture)
    , m_button(button)
    , m_escape(new QShortcut(Qt::Key_Escape, &picture))
{
    m_escape->setEnabled(false);
    m_releasing.setSingleShot(true);
    m_releasing.setInterval(releaseWait);
    connect(&m_releasing, &QTimer::timeout, this, &DesktopPreview::end);
    connect(m_escape, &QShortcut::activated, this, &DesktopPreview::end);
    picture.installEventFilter(this);
    list.installEventFilter(this);
    connect(&button, &QAbstractButton::toggled, this,
        [this](bool isOn) { isOn ? show(Request::button) : end(); });
    for (const auto signal : {&AppModel::layoutsChanged, &AppModel::settingsChanged})
        connect(&model, signal, this, &DesktopPreview::follow);
    connect(&picture, &LayoutPicture::currentPaneChanged, this, &DesktopPreview::follow);
    connect(&Platform::current().displays(), &Displays::changed, this, &DesktopPreview::follow);
    connect(&BoardStyle::shared(), &BoardStyle::lookChanged, this, &DesktopPreview::draw);
    connect(&AppIcons::shared(), &AppIcons::loaded, this, &DesktopPreview::draw);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *focused) {
        if (focused != m_picture.window()->windowHandle())
            end();
    });
    follow();
}

DesktopPreview::~DesktopPreview() = default;

bool DesktopPreview::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return heedKey(*static_cast<QKeyEvent *>(event));
    case QEvent::FocusOut:
        if (m_request == Request::key)
            end();
        return false;
    case QEvent::Hide:
        if (watched == &m_picture)
            end();
        return false;
    case QEvent::Paint:
        // A gesture changes what the picture shows, and nothing else tells of it.
        if (watched == &m_picture && m_picture.shown() != m_layout)
            QMetaObject::invokeMethod(this, &DesktopPreview::follow, Qt::QueuedConnection);
        return false;
    default:
        return false;
    }
}

/// A key that is held repeats, as a release and a press each time. Qt knows a release for one of these
/// only when it finds the press beside it, which it does not always.
bool DesktopPreview::heedKey(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Space || event.modifiers() != Qt::NoModifier)
        return false;
    if (event.type() == QEvent::KeyPress) {
        m_releasing.stop();
        if (!event.isAutoRepeat())
            show(Request::key);
    } else if (!event.isAutoRepeat() && m_request == Request::key) {
        m_releasing.start();
    }
    return true;
}

void DesktopPreview::show(Request request)
{
    if (m_request != Request::none)
        return;
    follow();
    m_request = request;
    m_escape->setEnabled(true);
    draw();
}

void DesktopPreview::end()
{
    if (std::exchange(m_request, Request::none) == Request::none)
        return;
    m_releasing.stop();
    m_escape->setEnabled(false);
    m_overlays.clear();
    m_button.setChecked(false);
}

void DesktopPreview::follow()
{
    const WindowLayout shown = m_picture.shown();
    // Another one may have come in the place of a layout that is gone.
    if (!m_model.layout(m_layout.id))
        end();
    m_layout = shown;
    auto places = placesOf(shown, Screens::all(), m_model.settings().gap);
    m_button.setEnabled(!places.isEmpty());
    if (std::exchange(m_places, std::move(places)) != m_places)
        draw();
}

void DesktopPreview::draw()
{
    if (m_request == Request::none)
        return;
    const auto behind = Platform::current().ownWindows().showsTranslucency()
        ? PaneOverlay::Behind::shinesThrough
        : PaneOverlay::Behind::cutOut;
    while (m_overlays.size() < size_t(m_places.size()))
        m_overlays.push_back(std::make_unique<PaneOverlay>(behind));
    m_overlays.resize(size_t(m_places.size()));
    for (qsizetype i = 0; i < m_places.size(); ++i)
        m_overlays[size_t(i)]->showPane(m_places[i].pane, m_places[i].frame);
}

} // namespace corvane

#include "DockPresence.h"

#include "FlightRecorder.h"
#include "Platform.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

void list(const QWidget &window, bool isListed)
{
    const Qt::WindowType type = window.windowType();
    if (window.isWindow() && (type == Qt::Window || type == Qt::Dialog))
        Platform::current().ownWindows().setListed(window.winId(), isListed);
}

} // namespace

DockPresence::DockPresence()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void DockPresence::setRegular(bool isRegular)
{
    m_isRegular = isRegular;
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            list(*window, isRegular);
    }
    FlightRecorder::shared().record(
        u"dock"_s, isRegular ? u"regular (Dock and app switcher)"_s : u"accessory (neither)"_s);
}

bool DockPresence::eventFilter(QObject *object, QEvent *event)
{
    // The window is not mapped yet, so it does not flash up in the task bar.
    if (event->type() == QEvent::Show && !m_isRegular && object->isWidgetType())
        list(*static_cast<const QWidget *>(object), m_isRegular);
    return false;
}

} // namespace corvane

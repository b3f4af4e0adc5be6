#include "KeyCapture.h"

#include "KeyCombo.h"
#include "PhysicalKey.h"
#include "Platform.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace corvane {

namespace {

quint64 modifiersOf(Qt::KeyboardModifiers held)
{
    quint64 modifiers = 0;
    for (const auto &[each, modifier] :
        {std::pair(Qt::ControlModifier, KeyCombo::control), {Qt::AltModifier, KeyCombo::option},
            {Qt::ShiftModifier, KeyCombo::shift}, {Qt::MetaModifier, KeyCombo::command}})
        modifiers |= held & each ? modifier : 0;
    return modifiers;
}

/// The modifier that the key stands for: none where it is one that no combination has. Nothing for
/// another key.
std::optional<Qt::KeyboardModifiers> modifierOf(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return Qt::MetaModifier;
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return Qt::NoModifier;
    default:
        return std::nullopt;
    }
}

} // namespace

KeyCapture::KeyCapture(QWidget &host) : QObject(&host), m_host(host) { }

KeyCapture::~KeyCapture()
{
    setActive(false);
}

void KeyCapture::setActive(bool isActive)
{
    if (std::exchange(m_isActive, isActive) == isActive)
        return;
    // An input method would keep keys to itself.
    m_host.setAttribute(Qt::WA_InputMethodEnabled, false);
    if (isActive)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
    // Another control of the window may have the keys already.
    if (!isActive && s_active != this)
        return;
    s_active = isActive ? this : nullptr;
    Platform::current().ownWindows().setTakesAllKeys(m_host.window()->winId(), isActive);
}

bool KeyCapture::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        take(*static_cast<QKeyEvent *>(event));
        return true;
    default:
        if (turnsAway(watched, *event))
            cancelSoon();
        return false;
    }
}

void KeyCapture::take(const QKeyEvent &key)
{
    if (key.isAutoRepeat())
        return;
    const bool isPress = key.type() == QEvent::KeyPress;
    // Some window systems count a modifier's own event, others do not.
    if (const auto modifier = modifierOf(key.key()))
        return onModifiers(
            modifiersOf(isPress ? key.modifiers() | *modifier : key.modifiers() & ~*modifier));
    if (!isPress)
        return;
    if (const auto physical = PhysicalKey::withXkbKeycode(key.nativeScanCode()))
        onKey(physical->virtualKeyCode, modifiersOf(key.modifiers()));
}

bool KeyCapture::turnsAway(QObject *watched, const QEvent &event) const
{
    switch (event.type()) {
    case QEvent::MouseButtonPress: {
        if (!watched->isWidgetType())
            return false;
        const QPoint at = static_cast<const QMouseEvent &>(event).globalPosition().toPoint();
        return !m_host.rect().contains(m_host.mapFromGlobal(at));
    }
    case QEvent::WindowDeactivate:
    case QEvent::Close:
        return watched == m_host.window();
    case QEvent::Hide:
        return watched == &m_host;
    case QEvent::ApplicationStateChange:
        return QGuiApplication::applicationState() != Qt::ApplicationActive;
    default:
        return false;
    }
}

void KeyCapture::cancelSoon()
{
    setActive(false);
    QMetaObject::invokeMethod(
        this, [this] { onCancel(); }, Qt::QueuedConnection);
}

} // namespace corvane

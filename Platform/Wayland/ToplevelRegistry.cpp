#include "ToplevelRegistry.h"

#include <QtCore/QSet>

#include <tuple>

namespace corvane::wayland {

namespace {
constexpr auto sharedFor = std::chrono::milliseconds(3);
} // namespace

ToplevelRegistry::ToplevelRegistry(Compositor &compositor) : m_compositor(compositor)
{
    const auto refreshSoon = [this] {
        outdate();
        if (std::exchange(m_refreshScheduled, true))
            return;
        defer([this] {
            m_refreshScheduled = false;
            refresh();
        });
    };
    connect(&compositor, &Compositor::windowsChanged, this, refreshSoon);
    connect(&compositor, &Compositor::presenceChanged, this, refreshSoon);
}

expected<Desk, AXError> ToplevelRegistry::desk(Compositor::Scope scope)
{
    if (isFresh() && (m_read->scope == Compositor::Scope::all || m_read->scope == scope))
        return m_read->desk;
    const auto asked = std::chrono::steady_clock::now();
    auto desk = m_compositor.read(scope);
    if (!desk)
        return desk;
    const auto answered = std::chrono::steady_clock::now();
    // Asked at once again, a crowded desk would be as old by the time that its answer is there.
    const auto isFor =
        std::max<std::chrono::steady_clock::duration>(sharedFor, 2 * (answered - asked));
    m_read = Reading{*desk, scope, answered + isFor};
    absorb(*desk, scope);
    return desk;
}

bool ToplevelRegistry::isFresh() const
{
    return m_read && (isInOperation() || std::chrono::steady_clock::now() < m_read->end);
}

expected<Toplevel, AXError> ToplevelRegistry::toplevel(const WindowElement &window)
{
    const auto find = [&](const Desk &desk) -> expected<Toplevel, AXError> {
        const Toplevel *found = desk.find(window);
        if (!found)
            return unexpected<AXError>(AXError::invalidUIElement);
        return *found;
    };
    if (isFresh() && m_read->desk.find(window))
        return find(m_read->desk);
    const auto desk = this->desk(Compositor::Scope::all);
    return desk ? find(*desk) : unexpected<AXError>(desk.error());
}

const Toplevel *ToplevelRegistry::known(const WindowElement &window) const
{
    const auto known = m_known.constFind(window);
    return known == m_known.cend() ? nullptr : &known->toplevel;
}

QStringList ToplevelRegistry::formerNames(const WindowElement &window) const
{
    return m_known.value(window).formerNames;
}

void ToplevelRegistry::defer(std::function<void()> action)
{
    QMetaObject::invokeMethod(this, std::move(action), Qt::QueuedConnection);
}

void ToplevelRegistry::refresh()
{
    outdate();
    // What cannot be seen for now, as behind a lock screen, may still be there.
    if (m_compositor.isPresent())
        std::ignore = desk(Compositor::Scope::all);
}

void ToplevelRegistry::absorb(const Desk &desk, Compositor::Scope scope)
{
    QSet<WindowElement> present;
    for (const Toplevel &toplevel : desk.windows) {
        present.insert(toplevel.element);
        meet(toplevel);
    }
    if (scope == Compositor::Scope::all) {
        for (const WindowElement &window : m_known.keys()) {
            if (!present.contains(window))
                Q_EMIT vanished(m_known.take(window).toplevel);
        }
    }
    Q_EMIT focusRead(desk.focused);
}

void ToplevelRegistry::meet(const Toplevel &toplevel)
{
    const auto known = m_known.find(toplevel.element);
    if (known == m_known.end()) {
        m_known.insert(toplevel.element, {toplevel, {}});
        Q_EMIT appeared(toplevel);
        return;
    }
    const Toplevel before = std::exchange(known->toplevel, toplevel);
    if (before.traces == toplevel.traces && before.listed == toplevel.listed)
        return;
    for (const QString &name :
        {before.traces.publishedId, before.traces.className, before.traces.instanceName}) {
        if (!name.isEmpty() && !known->formerNames.contains(name))
            known->formerNames << name;
    }
    // A window that renames itself over and over must not fill our memory.
    constexpr qsizetype most = 20;
    if (known->formerNames.size() > most)
        known->formerNames.remove(0, known->formerNames.size() - most);
    Q_EMIT changed(toplevel, before);
}

} // namespace corvane::wayland

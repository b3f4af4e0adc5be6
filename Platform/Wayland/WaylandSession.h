#pragma once

#include "Compositor.h"
#include "FreedesktopSession.h"

namespace corvane::wayland {

class WaylandSession final : public freedesktop::FreedesktopSession
{
    Q_OBJECT

public:
    explicit WaylandSession(Compositor &compositor) : m_compositor(compositor) { }

    SystemFacts systemFacts() override
    {
        SystemFacts facts = FreedesktopSession::systemFacts();
        facts.session = QStringLiteral("Wayland");
        facts.windowManager = m_compositor.description();
        return facts;
    }

private:
    Compositor &m_compositor;
};

} // namespace corvane::wayland

#include "AgentLink.h"

namespace corvane::wayland {

AgentLink::AgentLink(const MakeHost &makeHost) : m_host(makeHost(m_mailbox))
{
    connect(m_host.get(), &AgentHost::presenceChanged, this, &AgentLink::presenceChanged);
    connect(m_host.get(), &AgentHost::described, this, &AgentLink::described);
    connect(m_host.get(), &AgentHost::newsArrived, this, &AgentLink::newsArrived);
    m_thread.setObjectName(QStringLiteral("agent"));
    m_host->moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(m_host.get(), &AgentHost::start);
}

AgentLink::~AgentLink()
{
    QMetaObject::invokeMethod(m_host.get(), &AgentHost::stop, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

} // namespace corvane::wayland

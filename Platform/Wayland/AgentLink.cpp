#include "AgentLink.h"

namespace corvane::kwin {

AgentLink::AgentLink()
{
    connect(&m_host, &AgentHost::presenceChanged, this, &AgentLink::presenceChanged);
    connect(&m_host, &AgentHost::described, this, &AgentLink::described);
    connect(&m_host, &AgentHost::newsArrived, this, &AgentLink::newsArrived);
    m_thread.setObjectName(QStringLiteral("kwin-agent"));
    m_host.moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(&m_host, &AgentHost::start);
}

AgentLink::~AgentLink()
{
    QMetaObject::invokeMethod(&m_host, &AgentHost::stop, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

} // namespace corvane::kwin

#include "AgentLink.h"

namespace corvane::kwin {

AgentLink::AgentLink()
{
    connect(&m_host, &AgentHost::presenceChanged, this, &AgentLink::presenceChanged);
    connect(&m_host, &AgentHost::described, this, &AgentLink::described);
    connect(&m_host, &AgentHost::windowsChanged, this, &AgentLink::windowsChanged);
    connect(&m_host, &AgentHost::workAreasChanged, this, &AgentLink::workAreasChanged);
    connect(&m_host, &AgentHost::framesChanged, this, [this] {
        // Whoever waited for them, or asked since, knows.
        if (m_mailbox.takeFrames())
            Q_EMIT framesChanged();
    });
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

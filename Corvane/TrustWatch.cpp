#include "TrustWatch.h"

#include "FlightRecorder.h"
#include "Platform.h"
#include "WindowWatcher.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TrustWatch::TrustWatch(AppModel &model) : m_model(model)
{
    m_poll.setInterval(1s);
    connect(&m_poll, &QTimer::timeout, &m_model, &AppModel::refreshTrust);
    connect(&m_model, &AppModel::accessibilityTrustedChanged, this, &TrustWatch::react);
}

void TrustWatch::start()
{
    connect(&Platform::current().windows(), &WindowAccess::trustChanged, &m_model,
        &AppModel::refreshTrust);
    m_model.refreshTrust();
    if (!m_model.accessibilityTrusted)
        m_poll.start();
}

void TrustWatch::react()
{
    if (m_model.accessibilityTrusted) {
        m_poll.stop();
        WindowWatcher::shared().restart();
        FlightRecorder::shared().record(u"accessibility"_s, u"windows can be moved again"_s);
    } else {
        m_poll.start();
        FlightRecorder::shared().record(
            u"accessibility"_s, Platform::current().windows().distrustReason());
    }
}

} // namespace corvane

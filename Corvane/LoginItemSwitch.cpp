#include "LoginItemSwitch.h"

#include "FlightRecorder.h"
#include "Platform.h"
#include "UserDefaults.h"

namespace corvane {

using namespace Qt::StringLiterals;

void LoginItemSwitch::set(bool opensAtLogin)
{
    const QString noticeID = u"login-item"_s;
    if (const auto done = Platform::current().session().setLoginItem(opensAtLogin)) {
        m_model.dismissNotice(noticeID);
    } else {
        FlightRecorder::shared().record(u"login-item-failed"_s, done.error());
        const QString text = opensAtLogin ? tr("macOS would not add Corvane to Login Items: ")
                                          : tr("macOS would not take Corvane out of Login Items: ");
        m_model.post({noticeID, text + done.error(), std::nullopt});
    }
    refreshNote();
}

void LoginItemSwitch::carryOver()
{
    if (!UserDefaults::testAndSet(UserDefaults::loginItemCarriedOver)
        && m_model.settings().launchAtLogin)
        set(true);
}

void LoginItemSwitch::refreshNote()
{
    const bool awaits = m_model.settings().launchAtLogin
        && Platform::current().session().loginItem() == LoginItem::awaitsApproval;
    m_model.loginItemNote = awaits
        ? std::optional(tr("macOS is waiting for you to allow Corvane in System Settings → General "
                           "→ Login Items."))
        : std::nullopt;
}

} // namespace corvane

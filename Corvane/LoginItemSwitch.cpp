#include "LoginItemSwitch.h"

#include "FlightRecorder.h"
#include "Platform.h"
#include "UserDefaults.h"

#include <QtCore/QScopedValueRollback>

namespace corvane {

using namespace Qt::StringLiterals;

void LoginItemSwitch::set(bool opensAtLogin)
{
    if (m_isFollowing)
        return;
    const QString noticeID = u"login-item"_s;
    if (const auto done = Platform::current().session().setLoginItem(opensAtLogin)) {
        m_model.dismissNotice(noticeID);
    } else {
        FlightRecorder::shared().record(u"login-item-failed"_s, done.error());
        const QString text = opensAtLogin ? tr("macOS would not add Corvane to Login Items: ")
                                          : tr("macOS would not take Corvane out of Login Items: ");
        m_model.post({noticeID, text + done.error(), std::nullopt});
    }
    m_seen = Platform::current().session().loginItem();
    refreshApproval();
}

void LoginItemSwitch::carryOver()
{
    const bool opensAtLogin = m_model.settings().launchAtLogin;
    if (!UserDefaults::testAndSet(UserDefaults::loginItemCarriedOver) && opensAtLogin)
        set(opensAtLogin);
}

void LoginItemSwitch::start()
{
    connect(&m_model, &AppModel::pendingPaneChanged, this, &LoginItemSwitch::follow);
    follow();
}

void LoginItemSwitch::follow()
{
    const LoginItem present = Platform::current().session().loginItem();
    const std::optional<LoginItem> seen = std::exchange(m_seen, present);
    Settings settings = m_model.settings();
    // At the start, a login item that the settings do not want may be older than an edit of their file.
    if (seen ? *seen != present : present != LoginItem::present && settings.launchAtLogin) {
        settings.launchAtLogin = present == LoginItem::present;
        const QScopedValueRollback following(m_isFollowing, true);
        m_model.setSettings(std::move(settings));
    }
    refreshApproval();
}

void LoginItemSwitch::refreshApproval()
{
    const bool awaits = m_model.settings().launchAtLogin
        && Platform::current().session().loginItem() == LoginItem::awaitsApproval;
    m_model.loginItemNote = awaits
        ? std::optional(tr("macOS is waiting for you to allow Corvane in System Settings → General "
                           "→ Login Items."))
        : std::nullopt;
}

} // namespace corvane

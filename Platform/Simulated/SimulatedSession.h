#pragma once

#include "Session.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

namespace corvane {

/// Does nothing outside itself: it remembers what it was asked, and answers with its public fields.
class SimulatedSession final : public Session
{
    Q_OBJECT

public:
    struct Notification {
        QString id;
        QString title;
        QString body;
        QString action = {};

        bool operator==(const Notification &) const = default;
    };

    bool openAddress(const QUrl &address) override;
    void reveal(const QUrl &file) override;
    QUrl trustSettingsAddress() override;
    std::optional<int> clearTrustRow(const QString &bundleIdentifier) override;
    int systemMajorVersion() override;
    LoginItem loginItem() override;
    expected<void, QString> setLoginItem(bool opensAtLogin) override;
    void openLoginItems() override;
    void notify(const QString &id, const QString &title, const QString &body,
        const QString &action) override;
    DesktopLook look() override;
    bool isPointerButtonDown() override;
    SystemFacts systemFacts() override;

    /// Changes the look, as the user would in the desktop's settings.
    void changeLook(const DesktopLook &look);

    bool opensAddresses = true;
    std::optional<int> clearingStatus{};
    LoginItem item = LoginItem::absent;
    LoginItem itemOnceSet = LoginItem::present;
    bool isButtonDown = false; ///< of the pointer
    SystemFacts facts{.session = QStringLiteral("Simulated")};
    QString loginItemError; ///< unless empty, the login item cannot be changed

    QStringList clearedRows;
    QList<Notification> notifications; ///< on the screen, oldest first

private:
    DesktopLook m_look;
};

} // namespace corvane

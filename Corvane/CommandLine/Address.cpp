#include "Address.h"

#include "OneLine.h"

#include <QtCore/QUrl>

namespace corvane::Address {

using namespace Qt::StringLiterals;

namespace {

constexpr auto settingsAddress = "corvane://settings"_L1;

QString addresses()
{
    QStringList all{settingsAddress};
    for (const SettingsPane pane : settingsPanes)
        all << settingsAddress + u'/' + rawValue(pane);
    return all.join(u", "_s);
}

std::optional<SettingsPane> paneOfPath(const QString &path)
{
    return path.isEmpty() || path == "/"_L1 ? SettingsPane::general
                                            : settingsPaneNamed(path.mid(1));
}

} // namespace

bool isOurs(const QString &text)
{
    return text.startsWith("corvane:"_L1, Qt::CaseInsensitive);
}

expected<SettingsPane, QString> pane(const QString &text)
{
    const QUrl url(text, QUrl::StrictMode);
    // Nothing but scheme, host and path may be there.
    const bool isSettings = url.adjusted(QUrl::RemovePath).toString() == settingsAddress;
    const auto pane = isSettings ? paneOfPath(url.path()) : std::nullopt;
    if (pane)
        return *pane;
    return unexpected<QString>(
        u"There is nothing at \"%1\"; the addresses are: %2."_s.arg(oneLine(text), addresses()));
}

} // namespace corvane::Address

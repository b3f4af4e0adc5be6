#include "ServerAddress.h"

#include "Identity.h"

#include <QtCore/QRegularExpression>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

bool isOnThisComputer(const QUrl &address)
{
    static const QRegularExpression loopback(u"^(127\\.\\d+\\.\\d+\\.\\d+|::1)$"_s);
    const bool isWeb = address.scheme() == "http"_L1 || address.scheme() == "https"_L1;
    return isWeb && loopback.match(address.host()).hasMatch();
}

/// What the variable names, if that is on this computer.
QUrl testAddress(const char *variable, const QUrl &otherwise)
{
    const QUrl test(qEnvironmentVariable(variable), QUrl::StrictMode);
    return isOnThisComputer(test) ? test : otherwise;
}

} // namespace

QUrl reportAddress()
{
    return testAddress("CORVANE_REPORT_TEST_ADDRESS", QUrl(QStringLiteral(CORVANE_REPORT_ADDRESS)));
}

QUrl updateFeedAddress()
{
    return testAddress(
        "CORVANE_UPDATE_TEST_FEED", QUrl(Identity::website + u"/updates/stable.json"_s));
}

bool isPrivateAddress(const QUrl &address)
{
    const bool isSecret = address.scheme() == "https"_L1 && !address.host().isEmpty();
    return isSecret || isOnThisComputer(address);
}

} // namespace corvane

#include "ReportAddress.h"

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

} // namespace

QUrl reportAddress()
{
    const QUrl test(qEnvironmentVariable("CORVANE_REPORT_TEST_ADDRESS"), QUrl::StrictMode);
    return isOnThisComputer(test) ? test : QUrl(QStringLiteral(CORVANE_REPORT_ADDRESS));
}

bool isPrivateAddress(const QUrl &address)
{
    const bool isSecret = address.scheme() == "https"_L1 && !address.host().isEmpty();
    return isSecret || isOnThisComputer(address);
}

} // namespace corvane

#include "UpdateHelper.h"

#include <QtCore/QCoreApplication>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

using namespace corvane;

namespace {

PublicKeys keysIn(const char *variable)
{
    PublicKeys keys;
    for (const QByteArray &key : qgetenv(variable).split(' '))
        keys << QByteArray::fromBase64(key);
    return keys;
}

} // namespace

/// The program that updates the other one, but it believes the keys in CORVANE_TEST_RELEASE_KEYS and
/// CORVANE_TEST_FEED_KEYS and servers of the certificate in the file CORVANE_TEST_CERTIFICATE, and works
/// for root, who runs tests.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto trusted =
        QSslCertificate::fromPath(qEnvironmentVariable("CORVANE_TEST_CERTIFICATE"));
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.addCaCertificates(trusted);
    QSslConfiguration::setDefaultConfiguration(configuration);
    return UpdateHelper::run(QCoreApplication::arguments(),
        {.keys = {.release = keysIn("CORVANE_TEST_RELEASE_KEYS"),
             .feed = keysIn("CORVANE_TEST_FEED_KEYS")},
            .worksForRoot = true});
}

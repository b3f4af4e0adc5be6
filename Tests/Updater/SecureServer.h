#pragma once

#include "TestServer.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QSslConfiguration>

#include <gtest/gtest.h>

namespace corvane {

/// With a certificate that is made for this run.
class SecureServer final
{
public:
    explicit SecureServer(const QByteArray &answer = goodAnswer)
    {
        QProcess openssl;
        openssl.setWorkingDirectory(m_folder.path());
        openssl.start(QStringLiteral(CORVANE_OPENSSL),
            u"req -x509 -newkey rsa:2048 -nodes -days 1 -subj /CN=127.0.0.1 -addext "
            "subjectAltName=IP:127.0.0.1 -keyout key -out certificate"_s.split(u' '));
        openssl.waitForFinished();
        QFile key(m_folder.filePath(u"key"_s));
        EXPECT_TRUE(key.open(QFile::ReadOnly));
        QSslConfiguration configuration;
        configuration.setLocalCertificate(certificate());
        configuration.setPrivateKey(QSslKey(&key, QSsl::Rsa));
        auto server = std::make_unique<QSslServer>();
        server->setSslConfiguration(configuration);
        m_server = std::make_unique<TestServer>(answer, TestServer::Then::close, std::move(server));
    }

    [[nodiscard]] QSslCertificate certificate() const
    {
        return QSslCertificate::fromPath(m_folder.filePath(u"certificate"_s)).value(0);
    }
    [[nodiscard]] QString certificatePath() const { return m_folder.filePath(u"certificate"_s); }
    [[nodiscard]] const TestServer &server() const { return *m_server; }
    [[nodiscard]] TestServer &server() { return *m_server; }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<TestServer> m_server;
};

/// While it exists, this process trusts whom the certificate names.
class Trust final
{
public:
    explicit Trust(const QSslCertificate &certificate)
    {
        auto trusting = m_before;
        trusting.addCaCertificate(certificate);
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    ~Trust() { QSslConfiguration::setDefaultConfiguration(m_before); }
    Q_DISABLE_COPY_MOVE(Trust)

private:
    QSslConfiguration m_before = QSslConfiguration::defaultConfiguration();
};

} // namespace corvane

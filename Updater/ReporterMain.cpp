#include "Post.h"
#include "ServerAddress.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSocketNotifier>
#include <QtNetwork/QNetworkProxyFactory>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace corvane;

// Sends the document that stands in one line on standard input, and prints a line with the report's
// number, or with what went wrong. Ends at once when the other end of standard input is closed: whoever
// asked is not there any more.
namespace {

constexpr int closedEarly = 1;
constexpr qsizetype blockSize = 64LL * 1024;

class Reporter final : public QObject
{
public:
    Reporter()
    {
        connect(&m_input, &QSocketNotifier::activated, this, &Reporter::read);
        ::fcntl(STDIN_FILENO, F_SETFL, ::fcntl(STDIN_FILENO, F_GETFL) | O_NONBLOCK);
    }

private:
    void read()
    {
        QByteArray block(blockSize, Qt::Uninitialized);
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        if (count <= 0)
            return QCoreApplication::exit(closedEarly);
        if (m_isSending)
            return;
        m_document += block.first(count);
        const qsizetype end = m_document.indexOf('\n', m_document.size() - count);
        if (end < 0 && m_document.size() <= Post::Limits{}.document)
            return;
        m_isSending = true;
        if (end >= 0)
            m_document.truncate(end);
        m_post.send(reportAddress(), m_document, [](const Post::Answer &body) {
            const auto answer = body ? ReportAnswer::ofServer(*body)
                                     : ReportAnswer{unexpected<SendFailure>(body.error())};
            std::fputs(answer.toLine().constData(), stdout);
            std::fflush(stdout);
            QCoreApplication::exit();
        });
    }

    Post m_post{Post::Limits{}};
    QSocketNotifier m_input{STDIN_FILENO, QSocketNotifier::Read};
    QByteArray m_document;
    bool m_isSending = false;
};

} // namespace

int main(int argc, char **argv)
{
    ::umask(077);
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    const Reporter reporter;
    return QCoreApplication::exec();
}

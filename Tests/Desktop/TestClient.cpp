#include "TestClient.h"

#include <QtCore/QJsonDocument>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

QByteArray lineOf(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

TestClient::TestClient(VirtualDesktop &desktop) : TestClient(desktop, desktop.connection()) { }

TestClient::TestClient(PrivateSession &session, XConnection &connection)
    : m_connection(connection)
    , m_process(
          session.launch(QString::fromUtf8(CORVANE_TEST_CLIENT), {}, ChildProcess::Channel::pipes))
{
}

xcb_window_t TestClient::open(const WindowRequest &request)
{
    const QJsonObject answer = ask({{u"do"_s, u"open"_s}, {u"window"_s, request.toJson()}});
    return static_cast<xcb_window_t>(answer["window"_L1].toInteger());
}

xcb_window_t TestClient::show(const WindowRequest &request)
{
    const xcb_window_t window = open(request);
    WindowProbe probe(m_connection);
    // Panels are on no list of clients in i3.
    const bool listed = !request.overrideRedirect && request.kind == WindowRequest::Kind::normal;
    const bool shown =
        waitUntil([&] { return listed ? probe.isManaged(window) : probe.isViewable(window); });
    if (!shown)
        return XCB_WINDOW_NONE;
    static_cast<void>(probe.settledFrame(window));
    return window;
}

void TestClient::close(xcb_window_t window)
{
    ask({{u"do"_s, u"close"_s}, {u"window"_s, static_cast<qint64>(window)}});
}

void TestClient::setHints(xcb_window_t window, const WindowRequest::SizeHints &hints)
{
    WindowRequest request;
    request.hints = hints;
    request.number = window;
    ask({{u"do"_s, u"hints"_s}, {u"window"_s, request.toJson()}});
}

void TestClient::beginChurn(int perSecond, int count)
{
    m_process->writeLine(
        lineOf({{u"do"_s, u"churn"_s}, {u"perSecond"_s, perSecond}, {u"count"_s, count}}));
}

int TestClient::finishChurn(Milliseconds deadline)
{
    const auto line = m_process->readLine(deadline);
    return line ? QJsonDocument::fromJson(*line).object()["opened"_L1].toInt() : 0;
}

QJsonObject TestClient::ask(const QJsonObject &request, Milliseconds deadline)
{
    m_process->writeLine(lineOf(request));
    const auto line = m_process->readLine(deadline);
    return line ? QJsonDocument::fromJson(*line).object() : QJsonObject();
}

} // namespace corvane::desktop

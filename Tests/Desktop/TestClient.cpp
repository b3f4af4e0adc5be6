#include "TestClient.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

TestClient::TestClient(PrivateSession &session, XConnection &connection)
    : ChildProcess(
        session.command(QStringLiteral(CORVANE_TEST_CLIENT), {u"listen"_s}, Channel::pipes))
    , m_connection(connection)
{
}

xcb_window_t TestClient::open(const WindowRequest &request)
{
    writeLine("window=" + request.toBytes().toHex());
    return answer();
}

xcb_window_t TestClient::show(const WindowRequest &request)
{
    const xcb_window_t window = open(request);
    WindowProbe probe(m_connection);
    // Panels are on no list of clients in i3.
    const bool listed = request.kind == WindowRequest::Kind::normal;
    const bool shown =
        waitUntil([&] { return listed ? probe.isManaged(window) : probe.isViewable(window); });
    if (!shown)
        return XCB_WINDOW_NONE;
    static_cast<void>(probe.settledFrame(window));
    return window;
}

void TestClient::close(xcb_window_t window)
{
    writeLine("close=" + QByteArray::number(window));
    answer();
}

void TestClient::beginChurn(int perSecond, int count)
{
    writeLine("churn=" + QByteArray::number(count) + 'x' + QByteArray::number(perSecond));
}

int TestClient::finishChurn(Milliseconds deadline)
{
    return static_cast<int>(answer(deadline));
}

quint32 TestClient::answer(Milliseconds deadline)
{
    return readLine(deadline).value_or(QByteArray()).toUInt();
}

} // namespace corvane::desktop

#include "KWinScripts.h"

#include <QtCore/QDeadlineTimer>
#include <QtDBus/QDBusMessage>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.kde.KWin"_s;
const QString report = u"/report"_s;

// What both majors call differently.
constexpr auto prelude = R"(
const isSix = typeof workspace.windowList === "function";
const list = () => isSix ? workspace.stackingOrder
                         : workspace.clientList().sort((a, b) => a.stackingOrder - b.stackingOrder);
const find = id => list().filter(each => String(each.internalId) === id)[0];
const active = () => isSix ? workspace.activeWindow : workspace.activeClient;
const activate = window => { if (isSix) workspace.activeWindow = window;
                             else workspace.activeClient = window; };
)";

} // namespace

std::optional<QString> ScriptReport::wait(int number, Milliseconds deadline)
{
    const QDeadlineTimer end(deadline);
    QMutexLocker locker(&m_mutex);
    while (m_number != number && m_isThere.wait(&m_mutex, end)) { }
    return m_number == number ? std::optional(m_text) : std::nullopt;
}

void ScriptReport::tell(int number, const QString &text)
{
    const QMutexLocker locker(&m_mutex);
    m_number = number;
    m_text = text;
    m_isThere.wakeAll();
}

KWinScripts::KWinScripts(PrivateSession &session)
    : m_folder(session.folder())
    , m_bus(QDBusConnection::connectToBus(
          session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), session.folder()))
{
    m_report.moveToThread(&m_thread);
    m_thread.start();
    m_bus.registerObject(report, &m_report, QDBusConnection::ExportAllSlots);
}

KWinScripts::~KWinScripts()
{
    m_bus.unregisterObject(report);
    m_thread.quit();
    m_thread.wait();
    QDBusConnection::disconnectFromBus(m_folder);
}

bool KWinScripts::isThere()
{
    const auto ping = QDBusMessage::createMethodCall(
        service, u"/Scripting"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    return m_bus.call(ping, QDBus::Block, 1000).type() == QDBusMessage::ReplyMessage
        && run(u"return 1"_s, Milliseconds{300});
}

std::optional<QString> KWinScripts::run(const QString &body, Milliseconds deadline)
{
    const int number = ++m_number;
    const QString name = u"tests-%1"_s.arg(number);
    QFile file(u"%1/%2.js"_s.arg(m_folder, name));
    const QString text = u"%1callDBus(\"%2\", \"%3\", \"app.corvane.Tests\", \"tell\", %4,"
                         " String((() => { %5 })()));"_s.arg(QLatin1StringView(prelude),
                             m_bus.baseService(), report, QString::number(number), body);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        return std::nullopt;
    file.close();
    const auto call = [&](const QString &path, const QString &interface, const QString &method,
                          const QVariantList &arguments) {
        auto message = QDBusMessage::createMethodCall(service, path, interface, method);
        message.setArguments(arguments);
        return m_bus.call(message);
    };
    const QString scripting = u"org.kde.kwin.Scripting"_s;
    const int id = call(u"/Scripting"_s, scripting, u"loadScript"_s, {file.fileName(), name})
                       .arguments()
                       .value(0)
                       .toInt();
    for (const auto &path : {u"/Scripting/Script%1"_s, u"/%1"_s}) {
        const auto answer = call(path.arg(id), u"org.kde.kwin.Script"_s, u"run"_s, {});
        if (answer.type() == QDBusMessage::ReplyMessage)
            break;
    }
    const auto told = m_report.wait(number, deadline);
    call(u"/Scripting"_s, scripting, u"unloadScript"_s, {name});
    file.remove();
    return told;
}

} // namespace corvane::desktop

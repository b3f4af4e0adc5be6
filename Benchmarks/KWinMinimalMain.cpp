// Answers each of its keys by what a script inside KWin does then: the least work that a program with this
// task can do there. The script asks for the next key over the session bus, and is answered when it comes.
//
//   corvane-kwin-minimal BEFOREHAND {KEYS FILE}...
//
// The keys by Qt's number of them; the statements are the file's, and may use what those of the first
// file have defined.

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTemporaryFile>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusContext>
#include <QtDBus/QDBusMessage>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QString component = u"corvane-minimal"_s;

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QDBusMessage call(const QString &service, const QString &path, const QString &interface,
    const QString &method, const QVariantList &arguments)
{
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message);
}

} // namespace

class Minimal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.corvane.Minimal")

public:
    void loadScript(const QString &beforehand, const QStringList &orders)
    {
        QString goals;
        for (const QString &each : orders)
            goals += u"() => {\n%1},\n"_s.arg(textOf(each));
        const QString text =
            u"%1const goals = [%2];\n"
            "function poll() {\n"
            "    callDBus(\"%3\", \"/minimal\", \"app.corvane.Minimal\", \"poll\",\n"
            "        goal => { goals[goal](); poll(); });\n"
            "}\n"
            "poll();\n"_s.arg(
                textOf(beforehand), goals, QDBusConnection::sessionBus().baseService());
        m_script.open();
        m_script.write(text.toUtf8());
        m_script.flush();
        const QString kwin = u"org.kde.KWin"_s;
        const int number = call(kwin, u"/Scripting"_s, u"org.kde.kwin.Scripting"_s, u"loadScript"_s,
            {m_script.fileName(), component})
                               .arguments()
                               .value(0)
                               .toInt();
        // Where a script's object lies is another place in KWin 5.27 and in 6.
        for (const auto &path : {u"/Scripting/Script%1"_s, u"/%1"_s})
            call(kwin, path.arg(number), u"org.kde.kwin.Script"_s, u"run"_s, {});
    }
    void takeKeys(const QStringList &keys)
    {
        constexpr uint present = 2;
        constexpr uint asAsked = 4;
        const QString service = u"org.kde.kglobalaccel"_s;
        const QString path = u"/kglobalaccel"_s;
        const QString interface = u"org.kde.KGlobalAccel"_s;
        for (qsizetype i = 0; i < keys.size(); ++i) {
            const QStringList id{component, QString::number(i), component, QString::number(i)};
            call(service, path, interface, u"doRegister"_s, {id});
            call(service, path, interface, u"setShortcut"_s,
                {id, QVariant::fromValue(QList<int>{keys[i].toInt()}), present | asAsked});
        }
        QDBusConnection::sessionBus().connect(service, u"/component/corvane_minimal"_s,
            u"org.kde.kglobalaccel.Component"_s, u"globalShortcutPressed"_s, this,
            SLOT(pressed(QString, QString)));
    }

public Q_SLOTS:
    int poll()
    {
        if (m_poll.type() == QDBusMessage::InvalidMessage) {
            std::puts("ready");
            std::fflush(stdout);
        }
        setDelayedReply(true);
        m_poll = message();
        return 0;
    }
    void pressed(const QString &, const QString &action)
    {
        QDBusConnection::sessionBus().send(m_poll.createReply(action.toInt()));
    }

private:
    QTemporaryFile m_script;
    QDBusMessage m_poll;
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QStringList keys;
    QStringList orders;
    for (qsizetype at = 2; at + 2 <= arguments.size(); at += 2) {
        keys << arguments[at];
        orders << arguments[at + 1];
    }
    Minimal minimal;
    QDBusConnection::sessionBus().registerObject(
        u"/minimal"_s, &minimal, QDBusConnection::ExportAllSlots);
    minimal.takeKeys(keys);
    minimal.loadScript(arguments.value(1), orders);
    return QCoreApplication::exec();
}

#include "KWinMinimalMain.moc"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class Version final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.corvane.Corvane.Instance")

public:
    explicit Version(const QString &version) : m_version(version) { }

public Q_SLOTS:
    int Run(const QStringList &arguments, QString &output, QString &error)
    {
        error.clear();
        if (arguments == QStringList{u"--version"_s})
            output = u"corvane "_s + m_version + u'\n';
        return 0;
    }

private:
    QString m_version;
};

} // namespace

/// Says the version that stands in the file "version" beside the program. Where that reads "silent", it
/// takes the name and does nothing any more.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QFile file(QCoreApplication::applicationDirPath() + u"/version"_s);
    const QString version =
        file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    Version object(version);
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(u"/app/corvane/Corvane"_s, &object, QDBusConnection::ExportAllSlots)
        || !bus.registerService(u"app.corvane.Corvane"_s))
        return 1;
    if (version == u"silent")
        return ::pause();
    return QCoreApplication::exec();
}

#include "VersionMain.moc"

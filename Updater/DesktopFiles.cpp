#include "DesktopFiles.h"

#include "CommandLines.h"
#include "DataFolder.h"
#include "FileError.h"
#include "Identity.h"
#include "PrivateFile.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr auto ownTarget = "/.local/lib/corvane/current/"_L1; ///< in every link of ours
constexpr QByteArrayView ownMark =
    "# corvane-updater --install-here writes this file, and leaves it alone without this line.\n";
constexpr int cachePatience = 5000; ///< ms

/// Of the desktop entry, and of its actions.
QByteArray entryLine(const QByteArray &line, const QString &program)
{
    const QByteArray name = program.toUtf8();
    if (line == "Type=Application") {
        const QByteArray escaped = QByteArray(name).replace('\\', "\\\\").replace('\n', "\\n");
        return line + "\nTryExec=" + escaped;
    }
    const QByteArray command = "Exec=corvane";
    const bool isCommand = line == command || line.startsWith(command + ' ');
    return isCommand ? "Exec=" + freedesktop::execValue(name) + line.sliced(command.size()) : line;
}

QByteArray serviceLine(const QByteArray &line, const QString &program)
{
    return line.startsWith("Exec=") ? "Exec=" + freedesktop::quotedWord(program.toUtf8()) : line;
}

/// What a link leads to as it is written in it; empty for what is none. The error is the system's number.
expected<QByteArray, int> targetOf(const QByteArray &path)
{
    QByteArray target(4096, '\0');
    const auto length = ::readlink(path.constData(), target.data(), target.size());
    if (length < 0 && errno != EINVAL)
        return unexpected<int>(errno);
    return target.first(qMax<qsizetype>(length, 0));
}

} // namespace

DesktopFiles::DesktopFiles(QString home, QString data, const QString &installation, Say say)
    : m_home(std::move(home))
    , m_data(std::move(data))
    , m_current(installation + u"/current"_s)
    , m_say(std::move(say))
{
}

bool DesktopFiles::put() const
{
    struct Row {
        QString from; ///< in the version's "share"
        QString to;
    };
    const std::array rows{Row{u"icons/hicolor"_s, m_data + u"/icons/hicolor"_s},
        // Beside the command, where manual pages are looked for.
        Row{u"man"_s, m_home + u"/.local/share/man"_s},
        Row{u"bash-completion/completions"_s, m_data + u"/bash-completion/completions"_s},
        Row{u"fish/vendor_completions.d"_s, m_data + u"/fish/vendor_completions.d"_s},
        Row{u"zsh/site-functions"_s, m_data + u"/zsh/site-functions"_s}};
    bool isComplete = putLink(commandFolder() + u"/corvane"_s, m_current + u"/bin/corvane"_s);
    for (const auto &[from, to] : rows)
        isComplete &= putLinks(from, to);
    const QString name = Identity::bundleIdentifier;
    isComplete &= putText(u"/dbus-1/services/%1.service"_s.arg(name), &serviceLine);
    isComplete &= putText(u"/applications/%1.desktop"_s.arg(name), &entryLine);
    return isComplete;
}

void DesktopFiles::announce() const
{
    // Caches of icons are believed as long as they are newer than the folder.
    const QByteArray icons = QFile::encodeName(m_data + u"/icons/hicolor"_s);
    ::utimensat(AT_FDCWD, icons.constData(), nullptr, 0);
    // Which programs open which addresses is read from a list that this one makes.
    const QByteArray program = freedesktop::programPath("update-desktop-database");
    if (program.isEmpty())
        return;
    QProcess process;
    process.start(QFile::decodeName(program), {u"-q"_s, m_data + u"/applications"_s});
    process.waitForFinished(cachePatience);
}

QString DesktopFiles::commandFolder() const
{
    return m_home + u"/.local/bin"_s;
}

bool DesktopFiles::putLinks(const QString &from, const QString &to) const
{
    const QString folder = m_current + u"/share/"_s + from;
    QDirIterator found(folder, QDir::Files, QDirIterator::Subdirectories);
    bool isComplete = true;
    while (found.hasNext()) {
        const QString path = found.next();
        isComplete &= putLink(to + path.sliced(folder.size()), path);
    }
    return isComplete;
}

bool DesktopFiles::putLink(const QString &path, const QString &target) const
{
    if (const auto made = PrivateFile::makeFolder(QFileInfo(path).path()); !made)
        return sayFailed(path, made.error());
    const QByteArray name = QFile::encodeName(path);
    const QByteArray wanted = QFile::encodeName(target);
    if (::symlink(wanted.constData(), name.constData()) == 0)
        return true;
    if (errno != EEXIST)
        return sayFailed(path, fileErrorSentence(errno));
    const auto there = targetOf(name);
    if (!there)
        return sayFailed(path, fileErrorSentence(there.error()));
    if (*there == wanted)
        return true;
    if (!there->contains(ownTarget)) {
        sayForeign(path);
        return true;
    }
    const QByteArray fresh = name + ".new";
    ::unlink(fresh.constData());
    const bool isReplaced = ::symlink(wanted.constData(), fresh.constData()) == 0
        && std::rename(fresh.constData(), name.constData()) == 0;
    return isReplaced || sayFailed(path, fileErrorSentence(errno));
}

bool DesktopFiles::putText(const QString &name,
    const std::function<QByteArray(const QByteArray &line, const QString &program)> &change) const
{
    const QString path = m_data + name;
    const auto original = PrivateFile::read(m_current + u"/share"_s + name);
    const auto there = PrivateFile::read(path);
    if (!original || !*original || (*original)->isEmpty())
        return sayFailed(path, original ? u"This copy has none."_s : original.error());
    if (!there)
        return sayFailed(path, there.error());
    if (*there && !(*there)->startsWith(ownMark)) {
        sayForeign(path);
        return true;
    }
    QByteArrayList lines = (*original)->split('\n');
    for (QByteArray &line : lines)
        line = change(line, m_current + u"/bin/corvane"_s);
    const QByteArray wanted = ownMark.toByteArray() + lines.join('\n');
    if (*there == wanted)
        return true;
    const auto written = PrivateFile::replace(path, wanted);
    return written || sayFailed(path, written.error());
}

void DesktopFiles::sayForeign(const QString &path) const
{
    m_say(u"\"%1\" was not put there by this program, so it stays as it is."_s.arg(
        abbreviatedPath(path)));
}

bool DesktopFiles::sayFailed(const QString &path, const QString &reason) const
{
    m_say(u"\"%1\" cannot be put in place: %2"_s.arg(abbreviatedPath(path), reason));
    return false;
}

} // namespace corvane

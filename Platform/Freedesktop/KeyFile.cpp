#include "KeyFile.h"

#include <QtCore/QFile>
#include <QtCore/QHash>

#include <glib.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::freedesktop {

namespace {

QByteArray taken(char *text)
{
    const QByteArray copy(text);
    g_free(text);
    return copy;
}

QByteArray contentsOfPlainFile(const QString &path, KeyFile::Links links)
{
    constexpr qint64 longest = 1 << 20; // bytes
    const int noLinks = links == KeyFile::Links::refused ? O_NOFOLLOW : 0;
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | noLinks);
    struct stat status {
    };
    QFile file;
    QByteArray contents;
    if (descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
        && file.open(descriptor, QIODevice::ReadOnly))
        contents = file.read(longest);
    if (descriptor >= 0)
        close(descriptor);
    return contents;
}

/// What is no escape stays as it is written, such as `\$` in a command line by hand. Whether GLib takes
/// such a value depends on its release.
QByteArray unescaped(const QByteArray &value)
{
    static const QHash<char, char> escapes{
        {'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    QByteArray plain;
    bool isEscape = false;
    for (const char letter : value) {
        if (!isEscape && letter == '\\') {
            isEscape = true;
            continue;
        }
        if (isEscape && !escapes.contains(letter))
            plain += '\\';
        plain += isEscape ? escapes.value(letter, letter) : letter;
        isEscape = false;
    }
    return plain;
}

} // namespace

void KeyFile::Free::operator()(_GKeyFile *file) const
{
    g_key_file_free(file);
}

KeyFile::KeyFile(const QString &path, const char *group, Links links)
    : m_file(g_key_file_new()), m_group(group)
{
    const QByteArray contents = contentsOfPlainFile(path, links);
    const bool isRead = g_key_file_load_from_data(m_file.get(), contents.constData(),
        static_cast<gsize>(contents.size()), G_KEY_FILE_NONE, nullptr);
    if (!isRead || !g_key_file_has_group(m_file.get(), group))
        m_file.reset();
}

QByteArray KeyFile::value(const char *key) const
{
    if (!m_file)
        return {};
    const QByteArray value =
        taken(g_key_file_get_value(m_file.get(), m_group.constData(), key, nullptr));
    return value.isValidUtf8() ? unescaped(value) : QByteArray();
}

QString KeyFile::text(const char *key) const
{
    return m_file ? QString::fromUtf8(taken(g_key_file_get_locale_string(
               m_file.get(), m_group.constData(), key, nullptr, nullptr)))
                  : QString();
}

bool KeyFile::flag(const char *key) const
{
    return m_file && g_key_file_get_boolean(m_file.get(), m_group.constData(), key, nullptr);
}

} // namespace corvane::freedesktop

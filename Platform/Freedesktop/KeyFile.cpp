#include "KeyFile.h"

#include <QtCore/QFile>

#include <glib.h>

namespace corvane::freedesktop {

namespace {

QByteArray taken(char *text)
{
    const QByteArray copy(text);
    g_free(text);
    return copy;
}

} // namespace

void KeyFile::Free::operator()(_GKeyFile *file) const
{
    g_key_file_free(file);
}

KeyFile::KeyFile(const QString &path, const char *group) : m_file(g_key_file_new()), m_group(group)
{
    const bool isRead = g_key_file_load_from_file(
        m_file.get(), QFile::encodeName(path).constData(), G_KEY_FILE_NONE, nullptr);
    if (!isRead || !g_key_file_has_group(m_file.get(), group))
        m_file.reset();
}

QByteArray KeyFile::value(const char *key) const
{
    return m_file ? taken(g_key_file_get_string(m_file.get(), m_group, key, nullptr))
                  : QByteArray();
}

QString KeyFile::text(const char *key) const
{
    return m_file ? QString::fromUtf8(
               taken(g_key_file_get_locale_string(m_file.get(), m_group, key, nullptr, nullptr)))
                  : QString();
}

bool KeyFile::flag(const char *key) const
{
    return m_file && g_key_file_get_boolean(m_file.get(), m_group, key, nullptr);
}

} // namespace corvane::freedesktop

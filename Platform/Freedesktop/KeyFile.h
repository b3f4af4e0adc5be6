#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <memory>

struct _GKeyFile;

namespace corvane::freedesktop {

/// One group of a key file, as desktop entries are written. What is absent or malformed is empty, and
/// so is what is no plain file: opening a pipe would wait for whoever writes to it.
class KeyFile final
{
public:
    enum class Links { followed, refused };

    KeyFile(const QString &path, const char *group, Links links = Links::followed);

    /// Whether the file could be read and has the group.
    [[nodiscard]] bool isValid() const { return m_file != nullptr; }
    [[nodiscard]] QByteArray value(const char *key) const;
    /// In the user's language.
    [[nodiscard]] QString text(const char *key) const;
    [[nodiscard]] bool flag(const char *key) const;

private:
    struct Free {
        void operator()(_GKeyFile *file) const;
    };

    std::unique_ptr<_GKeyFile, Free> m_file;
    QByteArray m_group;
};

} // namespace corvane::freedesktop

#pragma once

#include <QtCore/QString>

#include <functional>

namespace corvane {

/// What the desktop and the shells know an installed copy by: its command, its desktop entry, the
/// service on the session bus, icons, manual and completions. All of it leads through the link
/// "current", so that it stays right whichever version that is.
class DesktopFiles final
{
public:
    /// Told what the user should know, a sentence at a time.
    using Say = std::function<void(const QString &sentence)>;

    /// In a home folder and the user's folder of data, for the copy at `installation`.
    DesktopFiles(QString home, QString data, const QString &installation, Say say);

    /// Puts in place what is missing or no longer right. What was put there by another stays. False
    /// where something could not be written; the rest is in place.
    bool put() const;
    /// Lets programs that keep a list of such files read them anew, where there are any.
    void announce() const;

    [[nodiscard]] QString commandFolder() const;

private:
    [[nodiscard]] bool putLinks(const QString &from, const QString &to) const;
    [[nodiscard]] bool putLink(const QString &path, const QString &target) const;
    /// A file of the installed version with the program's own path in it.
    [[nodiscard]] bool putText(const QString &name,
        const std::function<QByteArray(const QByteArray &line, const QString &program)> &change)
        const;
    void sayForeign(const QString &path) const;
    [[nodiscard]] bool sayFailed(const QString &path, const QString &reason) const;

    QString m_home;
    QString m_data;
    QString m_current; ///< the link
    Say m_say;
};

} // namespace corvane

#pragma once

#include "FlightRecorder.h"

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

namespace corvane {

/// Puts placeholders in place of what tells who the user is and what they work on: `<title>`, `<user>`,
/// `<home>` and `<host>`. Names are found as whole words in any case, homes of others, too. Any thread
/// may use it.
class Redaction final
{
public:
    struct Secrets {
        QStringList users; ///< login names and full names
        QStringList homes; ///< absolute paths
        QStringList hosts; ///< with and without the domain
    };

    /// Those of this user on this computer.
    [[nodiscard]] static Secrets ownSecrets();
    explicit Redaction(const Secrets &secrets = ownSecrets());

    /// Without names and homes.
    [[nodiscard]] QString redacted(const QString &text) const;
    /// Also without titles: what people have named themselves stands in quotation marks.
    [[nodiscard]] FlightRecorder::Event redacted(const FlightRecorder::Event &event) const;

private:
    void addName(const QString &name, QLatin1StringView placeholder);

    QHash<QString, QLatin1StringView> m_placeholders; ///< by name in lower case
    QRegularExpression m_secrets;
};

} // namespace corvane

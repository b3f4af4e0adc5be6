#include "Build.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace corvane::Build {

using namespace Qt::StringLiterals;

namespace {

Stamp read()
{
    QFile file(u":/build-stamp.json"_s);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QJsonObject json =
        isOpen ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    const auto text = [&json](QLatin1StringView key) {
        const QString value = json[key].toString();
        return value.isEmpty() ? u"unknown"_s : value;
    };
    return {.sha = text("sha"_L1),
        .subject = text("subject"_L1),
        .committed = text("committed"_L1),
        .branch = text("branch"_L1),
        .builtAt = text("built_at"_L1)};
}

std::optional<QDateTime> parsed(const QString &text)
{
    const QDateTime date = QDateTime::fromString(text, Qt::ISODate);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

} // namespace

const Stamp &stamp()
{
    static const Stamp read = Build::read();
    return read;
}

QString version()
{
    return QStringLiteral(CORVANE_VERSION);
}

QString name()
{
    return u"Corvane"_s;
}

QString sha()
{
    return stamp().sha;
}

bool dirty()
{
    return sha().endsWith("-dirty"_L1);
}

std::optional<QDateTime> committed()
{
    return parsed(stamp().committed);
}

std::optional<QDateTime> builtAt()
{
    return parsed(stamp().builtAt);
}

} // namespace corvane::Build

#include "Redaction.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSysInfo>
#include <QtCore/QUrl>

#include <algorithm>
#include <array>
#include <pwd.h>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr auto title = "<title>"_L1;
constexpr auto home = "<home>"_L1;
constexpr auto user = "<user>"_L1;
constexpr auto host = "<host>"_L1;

// A part of a full name that is shorter is a particle or an initial.
constexpr qsizetype shortestPart = 3;

// A letter or digit of an escape such as %20 belongs to no word.
constexpr auto wordStart = R"((?:(?<![\p{L}\p{N}])|(?<=%[0-9a-f]{2})))"_L1;
constexpr auto wordEnd = R"((?![\p{L}\p{N}]))"_L1;
constexpr auto pathEnd = R"((?![\p{L}\p{N}_-]))"_L1;
// In an address, a slash may be written as an escape.
constexpr auto slash = "(?:/|%2f)+"_L1;

/// Hides what is between the first and the last quotation mark, or behind the only one.
QString withoutTitle(const QString &text)
{
    static const QRegularExpression mark(u"[\"“”„«»]"_s);
    const qsizetype first = text.indexOf(mark);
    if (first < 0)
        return text;
    const qsizetype last = text.lastIndexOf(mark);
    return text.first(first + 1) + title + (last > first ? text.sliced(last) : QString());
}

/// The ways to write a text: composed, decomposed, and escaped for an address.
QStringList spellings(const QString &text, const QByteArray &unescaped = {})
{
    QStringList all;
    for (const auto form : {QString::NormalizationForm_C, QString::NormalizationForm_D}) {
        const QString normal = text.normalized(form);
        all << normal << QString::fromLatin1(QUrl::toPercentEncoding(normal, unescaped));
    }
    all.removeDuplicates();
    return all;
}

/// Any of the given homes, of those below /home, root's, or one written as ~name.
QString homePattern(const QStringList &homes)
{
    QStringList spelled;
    for (const QString &each : homes) {
        const QString path = QDir::cleanPath(each);
        if (QDir::isAbsolutePath(path) && path != u"/"_s)
            spelled << spellings(path, "/");
    }
    std::ranges::sort(spelled, std::greater(), &QString::size);
    QStringList patterns;
    for (const QString &path : std::as_const(spelled)) {
        QStringList parts;
        for (const QString &part : path.split(u'/', Qt::SkipEmptyParts))
            parts << QRegularExpression::escape(part);
        patterns << slash + parts.join(slash) + pathEnd;
    }
    patterns << uR"((?:%1var)?%1home%1[^\s/"“”„«»'<>|:;,)\]}]+)"_s.arg(slash)
             << slash + "root"_L1 + pathEnd << uR"(~[\p{L}_][\p{L}\p{N}_.-]*)"_s;
    return patterns.join(u'|');
}

} // namespace

Redaction::Secrets Redaction::ownSecrets()
{
    Secrets secrets;
    secrets.homes << QDir::homePath();
    for (const char *const name : {"USER", "LOGNAME"})
        secrets.users << qEnvironmentVariable(name);
    for (const char *const name :
        {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        secrets.homes << qEnvironmentVariable(name);
    std::array<char, 4096> texts;
    passwd entry;
    passwd *found = nullptr;
    ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    if (found) {
        secrets.users << QString::fromLocal8Bit(entry.pw_name);
        secrets.users << QString::fromLocal8Bit(entry.pw_gecos).section(u',', 0, 0);
        secrets.homes << QString::fromLocal8Bit(entry.pw_dir);
    }
    for (const QString &path : QStringList(secrets.homes))
        secrets.homes << QFileInfo(path).canonicalFilePath();
    secrets.hosts << QSysInfo::machineHostName();
    return secrets;
}

Redaction::Redaction(const Secrets &secrets)
{
    for (const QString &each : secrets.users) {
        addName(each, user);
        for (const QString &part : each.split(u' ')) {
            if (part.size() >= shortestPart)
                addName(part, user);
        }
    }
    for (const QString &each : secrets.hosts) {
        addName(each, host);
        addName(each.section(u'.', 0, 0), host);
    }
    QStringList names = m_placeholders.keys();
    // By length first, so that the name of a user does not hide a part of the host's.
    std::ranges::sort(names, [](const QString &one, const QString &other) {
        return std::pair(-one.size(), one) < std::pair(-other.size(), other);
    });
    for (QString &name : names)
        name = QRegularExpression::escape(name).replace(u"\\ "_s, u"\\s+"_s);
    QString pattern = u"(%1)"_s.arg(homePattern(secrets.homes));
    if (!names.isEmpty())
        pattern += u'|' + wordStart + u"(?:%1)"_s.arg(names.join(u'|')) + wordEnd;
    m_secrets = QRegularExpression(pattern,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    Q_ASSERT(m_secrets.isValid());
}

void Redaction::addName(const QString &name, QLatin1StringView placeholder)
{
    if (const QString plain = name.simplified(); !plain.isEmpty()) {
        for (const QString &spelling : spellings(plain))
            m_placeholders.insert(spelling.toLower(), placeholder);
    }
}

QString Redaction::redacted(const QString &text) const
{
    QString result;
    qsizetype copied = 0;
    for (auto matches = m_secrets.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += QStringView(text).sliced(copied, match.capturedStart() - copied);
        result += match.hasCaptured(1)
            ? home
            : m_placeholders.value(match.captured().simplified().toLower(), user);
        copied = match.capturedEnd();
    }
    return result + text.sliced(copied);
}

FlightRecorder::Event Redaction::redacted(const FlightRecorder::Event &event) const
{
    return {event.date, event.kind, redacted(withoutTitle(event.detail))};
}

} // namespace corvane

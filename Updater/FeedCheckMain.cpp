#include "Feed.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <cstdio>

// Run on a feed before it is published: whether the programs that were built with these keys believe it.
namespace {

using namespace corvane;
using namespace Qt::StringLiterals;

QString sentence(UpdateProblem problem)
{
    switch (problem) {
    case UpdateProblem::noKeys:
        return u"no public keys were named"_s;
    case UpdateProblem::envelopeNotUnderstood:
        return u"it is too long, or no signed document of its kind"_s;
    case UpdateProblem::feedNotSigned:
        return u"none of the feed keys has signed it"_s;
    case UpdateProblem::releaseNotSigned:
        return u"none of the release keys has signed one of its releases"_s;
    case UpdateProblem::feedNotUnderstood:
        return u"a field of the feed is missing or wrong, or two releases have one build"_s;
    case UpdateProblem::releaseNotUnderstood:
        return u"a field of a release is missing or wrong"_s;
    case UpdateProblem::wrongProduct:
        return u"it is about another product"_s;
    case UpdateProblem::wrongChannel:
        return u"it is about another channel"_s;
    case UpdateProblem::lifetimeTooLong:
        return u"it lives too long"_s;
    case UpdateProblem::clockBehind:
        return u"it was issued in the future"_s;
    case UpdateProblem::olderThanRemembered:
        return u"it is older than the one before"_s;
    case UpdateProblem::expired:
        return u"it has expired"_s;
    }
    Q_UNREACHABLE();
}

PublicKeys keysOf(const QString &list)
{
    PublicKeys keys;
    for (const QString &each : list.split(u';', Qt::SkipEmptyParts))
        keys << QByteArray::fromBase64(each.toLatin1());
    return keys;
}

/// How many releases the feed has, those that no known key has signed, too.
qsizetype releaseCount(const QByteArray &document)
{
    const auto envelope = Envelope::fromJson(QJsonDocument::fromJson(document).object());
    return envelope ? QJsonDocument::fromJson(envelope->payload)[u"releases"].toArray().size() : 0;
}

std::optional<UpdateProblem> problemOf(
    const QByteArray &document, const FeedReader &reader, bool mayBeOld)
{
    const auto feed = reader.read(document);
    if (!feed)
        return feed.error();
    // A program waits for a newer one where it does not know a release's key. Here all are known.
    if (feed->entries.size() != releaseCount(document))
        return UpdateProblem::releaseNotSigned;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return mayBeOld ? std::nullopt : KnownTime{now, now, std::nullopt}.problem(*feed);
}

int refuse(const QString &why)
{
    std::fputs(qUtf8Printable(why + u'\n'), stderr);
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"channel"_s, u"What the feed is for."_s, u"name"_s, u"stable"_s},
        {u"release-keys"_s, u"Public keys in base64, with semicolons between."_s, u"keys"_s},
        {u"feed-keys"_s, u"Likewise."_s, u"keys"_s},
        {u"old"_s, u"Believes a feed that has expired, too."_s}});
    parser.addPositionalArgument(u"feed"_s, u"The file."_s);
    parser.addHelpOption();
    parser.process(application);

    QFile file(parser.positionalArguments().value(0));
    if (!file.open(QIODevice::ReadOnly))
        return refuse(u"The feed cannot be read: %1."_s.arg(file.errorString()));
    const FeedReader reader{
        {keysOf(parser.value(u"release-keys"_s)), keysOf(parser.value(u"feed-keys"_s))},
        u"Corvane"_s, parser.value(u"channel"_s)};
    if (const auto problem = problemOf(file.readAll(), reader, parser.isSet(u"old"_s)))
        return refuse(u"A client would refuse this feed: %1."_s.arg(sentence(*problem)));
    std::puts("A client believes this feed.");
    return 0;
}

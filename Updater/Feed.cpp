#include "Feed.h"

#include "Decoding.h"
#include "ServerAddress.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QRegularExpression>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

// A signed document is good as a whole or not at all, since what signs it is a program. Fields that are
// not known here are for later versions.
namespace {

// Other programs keep a JSON number as a double.
constexpr qint64 highestBuild = (1LL << 53) - 1;
constexpr qsizetype longestAddress = 2000;
constexpr std::chrono::seconds longestInterval = std::chrono::days(30);
constexpr std::chrono::seconds longestLifetime = std::chrono::days(30);
constexpr std::chrono::seconds clockTolerance = std::chrono::days(1);

template <qint64 least, qint64 most>
struct Number {
    qint64 value = least;

    static std::optional<Number> fromJson(const QJsonValue &json)
    {
        const qint64 value = json.toInteger(least - 1);
        return value < least || value > most ? std::nullopt : std::optional(Number{value});
    }
};

std::optional<QString> textOfForm(const QJsonValue &json, const QRegularExpression &form)
{
    const QString text = json.toString();
    return form.match(text).hasMatch() ? std::optional(text) : std::nullopt;
}

/// A name, which may become a part of a file's.
struct Word {
    QString text;

    static std::optional<Word> fromJson(const QJsonValue &json)
    {
        static const QRegularExpression form(u"\\A[A-Za-z0-9][A-Za-z0-9._+~-]{0,31}\\z"_s);
        const auto text = textOfForm(json, form);
        return text ? std::optional(Word{*text}) : std::nullopt;
    }
};

struct GlibcVersion {
    QString text;

    static std::optional<GlibcVersion> fromJson(const QJsonValue &json)
    {
        static const QRegularExpression form(u"\\A\\d{1,3}\\.\\d{1,3}\\z"_s);
        const auto text = textOfForm(json, form);
        return text ? std::optional(GlibcVersion{*text}) : std::nullopt;
    }
};

struct Sha256 {
    QByteArray bytes;

    static std::optional<Sha256> fromJson(const QJsonValue &json)
    {
        static const QRegularExpression form(u"\\A[0-9a-f]{64}\\z"_s);
        const auto text = textOfForm(json, form);
        return text ? std::optional(Sha256{QByteArray::fromHex(text->toLatin1())}) : std::nullopt;
    }
};

/// An array that is good only if every element is.
template <typename T, qsizetype least, qsizetype most>
struct Several {
    QList<T> elements;

    static std::optional<Several> fromJson(const QJsonValue &json, DecodeProblems &problems)
    {
        const QJsonArray array = json.toArray();
        if (!json.isArray() || array.size() < least || array.size() > most)
            return std::nullopt;
        Several result;
        for (const QJsonValue each : array) {
            auto element = decode<T>(each, problems);
            if (!element)
                return std::nullopt;
            result.elements << *std::move(element);
        }
        return result;
    }
};

/// What the feed's key has signed of a release.
struct SignedEntry {
    Envelope envelope;
    FeedEntry entry; ///< without the release
};

struct SignedFeed {
    Feed feed; ///< without its entries
    QList<SignedEntry> entries;
};

QJsonValue objectOf(const QByteArray &document)
{
    return QJsonDocument::fromJson(document).object();
}

bool haveBuildsOfTheirOwn(const QList<FeedEntry> &entries)
{
    QList<qint64> builds;
    for (const FeedEntry &each : entries)
        builds << each.release.build;
    std::ranges::sort(builds);
    return std::ranges::adjacent_find(builds) == builds.end();
}

unexpected<UpdateProblem> because(UpdateProblem problem)
{
    return unexpected<UpdateProblem>(problem);
}

} // namespace

template <>
std::optional<QUrl> decode(const QJsonValue &json, DecodeProblems &)
{
    const QString text = json.toString();
    const QUrl address(text, QUrl::StrictMode);
    return text.size() <= longestAddress && address.userInfo().isEmpty()
            && isPrivateAddress(address)
        ? std::optional(address)
        : std::nullopt;
}

template <>
std::optional<Artefact> decode(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader reader(json, problems);
    return reader.result(Artefact{
        .os = reader.require<Word>("os"_L1).text,
        .arch = reader.require<Word>("arch"_L1).text,
        .glibc = reader.require<GlibcVersion>("glibc"_L1).text,
        .addresses = reader.require<Several<QUrl, 1, 3>>("addresses"_L1).elements,
        .size = reader.require<Number<1, Feed::largestArtefact>>("size"_L1).value,
        .sha256 = reader.require<Sha256>("sha256"_L1).bytes,
        .unpackedSize = reader.require<Number<1, Feed::largestUnpacked>>("unpackedSize"_L1).value,
    });
}

template <>
std::optional<Release> decode(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader reader(json, problems);
    const auto release = reader.result(Release{
        .product = reader.require<Word>("product"_L1).text,
        .version = reader.require<Word>("version"_L1).text,
        .build = reader.require<Number<1, highestBuild>>("build"_L1).value,
        .date = reader.require<QDateTime>("date"_L1),
        .minimumBuild = reader.require<Number<0, highestBuild>>("minimumBuild"_L1).value,
        .artefacts = reader.require<Several<Artefact, 1, 16>>("artefacts"_L1).elements,
    });
    return release && release->minimumBuild < release->build ? release : std::nullopt;
}

template <>
std::optional<Rollout> decode(const QJsonValue &json, DecodeProblems &problems)
{
    using Interval = Number<0, longestInterval.count()>;
    StrictReader reader(json, problems);
    return reader.result(Rollout{
        .start = reader.require<QDateTime>("start"_L1),
        .interval = std::chrono::seconds(reader.require<Interval>("interval"_L1).value),
    });
}

template <>
std::optional<NotesSum> decode(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader reader(json, problems);
    return reader.result(NotesSum{
        .size = reader.require<Number<0, Feed::longestNotes>>("size"_L1).value,
        .sha256 = reader.require<Sha256>("sha256"_L1).bytes,
    });
}

template <>
std::optional<SignedEntry> decode(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader reader(json, problems);
    return reader.result(SignedEntry{
        .envelope = reader.require<Envelope>("release"_L1),
        .entry = {.rollout = reader.require<Rollout>("rollout"_L1),
            .critical = reader.require<bool>("critical"_L1),
            .notes = reader.require<NotesSum>("notes"_L1)},
    });
}

template <>
std::optional<SignedFeed> decode(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader reader(json, problems);
    const auto result = reader.result(SignedFeed{
        .feed = {.product = reader.require<Word>("product"_L1).text,
            .channel = reader.require<Word>("channel"_L1).text,
            .issued = reader.require<QDateTime>("issued"_L1),
            .expires = reader.require<QDateTime>("expires"_L1)},
        .entries = reader.require<Several<SignedEntry, 0, 32>>("releases"_L1).elements,
    });
    return result && result->feed.issued < result->feed.expires ? result : std::nullopt;
}

expected<Feed, UpdateProblem> FeedReader::read(const QByteArray &document) const
{
    if (keys.isEmpty())
        return because(UpdateProblem::noKeys);
    const auto envelope =
        document.size() <= Feed::longest ? Envelope::fromJson(objectOf(document)) : std::nullopt;
    if (!envelope || envelope->payloadType != feedType)
        return because(UpdateProblem::envelopeNotUnderstood);
    if (!envelope->isSignedBy(keys.feed))
        return because(UpdateProblem::feedNotSigned);
    DecodeProblems problems;
    const auto content = decode<SignedFeed>(objectOf(envelope->payload), problems);
    if (!content)
        return because(UpdateProblem::feedNotUnderstood);
    if (content->feed.product != product)
        return because(UpdateProblem::wrongProduct);
    if (content->feed.channel != channel)
        return because(UpdateProblem::wrongChannel);
    Feed feed = content->feed;
    for (const auto &[signedRelease, entry] : content->entries) {
        if (!signedRelease.isSignedBy(keys.release))
            continue;
        const auto release = this->release(signedRelease);
        if (!release)
            return because(release.error());
        feed.entries << entry;
        feed.entries.last().release = *release;
    }
    if (feed.entries.isEmpty() && !content->entries.isEmpty())
        return because(UpdateProblem::releaseNotSigned);
    if (!haveBuildsOfTheirOwn(feed.entries))
        return because(UpdateProblem::feedNotUnderstood);
    return feed;
}

expected<Release, UpdateProblem> FeedReader::release(const Envelope &envelope) const
{
    if (envelope.payloadType != releaseType)
        return because(UpdateProblem::envelopeNotUnderstood);
    DecodeProblems problems;
    auto release = decode<Release>(objectOf(envelope.payload), problems);
    if (!release)
        return because(UpdateProblem::releaseNotUnderstood);
    if (release->product != product)
        return because(UpdateProblem::wrongProduct);
    return *std::move(release);
}

QDateTime KnownTime::now() const
{
    return std::max({clock, built, issued.value_or(built)});
}

std::optional<UpdateProblem> KnownTime::problem(const Feed &feed) const
{
    if (feed.issued.secsTo(feed.expires) > longestLifetime.count())
        return UpdateProblem::lifetimeTooLong;
    if (now().secsTo(feed.issued) > clockTolerance.count())
        return UpdateProblem::clockBehind;
    if (issued && feed.issued < *issued)
        return UpdateProblem::olderThanRemembered;
    return feed.expires <= now() ? std::optional(UpdateProblem::expired) : std::nullopt;
}

} // namespace corvane

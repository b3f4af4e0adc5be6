#pragma once

#include "Expected.h"
#include "Release.h"
#include "UpdateKeys.h"
#include "UpdateProblem.h"

#include <chrono>
#include <optional>

namespace corvane {

/// When a release is offered: to one group of computers after the other.
struct Rollout {
    QDateTime start;
    std::chrono::seconds interval{}; ///< from one group to the next

    bool operator==(const Rollout &) const = default;
};

/// What the text on a release is, wherever it comes from.
struct NotesSum {
    qint64 size = 0; ///< in bytes
    QByteArray sha256; ///< 32 bytes

    bool operator==(const NotesSum &) const = default;
};

/// A release and how it is offered.
struct FeedEntry {
    Release release{};
    Rollout rollout;
    bool critical = false; ///< offered to everybody at once
    NotesSum notes;

    bool operator==(const FeedEntry &) const = default;
};

/// What the feed's key says is to be had, and what the release key says of each.
struct Feed {
    static constexpr qsizetype longest = 256LL * 1024; ///< in bytes, as are the next
    static constexpr qint64 longestNotes = 64LL * 1024;
    static constexpr qint64 largestArtefact = 128LL * 1024 * 1024;
    static constexpr qint64 largestUnpacked = 512LL * 1024 * 1024;

    QString product, channel;
    QDateTime issued, expires;
    QList<FeedEntry> entries{};

    bool operator==(const Feed &) const = default;
};

/// The types of the two envelopes.
inline constexpr QByteArrayView feedType{"application/vnd.corvane.feed+json"};
inline constexpr QByteArrayView releaseType{"application/vnd.corvane.release+json"};

/// What a program reads a feed for.
struct FeedReader {
    UpdateKeys keys;
    QString product, channel;

    /// The feed, once its signature has been verified. It lacks those of its releases that no known key
    /// has signed: whoever still has only old keys finds the release among them that brings the new.
    [[nodiscard]] expected<Feed, UpdateProblem> read(const QByteArray &document) const;

private:
    /// Of an envelope whose signature has been verified.
    [[nodiscard]] expected<Release, UpdateProblem> release(const Envelope &envelope) const;
};

/// What is known of the time, however wrong the clock is.
struct KnownTime {
    QDateTime clock;
    QDateTime built; ///< this program
    std::optional<QDateTime> issued; ///< the newest feed that was believed

    /// The latest of them.
    [[nodiscard]] QDateTime now() const;
    /// Why a feed must not be believed at this time, though it is signed; nothing when it may.
    [[nodiscard]] std::optional<UpdateProblem> problem(const Feed &feed) const;
};

} // namespace corvane

#pragma once

#include "InstallProblem.h"
#include "SendFailure.h"
#include "UpdateProblem.h"

#include <QtCore/QDateTime>

#include <variant>

namespace corvane {

/// What the program that updates this one says of a pass, on one line.
struct UpdateMessage {
    static constexpr qsizetype longest = 512LL * 1024; ///< in bytes, of a line

    struct Found {
        QString version;
        qint64 build = 0;
        QDateTime released;
        bool operator==(const Found &) const = default;
    };
    struct NotFound {
        bool operator==(const NotFound &) const = default;
    };
    struct Notes {
        QByteArray page;
        bool operator==(const Notes &) const = default;
    };
    struct NotesFailed {
        SendProblem problem{};
        bool operator==(const NotesFailed &) const = default;
    };
    /// A download begins, of so many bytes.
    struct Downloading {
        qint64 size = 0;
        bool operator==(const Downloading &) const = default;
    };
    struct Received {
        qint64 more = 0;
        bool operator==(const Received &) const = default;
    };
    struct Extracting {
        bool operator==(const Extracting &) const = default;
    };
    struct Extracted {
        double share = 0; ///< 0 to 1
        bool operator==(const Extracted &) const = default;
    };
    struct Ready {
        bool operator==(const Ready &) const = default;
    };
    /// The new version is the one that starts from now on.
    struct Installed {
        qint64 build = 0;
        QString version;
        std::optional<qint64> previous; ///< what there is to go back to
        bool operator==(const Installed &) const = default;
    };
    struct Failed {
        /// The first one is that of a server, be it of the feed or of the download.
        std::variant<SendProblem, UpdateProblem, InstallProblem> problem;
        QString detail{}; ///< in no particular language; may be empty
        bool operator==(const Failed &) const = default;
    };

    std::variant<Found, NotFound, Notes, NotesFailed, Downloading, Received, Extracting, Extracted,
        Ready, Installed, Failed>
        value;

    [[nodiscard]] QByteArray toLine() const;
    /// Nothing for what is no such line.
    [[nodiscard]] static std::optional<UpdateMessage> fromLine(const QByteArray &line);

    bool operator==(const UpdateMessage &) const = default;
};

/// What the program that updates this one is told.
enum class UpdateWord { install, later, cancel };

inline constexpr EnumTable<UpdateWord::cancel, NamedCase<UpdateWord>> updateWords({{
    {UpdateWord::install, QLatin1StringView("install")},
    {UpdateWord::later, QLatin1StringView("later")},
    {UpdateWord::cancel, QLatin1StringView("cancel")},
}});

} // namespace corvane

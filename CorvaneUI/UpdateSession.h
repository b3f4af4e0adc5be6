#pragma once

#include "ReleaseNotes.h"

#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtCore/QProperty>
#include <QtCore/QUrl>

#include <functional>
#include <optional>
#include <variant>

namespace corvane {

/// One pass through the updater, as it is shown. Whoever drives the pass sets the members, and supplies
/// what the user can do about it.
class UpdateSession final : public QObject
{
    Q_OBJECT

public:
    struct Stage {
        struct Checking {
            bool operator==(const Checking &) const = default;
        };
        struct Found {
            bool operator==(const Found &) const = default;
        };
        struct Downloading {
            bool operator==(const Downloading &) const = default;
        };
        struct Extracting {
            bool operator==(const Extracting &) const = default;
        };
        struct Installing {
            bool operator==(const Installing &) const = default;
        };
        struct UpToDate {
            bool operator==(const UpToDate &) const = default;
        };
        struct Failed {
            QString message;
            bool operator==(const Failed &) const = default;
        };

        std::variant<Checking, Found, Downloading, Extracting, Installing, UpToDate, Failed> value;
        bool operator==(const Stage &) const = default;
    };

    std::function<void()> onInstall = [] {};
    std::function<void()> onLater = [] {};
    std::function<void()> onCancel = [] {};
    std::function<void()> onClose = [] {};
    std::function<void()> onRetry = [] {};

Q_SIGNALS:
    void stageChanged();
    void candidateChanged(); ///< or its notes
    void progressChanged();

public:
    Q_OBJECT_BINDABLE_PROPERTY(UpdateSession, Stage, stage, &UpdateSession::stageChanged)
    Q_OBJECT_BINDABLE_PROPERTY(UpdateSession, QString, version, &UpdateSession::candidateChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        UpdateSession, std::optional<QDateTime>, released, &UpdateSession::candidateChanged)
    /// Empty while they load, and when they could not be loaded.
    Q_OBJECT_BINDABLE_PROPERTY(
        UpdateSession, QList<ReleaseNotes::Section>, notes, &UpdateSession::candidateChanged)
    Q_OBJECT_BINDABLE_PROPERTY(UpdateSession, QUrl, notesURL, &UpdateSession::candidateChanged)
    Q_OBJECT_BINDABLE_PROPERTY(UpdateSession, bool, notesFailed, &UpdateSession::candidateChanged)
    Q_OBJECT_BINDABLE_PROPERTY(UpdateSession, quint64, received, &UpdateSession::progressChanged)
    /// 0 while it is unknown.
    Q_OBJECT_BINDABLE_PROPERTY(UpdateSession, quint64, expected, &UpdateSession::progressChanged)
    /// From 0 to 1.
    Q_OBJECT_BINDABLE_PROPERTY(UpdateSession, double, extraction, &UpdateSession::progressChanged)
};

} // namespace corvane

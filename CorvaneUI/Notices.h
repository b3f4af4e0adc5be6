#pragma once

#include "Expected.h"
#include "StoreProblem.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>

namespace corvane {

/// A problem for the user to know. At most one has a given id.
struct Notice {
    /// What the user can do about it at once.
    enum class Offer {
        none,
        report, ///< to those who made the program, who would like to hear of it
        openAgain, ///< as the program that is installed by now
    };

    QString id;
    QString text;
    std::optional<QUrl> reveal; ///< a file that the user may want to see
    Offer offer = Offer::none;

    /// What a button for that says; empty where there is nothing to be done.
    [[nodiscard]] QString offerTitle() const;

    bool operator==(const Notice &) const = default;
};

/// The problems that the user is told of, oldest first, until they are over. What becomes of files
/// is worded here, so that a file has one notice of each kind, whoever reads or writes it.
class Notices final : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] const QList<Notice> &all() const { return m_all; }
    [[nodiscard]] std::optional<Notice> unreadable(const QUrl &file) const;
    void post(const Notice &notice);
    void dismiss(const QString &id);

    /// Tells that the file could not be read whole, or dismisses that notice.
    void tellReading(const QUrl &file, const std::optional<StoreProblem> &problem,
        StoreProblem::Instead instead);
    /// Tells, of a file that is only added to, why it cannot be written; `problem` is empty once it
    /// can be.
    void tellWriting(const QString &path, const QString &problem);
    /// Tells that the user's changes could not be saved, until a save succeeds. The error is the
    /// notice's text.
    expected<void, QString> tellSaving(const QUrl &file, const expected<void, QString> &saved);

Q_SIGNALS:
    void changed();

private:
    QList<Notice> m_all;
    QHash<QString, QString> m_unwritten; ///< why, by path
};

} // namespace corvane

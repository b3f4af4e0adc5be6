#include "Notices.h"

#include "DataFolder.h"
#include "FlightRecorder.h"

#include <QtCore/QFileInfo>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString unreadableID(const QUrl &file)
{
    return u"unreadable-"_s + file.fileName();
}

QString saveFailedID()
{
    return u"save-failed"_s;
}

} // namespace

QString Notice::offerTitle() const
{
    switch (offer) {
    case Offer::none:
        return {};
    case Offer::report:
        return Notices::tr("Report a Problem…");
    case Offer::openAgain:
        return Notices::tr("Open Again");
    }
    Q_UNREACHABLE();
}

std::optional<Notice> Notices::unreadable(const QUrl &file) const
{
    const auto found = std::ranges::find(m_all, unreadableID(file), &Notice::id);
    return found == m_all.end() ? std::nullopt : std::optional(*found);
}

void Notices::post(const Notice &notice)
{
    m_all.removeIf([&notice](const Notice &each) { return each.id == notice.id; });
    m_all.append(notice);
    FlightRecorder::shared().record(u"notice"_s, notice.text);
    Q_EMIT changed();
}

void Notices::dismiss(const QString &id)
{
    if (m_all.removeIf([&id](const Notice &each) { return each.id == id; }))
        Q_EMIT changed();
}

void Notices::tellReading(
    const QUrl &file, const std::optional<StoreProblem> &problem, StoreProblem::Instead instead)
{
    if (!problem)
        return dismiss(unreadableID(file));
    FlightRecorder::shared().record(u"settings-unreadable"_s, detail(*problem));
    post({unreadableID(file), sentence(*problem, instead), problem->kept});
}

void Notices::tellWriting(const QString &path, const QString &problem)
{
    if (m_unwritten.value(path) == problem)
        return;
    m_unwritten.insert(path, problem);
    const QString id = u"unwritten-"_s + QFileInfo(path).fileName();
    if (problem.isEmpty())
        return dismiss(id);
    post({id,
        tr("Corvane could not write to %1: %2 Windows are moved all the same.")
            .arg(abbreviatedPath(path), problem),
        QUrl::fromLocalFile(path)});
}

expected<void, QString> Notices::tellSaving(const QUrl &file, const expected<void, QString> &saved)
{
    if (saved) {
        dismiss(saveFailedID());
        return {};
    }
    FlightRecorder::shared().record(saveFailedID(), file.fileName() + u": "_s + saved.error());
    const QString text = tr("Corvane could not save to %1: %2 Changes work until Corvane quits.")
                             .arg(abbreviatedPath(file.toLocalFile()), saved.error());
    post({saveFailedID(), text, file});
    return unexpected<QString>(text);
}

} // namespace corvane

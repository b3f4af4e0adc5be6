#include "ReportDraft.h"

#include "FileError.h"
#include "PrivateFile.h"

#include <QtCore/QFile>

#include <cerrno>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Without a text there is no file.
expected<void, QString> write(const QString &path, const QString &text)
{
    if (!text.isEmpty())
        return PrivateFile::replace(path, text.toUtf8());
    if (::unlink(QFile::encodeName(path).constData()) == 0 || errno == ENOENT)
        return {};
    return lastFileError();
}

} // namespace

ReportDraft::ReportDraft(const QString &folder) : m_path(folder + u"/report-draft.txt"_s)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(500ms);
    connect(&m_timer, &QTimer::timeout, this, &ReportDraft::save);
}

ReportDraft::~ReportDraft()
{
    save();
}

// The timer is not put off by further changes, as somebody may write for minutes without a pause.
void ReportDraft::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_isSaved = false;
    if (!m_timer.isActive())
        m_timer.start();
}

void ReportDraft::read()
{
    if (!m_isSaved)
        return;
    const auto content = PrivateFile::read(m_path);
    if (content)
        m_text = QString::fromUtf8(content->value_or(QByteArray()));
    setProblem(content
            ? QString()
            : tr("Corvane could not read what you wrote before: %1").arg(content.error()));
}

void ReportDraft::save()
{
    m_timer.stop();
    if (m_isSaved)
        return;
    const auto written = write(m_path, m_text);
    m_isSaved = written.has_value();
    setProblem(m_isSaved
            ? QString()
            : tr("Corvane could not keep what you wrote on the disk: %1 It is kept until Corvane "
                 "quits.")
                  .arg(written.error()));
}

void ReportDraft::setProblem(const QString &problem)
{
    if (std::exchange(m_problem, problem) != problem)
        Q_EMIT problemChanged();
}

} // namespace corvane

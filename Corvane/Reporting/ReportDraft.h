#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace corvane {

/// What a user has written of a report that is neither sent nor saved, kept on the disk from soon after
/// each change. While the disk fails, it is kept in memory.
class ReportDraft final : public QObject
{
    Q_OBJECT

public:
    /// Keeps it in that folder.
    explicit ReportDraft(const QString &folder);
    /// Saves it.
    ~ReportDraft() override;

    [[nodiscard]] const QString &text() const { return m_text; }
    void setText(const QString &text);
    /// Takes what is on the disk, unless there is something newer in memory.
    void read();
    /// Saves at once what is not saved yet.
    void save();
    /// Why it is not on the disk, or was not read; one sentence, empty when all is well.
    [[nodiscard]] const QString &problem() const { return m_problem; }

Q_SIGNALS:
    void problemChanged();

private:
    void setProblem(const QString &problem);

    QString m_path;
    QString m_text;
    QString m_problem;
    bool m_isSaved = true;
    QTimer m_timer;
};

} // namespace corvane

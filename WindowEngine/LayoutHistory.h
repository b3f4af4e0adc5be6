#pragma once

#include "WindowLayout.h"

#include <QtCore/QHash>

namespace corvane {

/// Undo and redo of layout edits as whole snapshots, and the versions last saved. It holds no
/// present: every call is handed the layouts as they are, and answers with what they become.
class LayoutHistory final
{
public:
    using Layouts = QList<WindowLayout>;

    /// The oldest undo points beyond this many are forgotten.
    static constexpr int depth = 100;

    /// To be called before an action, which `title` names. What was undone can no longer be redone.
    void record(const QString &title, const Layouts &present);
    /// The layouts as they were before the latest action. Absent when there is nothing to undo.
    [[nodiscard]] std::optional<Layouts> undo(const Layouts &present);
    [[nodiscard]] std::optional<Layouts> redo(const Layouts &present);
    /// The action that `undo` takes back.
    [[nodiscard]] std::optional<QString> undoTitle() const;
    [[nodiscard]] std::optional<QString> redoTitle() const;

    /// Makes these the versions that `revert` goes back to.
    void setSaved(const WindowLayout &layout);
    void setSaved(const Layouts &layouts);
    [[nodiscard]] std::optional<WindowLayout> savedVersion(const QUuid &id) const;
    /// Puts one layout back the way it was last saved, and records that. Absent when it is not in
    /// the list, was never saved or is as saved.
    [[nodiscard]] std::optional<Layouts> revert(const QUuid &id, const Layouts &present);

private:
    struct Point {
        QString title;
        Layouts layouts;
    };

    static std::optional<Layouts> step(
        QList<Point> &from, QList<Point> &to, const Layouts &present);

    QList<Point> m_undo;
    QList<Point> m_redo;
    QHash<QUuid, WindowLayout> m_saved;
};

} // namespace corvane

#pragma once

#include "FileStamp.h"
#include "LayoutHistory.h"
#include "LayoutStore.h"
#include "Notices.h"

#include <QtCore/QObject>

#include <functional>

namespace corvane {

/// The layouts in force. Every change of them is saved at once and can be undone, except as said;
/// what somebody else has written into their file since is read before each change.
class LayoutLibrary final : public QObject
{
    Q_OBJECT

public:
    /// Takes from layouts the shortcuts that others hold already.
    using SettleShortcuts = std::function<void(QList<WindowLayout> &layouts)>;

    /// `notices`, which are told what becomes of the file, outlive the library. `settleShortcuts` is
    /// called for all layouts that are about to be in force.
    LayoutLibrary(LayoutStore store, Notices &notices, SettleShortcuts settleShortcuts);

    [[nodiscard]] QUrl url() const { return m_store.url(); }
    /// Reads the file at start. The layouts in it count as saved.
    void load();
    /// Reads the file again where it is not as it was last read or written.
    void refresh();

    [[nodiscard]] const QList<WindowLayout> &all() const { return m_layouts; }
    /// The layout of this id, else the first one of this name.
    [[nodiscard]] std::optional<WindowLayout> layout(const QString &nameOrID) const;
    [[nodiscard]] std::optional<WindowLayout> layout(const QUuid &id) const;

    /// Adds a layout of one empty pane for each connected display.
    WindowLayout addEmpty();
    /// Adds what `capture` makes, which is handed a name that no other layout has. The error is one
    /// sentence; then the layout is there, too, but only until the program ends.
    expected<WindowLayout, QString> addCaptured(
        const QString &name, const std::function<WindowLayout(const QString &name)> &capture);
    /// Adds a layout that is never written to the file, in place of the last one added so and under
    /// its id, without a step to undo.
    WindowLayout addSample(WindowLayout layout);
    std::optional<WindowLayout> duplicate(const QUuid &id);
    void remove(const QUuid &id);
    void rename(const QUuid &id, const QString &name);
    /// To this place among all. The first one whose displays connect is the one that is applied.
    void move(const QUuid &id, qsizetype index);
    /// Replaces the layout that has the id. `undoTitle` names the action.
    void update(const WindowLayout &layout, const QString &undoTitle);
    /// Puts these layouts in the place of all, without a step to undo.
    expected<void, QString> replaceAll(QList<WindowLayout> layouts);
    /// Gives the layout's panes today's identifiers of their applications (see `mended`), without a
    /// step to undo: nobody did anything.
    WindowLayout mend(const WindowLayout &layout);

    void undo();
    void redo();
    [[nodiscard]] std::optional<QString> undoTitle() const { return m_history.undoTitle(); }
    [[nodiscard]] std::optional<QString> redoTitle() const { return m_history.redoTitle(); }
    /// Makes the layout the version that `revert` goes back to. This cannot be undone.
    void save(const QUuid &id);
    void revert(const QUuid &id);
    [[nodiscard]] std::optional<WindowLayout> savedVersion(const QUuid &id) const
    {
        return m_history.savedVersion(id);
    }

Q_SIGNALS:
    void changed();
    /// Shortcuts of layouts are other ones than before. Comes after `changed`.
    void shortcutsChanged();

private:
    void read();
    [[nodiscard]] std::optional<FileStamp> stampNow() const;
    /// Those that belong in the file.
    [[nodiscard]] QList<WindowLayout> withoutSample(QList<WindowLayout> layouts) const;
    expected<void, QString> add(const WindowLayout &layout, const QString &undoTitle);
    /// Replaces all layouts by an action that can be undone.
    expected<void, QString> perform(const QString &undoTitle, QList<WindowLayout> layouts);

    LayoutStore m_store;
    Notices &m_notices;
    SettleShortcuts m_settleShortcuts;
    QList<WindowLayout> m_layouts;
    LayoutHistory m_history;
    const QUuid m_sample = QUuid::createUuid(); ///< whether there is one or not
    std::optional<FileStamp> m_stamp; ///< of the file that the layouts came from or went to
};

} // namespace corvane

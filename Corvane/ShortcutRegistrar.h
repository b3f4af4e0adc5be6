#pragma once

#include "AppModel.h"

namespace corvane {

/// Registers the model's shortcuts as system-wide hot keys, for as long as the object lives, and calls
/// back when one is pressed. Main thread only.
class ShortcutRegistrar final : public QObject
{
    Q_OBJECT

public:
    explicit ShortcutRegistrar(AppModel &model);
    ~ShortcutRegistrar() override;

    std::function<void(Placement)> onPlacement;
    std::function<void(const QUuid &)> onLayout;

    /// Registers the whole set afresh, and returns one line that says how it went. The model is told
    /// which shortcuts were refused, and the terminal why, once for as long as each stays refused.
    /// While the model records keys none is registered, since they are to do nothing else then.
    QString registerAll();
    /// Combinations that nobody holds, for these placements in place of their own: the same keys with other
    /// modifiers, where there are such.
    [[nodiscard]] ShortcutMap freeCombos(const QList<Placement> &placements);

private:
    struct Refusal {
        ShortcutOwner owner;
        KeyCombo combo;
        qint32 status; ///< see `HotKeys`
        QString holder; ///< of the combination, where the desktop names it
    };

    void unregisterAll();
    [[nodiscard]] bool isFree(const KeyCombo &combo);
    void registerOne(const KeyCombo &combo, const ShortcutOwner &owner, QList<Refusal> &refusals);
    [[nodiscard]] QString sentence(const Refusal &refusal) const;
    void tell(const QList<Refusal> &refusals);
    void press(quint32 id) const;

    AppModel &m_model;
    QHash<quint32, ShortcutOwner> m_owners; ///< of the registered hot keys, by their ids
    quint32 m_lastId = 0;
    QStringList m_told; ///< the sentences about those that are refused now
};

} // namespace corvane

#pragma once

#include "AppModel.h"
#include "HotKey.h"

#include <memory>
#include <vector>

namespace corvane {

/// Keeps the model's shortcuts registered as system-wide hot keys.
class ShortcutRegistrar final
{
public:
    explicit ShortcutRegistrar(AppModel &model) : m_model(model) { }

    std::function<void(Placement)> onPlacement;
    std::function<void(const QUuid &)> onLayout;

    /// Registers the whole set afresh and tells the model which were refused, and the terminal why, each
    /// time once for as long as it stays refused. None while the model records keys, which are to do
    /// nothing else then. One line that says how it went.
    QString registerAll();

private:
    struct Refusal {
        ShortcutOwner owner;
        KeyCombo combo;
        qint32 status;
    };

    void registerOne(const KeyCombo &combo, const ShortcutOwner &owner, QList<Refusal> &refusals);
    [[nodiscard]] QString sentence(const Refusal &refusal) const;
    void tell(const QList<Refusal> &refusals);
    void press(const ShortcutOwner &owner) const;

    AppModel &m_model;
    std::vector<std::unique_ptr<HotKey>> m_hotKeys;
    QStringList m_told; ///< of those that are refused now
};

} // namespace corvane

#pragma once

#include "WindowElement.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QString>

namespace corvane::wayland {

/// Our numbers for windows that the compositor knows by unique identifiers. No number is given twice.
class WindowNumbers final
{
public:
    [[nodiscard]] WindowElement element(const QString &identifier);
    /// Empty for a window that is gone.
    [[nodiscard]] QString identifier(const WindowElement &element) const
    {
        return m_identifiers.value(element.number);
    }
    /// Forgets all others.
    void keep(const QSet<QString> &identifiers);

private:
    QHash<QString, quint64> m_numbers;
    QHash<quint64, QString> m_identifiers;
    quint64 m_last = 0;
};

} // namespace corvane::wayland

#include "WindowNumbers.h"

namespace corvane::wayland {

WindowElement WindowNumbers::element(const QString &identifier)
{
    quint64 &number = m_numbers[identifier];
    if (number == 0) {
        number = ++m_last;
        m_identifiers.insert(number, identifier);
    }
    return {.number = number};
}

void WindowNumbers::keep(const QSet<QString> &identifiers)
{
    const auto isGone = [&](const QString &identifier) {
        return !identifiers.contains(identifier);
    };
    m_numbers.removeIf([&](const auto &entry) { return isGone(entry.key()); });
    m_identifiers.removeIf([&](const auto &entry) { return isGone(entry.value()); });
}

} // namespace corvane::wayland

#pragma once

#include <QtCore/QLatin1StringView>
#include <QtCore/QStringView>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace corvane {

/// A case of an enumeration with its stable name, as files and command lines spell it. A table
/// whose cases have more to them has rows of its own.
template <typename Enum>
struct NamedCase {
    Enum value;
    QLatin1StringView name;
};

/// What is fixed about each case of an enumeration whose last case is `last`: one row a case, in
/// the enumeration's order. A table that leaves a case out, or has them in another order, does not
/// compile. Each row has its case in `value`; a case can be looked up by its row's `name`, where
/// rows have one.
template <auto last, typename Row>
class EnumTable final
{
public:
    using Case = decltype(last);
    static constexpr std::size_t size = static_cast<std::size_t>(last) + 1;

    consteval explicit EnumTable(const std::array<Row, size> &rows) : m_rows(rows)
    {
        for (std::size_t i = 0; i < size; ++i) {
            if (static_cast<std::size_t>(rows[i].value) != i)
                rowsDoNotFollowTheEnumeration();
        }
    }

    [[nodiscard]] constexpr const Row &operator[](Case value) const
    {
        return m_rows[static_cast<std::size_t>(value)];
    }

    [[nodiscard]] constexpr std::array<Case, size> cases() const
    {
        std::array<Case, size> cases{};
        std::ranges::transform(m_rows, cases.begin(), &Row::value);
        return cases;
    }

    [[nodiscard]] std::optional<Case> named(QStringView name) const
    {
        const auto row =
            std::ranges::find_if(m_rows, [name](const Row &each) { return name == each.name; });
        return row == m_rows.end() ? std::nullopt : std::optional(row->value);
    }

    [[nodiscard]] constexpr auto begin() const { return m_rows.begin(); }
    [[nodiscard]] constexpr auto end() const { return m_rows.end(); }

private:
    // No constant expression may call it: this is what the compiler reports of a wrong table.
    static void rowsDoNotFollowTheEnumeration() { }

    std::array<Row, size> m_rows;
};

} // namespace corvane

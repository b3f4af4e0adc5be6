#include "Appearance.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace corvane {

namespace {

struct AppearanceRow {
    Appearance appearance;
    QLatin1StringView name;
    const char *title;
};

constexpr std::array appearanceTable{
    AppearanceRow{Appearance::matchMac, QLatin1StringView("matchMac"),
        QT_TRANSLATE_NOOP("Appearance", "Match Mac")},
    AppearanceRow{
        Appearance::light, QLatin1StringView("light"), QT_TRANSLATE_NOOP("Appearance", "Light")},
    AppearanceRow{
        Appearance::dark, QLatin1StringView("dark"), QT_TRANSLATE_NOOP("Appearance", "Dark")},
};

const AppearanceRow &rowOf(Appearance appearance)
{
    return appearanceTable[static_cast<std::size_t>(appearance)];
}

} // namespace

QString rawValue(Appearance appearance)
{
    return rowOf(appearance).name;
}

QString title(Appearance appearance)
{
    return QCoreApplication::translate("Appearance", rowOf(appearance).title);
}

template <>
std::optional<Appearance> decode(const QJsonValue &json, DecodeProblems &)
{
    const QString name = json.toString();
    const auto *const row = std::ranges::find_if(
        appearanceTable, [&name](const AppearanceRow &each) { return name == each.name; });
    return row == appearanceTable.end() ? std::nullopt : std::optional(row->appearance);
}

} // namespace corvane

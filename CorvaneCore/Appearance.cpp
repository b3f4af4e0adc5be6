#include "Appearance.h"

#include "EnumTable.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct AppearanceRow {
    Appearance value;
    QLatin1StringView name;
    const char *title;
};

constexpr EnumTable<Appearance::dark, AppearanceRow> appearanceTable{{{
    {Appearance::matchMac, "matchMac"_L1, QT_TRANSLATE_NOOP("Appearance", "Match Mac")},
    {Appearance::light, "light"_L1, QT_TRANSLATE_NOOP("Appearance", "Light")},
    {Appearance::dark, "dark"_L1, QT_TRANSLATE_NOOP("Appearance", "Dark")},
}}};
static_assert(appearanceTable.cases() == appearances);

} // namespace

QString rawValue(Appearance appearance)
{
    return appearanceTable[appearance].name;
}

QString title(Appearance appearance)
{
    return QCoreApplication::translate("Appearance", appearanceTable[appearance].title);
}

template <>
std::optional<Appearance> decode(const QJsonValue &json, DecodeProblems &)
{
    return appearanceTable.named(json.toString());
}

} // namespace corvane

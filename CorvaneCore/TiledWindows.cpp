#include "TiledWindows.h"

#include "EnumTable.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr EnumTable<TiledWindows::stay, NamedCase<TiledWindows>> tiledWindowsTable{{{
    {TiledWindows::leaveLayout, "float"_L1},
    {TiledWindows::stay, "refuse"_L1},
}}};

} // namespace

QString rawValue(TiledWindows tiled)
{
    return tiledWindowsTable[tiled].name;
}

template <>
std::optional<TiledWindows> decode(const QJsonValue &json, DecodeProblems &)
{
    return tiledWindowsTable.named(json.toString());
}

} // namespace corvane

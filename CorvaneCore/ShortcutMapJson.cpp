#include "ShortcutMapJson.h"

namespace corvane {

namespace {

void take(
    ShortcutMap &shortcuts, const QString &name, const QJsonValue &combo, DecodeProblems &problems)
{
    const auto placement = placementNamed(name);
    if (!placement)
        return;
    if (const auto decoded = decode<KeyCombo>(combo, problems))
        shortcuts.insert(*placement, *decoded);
    else
        problems.add();
}

ShortcutMap fromList(const QJsonArray &list, DecodeProblems &problems)
{
    ShortcutMap shortcuts;
    // Past the end there is an undefined value, which is no shortcut either.
    for (qsizetype i = 0; i < list.size(); i += 2) {
        if (list.at(i).isString())
            take(shortcuts, list.at(i).toString(), list.at(i + 1), problems);
        else
            problems.add();
    }
    return shortcuts;
}

ShortcutMap fromObject(const QJsonObject &object, DecodeProblems &problems)
{
    ShortcutMap shortcuts;
    for (auto member = object.begin(); member != object.end(); ++member)
        take(shortcuts, member.key(), member.value(), problems);
    return shortcuts;
}

} // namespace

template <>
std::optional<ShortcutMap> decode(const QJsonValue &json, DecodeProblems &problems)
{
    if (json.isArray())
        return fromList(json.toArray(), problems);
    if (json.isObject())
        return fromObject(json.toObject(), problems);
    return std::nullopt;
}

QJsonArray encode(const ShortcutMap &shortcuts)
{
    QJsonArray list;
    for (const auto &[placement, combo] : shortcuts.asKeyValueRange()) {
        list.append(rawValue(placement));
        list.append(combo.toJson());
    }
    return list;
}

} // namespace corvane

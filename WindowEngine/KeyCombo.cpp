#include "KeyCombo.h"

#include <QtCore/QJsonObject>

#include <algorithm>
#include <array>
#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct KeyRow {
    quint16 code;
    QStringView name;
};

constexpr std::array keyTable{
    KeyRow{0, u"A"},
    KeyRow{1, u"S"},
    KeyRow{2, u"D"},
    KeyRow{3, u"F"},
    KeyRow{4, u"H"},
    KeyRow{5, u"G"},
    KeyRow{6, u"Z"},
    KeyRow{7, u"X"},
    KeyRow{8, u"C"},
    KeyRow{9, u"V"},
    KeyRow{11, u"B"},
    KeyRow{12, u"Q"},
    KeyRow{13, u"W"},
    KeyRow{14, u"E"},
    KeyRow{15, u"R"},
    KeyRow{16, u"Y"},
    KeyRow{17, u"T"},
    KeyRow{18, u"1"},
    KeyRow{19, u"2"},
    KeyRow{20, u"3"},
    KeyRow{21, u"4"},
    KeyRow{22, u"6"},
    KeyRow{23, u"5"},
    KeyRow{24, u"="},
    KeyRow{25, u"9"},
    KeyRow{26, u"7"},
    KeyRow{27, u"-"},
    KeyRow{28, u"8"},
    KeyRow{29, u"0"},
    KeyRow{30, u"]"},
    KeyRow{31, u"O"},
    KeyRow{32, u"U"},
    KeyRow{33, u"["},
    KeyRow{34, u"I"},
    KeyRow{35, u"P"},
    KeyRow{37, u"L"},
    KeyRow{38, u"J"},
    KeyRow{39, u"'"},
    KeyRow{40, u"K"},
    KeyRow{41, u";"},
    KeyRow{42, u"\\"},
    KeyRow{43, u","},
    KeyRow{44, u"/"},
    KeyRow{45, u"N"},
    KeyRow{46, u"M"},
    KeyRow{47, u"."},
    KeyRow{50, u"`"},
    KeyRow{36, u"↩"},
    KeyRow{48, u"⇥"},
    KeyRow{49, u"Space"},
    KeyRow{51, u"⌫"},
    KeyRow{53, u"⎋"},
    KeyRow{76, u"⌤"},
    KeyRow{117, u"⌦"},
    KeyRow{123, u"←"},
    KeyRow{124, u"→"},
    KeyRow{125, u"↓"},
    KeyRow{126, u"↑"},
    KeyRow{122, u"F1"},
    KeyRow{120, u"F2"},
    KeyRow{99, u"F3"},
    KeyRow{118, u"F4"},
    KeyRow{96, u"F5"},
    KeyRow{97, u"F6"},
    KeyRow{98, u"F7"},
    KeyRow{100, u"F8"},
    KeyRow{101, u"F9"},
    KeyRow{109, u"F10"},
    KeyRow{103, u"F11"},
    KeyRow{111, u"F12"},
};

const KeyRow *rowOf(quint16 code)
{
    const auto row = std::ranges::find(keyTable, code, &KeyRow::code);
    return row == keyTable.end() ? nullptr : &*row;
}

} // namespace

QStringList KeyCombo::parts() const
{
    QStringList parts;
    if (hasControl())
        parts << u"⌃"_s;
    if (hasOption())
        parts << u"⌥"_s;
    if (hasShift())
        parts << u"⇧"_s;
    if (hasCommand())
        parts << u"⌘"_s;
    parts << keyName(keyCode);
    return parts;
}

QString KeyCombo::display() const
{
    return parts().join(QString());
}

QString KeyCombo::keyName(quint16 keyCode)
{
    const KeyRow *row = rowOf(keyCode);
    return row ? row->name.toString() : u"key %1"_s.arg(keyCode);
}

QJsonValue KeyCombo::toJson() const
{
    return QJsonObject{{u"keyCode"_s, keyCode}, {u"modifiers"_s, static_cast<qint64>(modifiers)}};
}

std::optional<KeyCombo> KeyCombo::fromJson(const QJsonValue &json)
{
    const qint64 code = json[u"keyCode"].toInteger(-1);
    const qint64 bits = json[u"modifiers"].toInteger(-1);
    if (code < 0 || code > std::numeric_limits<quint16>::max() || bits < 0)
        return std::nullopt;
    KeyCombo combo;
    combo.keyCode = static_cast<quint16>(code);
    combo.modifiers = static_cast<quint64>(bits);
    return combo;
}

} // namespace corvane

#include "PhysicalKey.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

constexpr std::array keys{
    PhysicalKey{0, 30},
    PhysicalKey{1, 31},
    PhysicalKey{2, 32},
    PhysicalKey{3, 33},
    PhysicalKey{4, 35},
    PhysicalKey{5, 34},
    PhysicalKey{6, 44},
    PhysicalKey{7, 45},
    PhysicalKey{8, 46},
    PhysicalKey{9, 47},
    PhysicalKey{10, 86},
    PhysicalKey{11, 48},
    PhysicalKey{12, 16},
    PhysicalKey{13, 17},
    PhysicalKey{14, 18},
    PhysicalKey{15, 19},
    PhysicalKey{16, 21},
    PhysicalKey{17, 20},
    PhysicalKey{18, 2},
    PhysicalKey{19, 3},
    PhysicalKey{20, 4},
    PhysicalKey{21, 5},
    PhysicalKey{22, 7},
    PhysicalKey{23, 6},
    PhysicalKey{24, 13},
    PhysicalKey{25, 10},
    PhysicalKey{26, 8},
    PhysicalKey{27, 12},
    PhysicalKey{28, 9},
    PhysicalKey{29, 11},
    PhysicalKey{30, 27},
    PhysicalKey{31, 24},
    PhysicalKey{32, 22},
    PhysicalKey{33, 26},
    PhysicalKey{34, 23},
    PhysicalKey{35, 25},
    PhysicalKey{36, 28},
    PhysicalKey{37, 38},
    PhysicalKey{38, 36},
    PhysicalKey{39, 40},
    PhysicalKey{40, 37},
    PhysicalKey{41, 39},
    PhysicalKey{42, 43},
    PhysicalKey{43, 51},
    PhysicalKey{44, 53},
    PhysicalKey{45, 49},
    PhysicalKey{46, 50},
    PhysicalKey{47, 52},
    PhysicalKey{48, 15},
    PhysicalKey{49, 57},
    PhysicalKey{50, 41},
    PhysicalKey{51, 14},
    PhysicalKey{53, 1},
    PhysicalKey{65, 83},
    PhysicalKey{67, 55},
    PhysicalKey{69, 78},
    PhysicalKey{75, 98},
    PhysicalKey{76, 96},
    PhysicalKey{78, 74},
    PhysicalKey{82, 82},
    PhysicalKey{83, 79},
    PhysicalKey{84, 80},
    PhysicalKey{85, 81},
    PhysicalKey{86, 75},
    PhysicalKey{87, 76},
    PhysicalKey{88, 77},
    PhysicalKey{89, 71},
    PhysicalKey{91, 72},
    PhysicalKey{92, 73},
    PhysicalKey{96, 63},
    PhysicalKey{97, 64},
    PhysicalKey{98, 65},
    PhysicalKey{99, 61},
    PhysicalKey{100, 66},
    PhysicalKey{101, 67},
    PhysicalKey{103, 87},
    PhysicalKey{105, 183},
    PhysicalKey{106, 186},
    PhysicalKey{107, 184},
    PhysicalKey{109, 68},
    PhysicalKey{111, 88},
    PhysicalKey{113, 185},
    PhysicalKey{114, 110},
    PhysicalKey{115, 102},
    PhysicalKey{116, 104},
    PhysicalKey{117, 111},
    PhysicalKey{118, 62},
    PhysicalKey{119, 107},
    PhysicalKey{120, 60},
    PhysicalKey{121, 109},
    PhysicalKey{122, 59},
    PhysicalKey{123, 105},
    PhysicalKey{124, 106},
    PhysicalKey{125, 108},
    PhysicalKey{126, 103},
};

template <auto member, typename Code>
std::optional<PhysicalKey> keyWith(Code code)
{
    const auto *const key = std::ranges::find(keys, code, member);
    return key == keys.end() ? std::nullopt : std::optional(*key);
}

} // namespace

std::optional<PhysicalKey> PhysicalKey::withVirtualKeyCode(quint16 code)
{
    return keyWith<&PhysicalKey::virtualKeyCode>(code);
}

std::optional<PhysicalKey> PhysicalKey::withEvdevCode(quint32 code)
{
    return keyWith<&PhysicalKey::evdevCode>(code);
}

std::optional<PhysicalKey> PhysicalKey::withXkbKeycode(quint32 keycode)
{
    return withEvdevCode(keycode - xkbOffset);
}

} // namespace corvane

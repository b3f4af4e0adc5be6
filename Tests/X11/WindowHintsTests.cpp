#include "WindowHints.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include <array>
#include <limits>

namespace corvane::x11 {

namespace {

constexpr quint32 minimumFlag = 1 << 4;
constexpr quint32 maximumFlag = 1 << 5;
constexpr quint32 incrementFlag = 1 << 6;
constexpr quint32 aspectFlag = 1 << 7;
constexpr quint32 baseFlag = 1 << 8;

/// The property as a client writes it: flags, then the pairs at their places.
struct Property {
    std::array<quint32, 18> values{};

    Property &set(quint32 flag, size_t at, std::initializer_list<quint32> pair)
    {
        values[0] |= flag;
        std::copy(pair.begin(), pair.end(), values.begin() + static_cast<std::ptrdiff_t>(at));
        return *this;
    }
    Property &minimum(quint32 w, quint32 h) { return set(minimumFlag, 5, {w, h}); }
    Property &maximum(quint32 w, quint32 h) { return set(maximumFlag, 7, {w, h}); }
    Property &increment(quint32 w, quint32 h) { return set(incrementFlag, 9, {w, h}); }
    Property &aspect(std::initializer_list<quint32> both) { return set(aspectFlag, 11, both); }
    Property &base(quint32 w, quint32 h) { return set(baseFlag, 15, {w, h}); }

    Size constrained(Size asked) const
    {
        return WindowHints::fromProperty(values).constrained(asked);
    }
};

struct Example {
    const char *what;
    Property property;
    Size asked;
    Size expected;
};

} // namespace

void PrintTo(const Size &size, std::ostream *stream)
{
    *stream << size.width << " x " << size.height;
}

TEST(WindowHintsTests, aSizeIsMadeOneThatTheClientAccepts)
{
    const Example examples[]{
        {"a terminal of whole cells", Property().base(4, 4).increment(6, 13), {960, 1058},
            {958, 1057}},
        {"cells counted from the minimum where there is no base",
            Property().minimum(20, 20).increment(10, 10), {99, 99}, {90, 90}},
        {"the base as the least size where there is no minimum", Property().base(50, 40), {10, 10},
            {50, 40}},
        {"a fixed size", Property().minimum(300, 200).maximum(300, 200), {960, 1058}, {300, 200}},
        {"a minimum above a maximum", Property().minimum(300, 200).maximum(100, 100), {50, 50},
            {300, 200}},
        {"never wider than 2 : 1", Property().aspect({1, 1, 2, 1}), {900, 300}, {600, 300}},
        {"never narrower than 1 : 1", Property().aspect({1, 1, 2, 1}), {300, 900}, {300, 300}},
        {"a proportion without a side is none", Property().aspect({0, 5, 0, 5}), {300, 900},
            {300, 900}},
        {"an increment of nothing is one", Property().increment(0, 0), {301, 203}, {301, 203}},
        {"a maximum beyond the protocol is none", Property().maximum(70000, 0xFFFFFFFF), {900, 800},
            {900, 800}},
    };
    for (const Example &example : examples)
        EXPECT_EQ(example.property.constrained(example.asked), example.expected) << example.what;
}

TEST(WindowHintsTests, aPropertyCutShortSaysNothing)
{
    const std::array<quint32, 10> shortProperty{minimumFlag | maximumFlag};

    EXPECT_EQ(WindowHints::fromProperty(shortProperty), WindowHints());
}

RC_GTEST_PROP(WindowHintsTests, whateverAClientWritesTheSizeKeepsToItsLimits, ())
{
    const auto values = *rc::gen::container<std::array<quint32, 18>>(
        rc::gen::oneOf(rc::gen::arbitrary<quint32>(), rc::gen::inRange<quint32>(0, 2000)));
    const Size asked{
        double(*rc::gen::inRange(-100, 40000)), double(*rc::gen::inRange(-100, 40000))};

    const WindowHints hints = WindowHints::fromProperty(values);
    const Size size = hints.constrained(asked);

    RC_ASSERT(hints.minimum.width >= 1 && hints.maximum.width <= 32767);
    RC_ASSERT(size.width >= hints.minimum.width && size.width <= hints.maximum.width);
    RC_ASSERT(size.height >= hints.minimum.height && size.height <= hints.maximum.height);
}

} // namespace corvane::x11

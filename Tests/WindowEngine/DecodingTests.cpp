#include "Decoding.h"

#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Through the parser, as a file's values come.
QJsonValue parsed(const QByteArray &json)
{
    return QJsonDocument::fromJson('[' + json + ']').array().first();
}

template <typename T>
std::optional<T> decoded(const QByteArray &json)
{
    DecodeProblems problems;
    return decode<T>(parsed(json), problems);
}

template <typename T>
void expectNone(std::initializer_list<const char *> jsons)
{
    for (const char *json : jsons)
        EXPECT_EQ(decoded<T>(json), std::nullopt) << json;
}

} // namespace

TEST(DecodingTests, aScalarIsItsOwnTypeOrNothing)
{
    const QUuid id(u"3f2504e0-4f89-11d3-9a0c-0305e82c3301"_s);

    EXPECT_EQ(decoded<bool>("true"), true);
    EXPECT_EQ(decoded<int>("-2.0e1"), -20);
    EXPECT_EQ(decoded<int>("2147483647"), 2147483647);
    EXPECT_EQ(decoded<double>("3"), 3.0);
    EXPECT_EQ(decoded<QString>("\"\""), QString());
    EXPECT_EQ(decoded<QUuid>('"' + encode(id).toUtf8().toUpper() + '"'), id);
    expectNone<bool>({"0", "1", R"("true")", "null", "[]"});
    expectNone<int>({"1.5", "2147483648", "-2147483649", "1e300", R"("1")", "true", "{}"});
    expectNone<double>({R"("1")", "true", "null", "[1]"});
    expectNone<QString>({"1", "null", R"(["x"])"});
    expectNone<QUuid>({R"("")", R"("{3f2504e0-4f89-11d3-9a0c-0305e82c3301}")",
        R"("3f2504e0-4f89-11d3-9a0c-0305e82c3301x")", "17"});
}

TEST(DecodingTests, aDateIsAnInstantHoweverItIsWritten)
{
    const std::pair<QByteArray, QString> examples[]{
        {R"("2026-03-29T01:59:59Z")", u"2026-03-29T01:59:59Z"_s},
        {R"("2026-03-29T07:29:59.5+05:30")", u"2026-03-29T01:59:59.500Z"_s},
        {R"("2026-01-01T00:30:00.123999+01:00")", u"2025-12-31T23:30:00.124Z"_s},
    };

    for (const auto &[json, written] : examples)
        EXPECT_EQ(encode(decoded<QDateTime>(json).value_or(QDateTime())), written) << json.data();
    expectNone<QDateTime>({R"("2026-03-29")", R"("2026-03-29T01:59:59")",
        R"("2026-02-30T00:00:00Z")", R"("9999-12-31T23:59:59-14:00")", "1774749599"});
}

TEST(DecodingTests, aLenientFieldIsCountedOnlyWhenItIsThereAndBad)
{
    DecodeProblems problems;
    LenientReader fields(parsed(R"({"good": 2, "bad": "2", "null": null})").toObject(), problems);

    EXPECT_EQ(fields.read<int>("good"_L1, 9), 2);
    EXPECT_EQ(fields.read<int>("absent"_L1, 9), 9);
    EXPECT_EQ(fields.read<int>("null"_L1, 9), 9);
    EXPECT_EQ(problems.count, 0);
    EXPECT_EQ(fields.read<int>("bad"_L1, 9), 9);
    EXPECT_EQ(problems.count, 1);
}

TEST(DecodingTests, anArrayLosesItsBadElementsAndKeepsTheOrderOfTheRest)
{
    DecodeProblems problems;
    const auto list = decode<LossyArray<int>>(parsed(R"([3, "x", 1, null, [1], 2])"), problems);

    ASSERT_TRUE(list);
    EXPECT_EQ(list->elements, (QList{3, 1, 2}));
    EXPECT_EQ(problems.count, 3);
    EXPECT_FALSE(decode<LossyArray<int>>(parsed(R"({"0": 3})"), problems));
}

} // namespace corvane

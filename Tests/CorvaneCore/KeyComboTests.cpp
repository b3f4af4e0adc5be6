#include "KeyCombo.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QJsonValue parsed(const QByteArray &json)
{
    return QJsonDocument::fromJson(json).object();
}

} // namespace

TEST(KeyComboTests, aPressKeepsOnlyTheFourModifiersAndAFileKeepsItsNumber)
{
    const auto stored = KeyCombo::fromJson(parsed(R"({"keyCode": 0, "modifiers": 1966081})"));

    EXPECT_EQ(KeyCombo(0, 0x1E0001).modifiers, 0x1E0000u);
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->modifiers, 0x1E0001u);
}

TEST(KeyComboTests, theGlyphsStandInFixedOrderBeforeTheKey)
{
    EXPECT_EQ(KeyCombo(10, KeyCombo::modifierMask).display(), u"⌃⌥⇧⌘key 10"_s);
    EXPECT_EQ(KeyCombo(123, KeyCombo::option | KeyCombo::control).display(), u"⌃⌥←"_s);
    EXPECT_EQ(KeyCombo(49, 0).parts(), QStringList{u"Space"_s});
}

TEST(KeyComboTests, aDamagedRecordIsNone)
{
    const char *const damaged[]{
        R"({})",
        R"({"keyCode": 1})",
        R"({"modifiers": 1})",
        R"({"keyCode": "1", "modifiers": 0})",
        R"({"keyCode": 1.5, "modifiers": 0})",
        R"({"keyCode": 65536, "modifiers": 0})",
        R"({"keyCode": -1, "modifiers": 0})",
        R"({"keyCode": 1, "modifiers": -1})",
        R"({"keyCode": 1, "modifiers": null})",
    };

    for (const char *json : damaged)
        EXPECT_EQ(KeyCombo::fromJson(parsed(json)), std::nullopt) << json;
    EXPECT_EQ(KeyCombo::fromJson(QJsonValue(5)), std::nullopt);
}

RC_GTEST_PROP(KeyComboPropertyTests, survivesItsFile, (quint16 code, quint64 bits))
{
    KeyCombo combo(code, 0);
    combo.modifiers = bits >> 1;
    const QByteArray file = QJsonDocument(combo.toJson().toObject()).toJson();

    RC_ASSERT(KeyCombo::fromJson(parsed(file)) == combo);
}

} // namespace corvane

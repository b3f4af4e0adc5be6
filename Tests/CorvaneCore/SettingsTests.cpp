#include "Settings.h"
#include "StoredJson.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct Decoded {
    Settings settings;
    int problems = 0;
};

Decoded decoded(const QByteArray &text)
{
    DecodeProblems problems;
    const auto json = parseJson(text, problems);
    if (!json) {
        ADD_FAILURE() << json.error().toStdString();
        return {};
    }
    const auto settings = decode<Settings>(*json, problems);
    return {settings.value_or(Settings{}), problems.count};
}

/// Settings of today's version, so that no placement is new to them.
QByteArray today(const QByteArray &fields)
{
    const QJsonDocument names(QJsonArray::fromStringList(placementNames()));
    return R"({"knownPlacements": )" + names.toJson() + ", " + fields + "}";
}

ShortcutMap presetWithout(Placement placement)
{
    ShortcutMap shortcuts = map(ShortcutPreset::sizeUp);
    shortcuts.remove(placement);
    return shortcuts;
}

const KeyCombo leftArrow{123, KeyCombo::control | KeyCombo::option};
const QByteArray leftArrowJson = R"({"keyCode": 123, "modifiers": 786432})";

} // namespace

TEST(SettingsTests, anEmptyObjectIsTheDefaults)
{
    const Decoded settings = decoded("{}");

    EXPECT_EQ(settings.settings, Settings{});
    EXPECT_EQ(settings.problems, 0);
}

TEST(SettingsTests, aDamagedFieldCostsItselfAlone)
{
    const struct {
        const char *field;
        bool isProblem = true;
    } examples[]{
        {R"("gap": "wide")"},
        {R"("gap": [10])"},
        {R"("gap": 1e999)"},
        {R"("gap": NaN)"},
        {R"("gap": null)", false},
        {R"("gap": 5, "gap": "wide")"},
        {R"("cycling": 1)"},
        {R"("sizeStep": true)"},
        {R"("launchAtLogin": "yes")"},
        {R"("showMenuBarIcon": {})"},
        {R"("showInDock": 0)"},
        {R"("appearance": "sepia")"},
        {R"("appearance": 3)"},
        {R"("preset": 7)"},
        {R"("preset": NaN)"},
        {R"("onboardingCompleted": "")"},
        {R"("shortcuts": 5)"},
        {R"("shortcuts": "none")"},
        {R"("shortcuts": null)", false},
        {R"("customShortcuts": true)"},
        {R"("customShortcuts": null)", false},
        {R"("knownPlacements": "all")"},
        {R"("unknown": [{"gap": 3}])", false},
    };

    for (const auto &example : examples) {
        const Decoded settings = decoded(QByteArray("{\"sizeStep\": 60, ") + example.field + "}");
        EXPECT_EQ(settings.settings, Settings{}) << example.field;
        EXPECT_EQ(settings.problems > 0, example.isProblem) << example.field;
    }
}

TEST(SettingsTests, otherFieldsStandBesideADamagedOne)
{
    const Decoded settings = decoded(
        R"({"gap": "wide", "cycling": false, "sizeStep": 25.5, "launchAtLogin": true,
            "showMenuBarIcon": false, "showInDock": false, "appearance": "dark",
            "preset": "Future", "onboardingCompleted": true})");

    Settings wanted;
    wanted.cycling = false;
    wanted.sizeStep = 25.5;
    wanted.launchAtLogin = true;
    wanted.showMenuBarIcon = false;
    wanted.showInDock = false;
    wanted.appearance = Appearance::dark;
    wanted.preset = u"Future"_s;
    wanted.onboardingCompleted = true;
    EXPECT_EQ(settings.settings, wanted);
    EXPECT_EQ(settings.problems, 1);
}

TEST(SettingsTests, shortcutsAreReadInBothShapes)
{
    const ShortcutMap only{{Placement::leftHalf, leftArrow}};
    const struct {
        QByteArray shortcuts;
        ShortcutMap wanted;
        int problems = 0;
    } examples[]{
        {R"(["leftHalf", )" + leftArrowJson + "]", only},
        {R"({"leftHalf": )" + leftArrowJson + "}", only},
        {R"(["farLeft", )" + leftArrowJson + R"(, "leftHalf", )" + leftArrowJson + "]", only},
        {R"({"farLeft": 5, "leftHalf": )" + leftArrowJson + "}", only},
        {R"(["center", 5, "leftHalf", )" + leftArrowJson + "]", only, 1},
        {R"({"center": "c", "leftHalf": )" + leftArrowJson + "}", only, 1},
        {R"([7, )" + leftArrowJson + R"(, "leftHalf", )" + leftArrowJson + "]", only, 1},
        {R"(["leftHalf", )" + leftArrowJson + R"(, "center"])", only, 1},
        {R"(["leftHalf", {"keyCode": 70000, "modifiers": 0}])", {}, 1},
        {"[]", {}},
        {"{}", {}},
    };

    for (const auto &example : examples) {
        const Decoded settings = decoded(today(
            "\"shortcuts\": " + example.shortcuts + ", \"customShortcuts\": " + example.shortcuts));
        EXPECT_EQ(settings.settings.shortcuts, example.wanted) << example.shortcuts.constData();
        EXPECT_EQ(settings.settings.customShortcuts, example.wanted)
            << example.shortcuts.constData();
        EXPECT_EQ(settings.problems, 2 * example.problems) << example.shortcuts.constData();
    }
}

TEST(SettingsTests, shortcutsAreWrittenAsAList)
{
    Settings settings;
    settings.shortcuts = {{Placement::leftHalf, leftArrow}};

    const QJsonObject json = settings.toJson();

    EXPECT_EQ(json[u"shortcuts"], (QJsonArray{u"leftHalf"_s, leftArrow.toJson()}));
    EXPECT_FALSE(json.contains(u"customShortcuts"_s));
    EXPECT_EQ(json[u"knownPlacements"].toArray().size(), placementCount);
}

TEST(SettingsTests, aPlacementThatTheFileDoesNotKnowGainsItsPresetsShortcut)
{
    using enum Placement;
    const ShortcutMap sizeUp = map(ShortcutPreset::sizeUp);
    const ShortcutMap rectangle = map(ShortcutPreset::rectangle);
    Settings file;
    file.shortcuts = presetWithout(original);
    const auto read = [&file](const QJsonValue &known) {
        QJsonObject json = file.toJson();
        json[u"knownPlacements"] = known;
        DecodeProblems problems;
        return Settings::fromJson(json, problems)->shortcuts;
    };
    const QJsonArray all = QJsonArray::fromStringList(placementNames());

    EXPECT_EQ(read(QJsonValue::Undefined), sizeUp);
    EXPECT_EQ(read(QJsonArray::fromStringList(placementsBeforeOriginal())), sizeUp);
    EXPECT_EQ(read(all), presetWithout(original));

    file.shortcuts.remove(leftHalf);
    EXPECT_EQ(read(QJsonValue::Undefined), presetWithout(leftHalf));
    EXPECT_EQ(read(QJsonArray()), sizeUp);

    file.preset = rawValue(ShortcutPreset::rectangle);
    EXPECT_EQ(read(QJsonValue::Undefined).value(original), rectangle.value(original));

    file.shortcuts[center] = rectangle.value(original);
    EXPECT_FALSE(read(QJsonValue::Undefined).contains(original));

    file.shortcuts[original] = leftArrow;
    EXPECT_EQ(read(QJsonValue::Undefined).value(original), leftArrow);
}

TEST(SettingsTests, aRemovedShortcutStaysRemovedThroughTheNextVersion)
{
    Settings settings;
    settings.shortcuts = presetWithout(Placement::original);
    DecodeProblems problems;

    const auto read = Settings::fromJson(settings.toJson(), problems);

    EXPECT_EQ(read, settings);
}

} // namespace corvane

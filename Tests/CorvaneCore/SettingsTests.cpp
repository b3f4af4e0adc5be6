#include "SettingsStore.h"
#include "StoredJson.h"
#include "StoreFolder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace corvane {

namespace {

struct Decoded {
    Settings settings;
    int problems = 0;
};

Decoded decoded(const QByteArray &fields)
{
    DecodeProblems problems;
    const auto json = parseJson('{' + fields + '}', problems);
    const auto settings = decode<Settings>(json.value_or(QJsonValue()), problems);
    return {settings.value_or(Settings{}), problems.count};
}

ShortcutMap anyShortcuts()
{
    ShortcutMap shortcuts;
    for (const Placement placement : allPlacements()) {
        if (!*rc::gen::arbitrary<bool>())
            continue;
        KeyCombo combo(*rc::gen::arbitrary<quint16>(), 0);
        combo.modifiers = *rc::gen::arbitrary<quint64>() >> 1;
        shortcuts.insert(placement, combo);
    }
    return shortcuts;
}

} // namespace

TEST(SettingsTests, aDamagedFieldCostsItselfAlone)
{
    const std::initializer_list<const char *> damaged{R"("gap": "wide")", R"("gap": 1e999)",
        R"("gap": NaN)", R"("cycling": 1)", R"("launchAtLogin": "no")", R"("showMenuBarIcon": {})",
        R"("showInDock": 0)", R"("appearance": "sepia")", R"("preset": 7)",
        R"("tiledWindows": "stack")", R"("onboardingCompleted": "")", R"("shortcuts": "none")",
        R"("customShortcuts": true)", R"("knownPlacements": "all")"};
    const std::initializer_list<const char *> whole{R"("gap": null)", R"("shortcuts": null)",
        R"("customShortcuts": null)", R"("later": [{"gap": 3}])"};
    Settings wanted;
    wanted.sizeStep = 25.5;

    for (const auto &fields : {damaged, whole}) {
        for (const char *field : fields) {
            const Decoded settings = decoded(R"("sizeStep": 25.5, )" + QByteArray(field));
            EXPECT_EQ(settings.settings, wanted) << field;
            EXPECT_EQ(settings.problems > 0, fields.begin() == damaged.begin()) << field;
        }
    }
}

TEST(SettingsTests, shortcutsAreReadInBothShapesAndWrittenAsAList)
{
    const QByteArray known = QJsonDocument(QJsonArray::fromStringList(placementNames())).toJson();
    KeyCombo stored{123, KeyCombo::control | KeyCombo::option};
    EXPECT_EQ(KeyCombo(123, 786433), stored) << "a press keeps the four modifiers";
    stored.modifiers = 786433; // a file its number
    const ShortcutMap only{{Placement::leftHalf, stored}};
    QList<std::pair<QByteArray, int>> examples{
        {R"({"leftHalf": @})", 0},
        {R"(["farLeft", @, "leftHalf", @])", 0},
        {R"({"farLeft": 5, "leftHalf": @})", 0},
        {R"([7, @, "leftHalf", @])", 1},
        {R"(["leftHalf", @, "center"])", 1},
    };
    for (const char *damaged : {R"({"keyCode": 1})", R"({"keyCode": 1.5, "modifiers": 0})",
             R"({"keyCode": 65536, "modifiers": 0})", R"({"keyCode": 1, "modifiers": -1})"})
        examples << std::pair(R"(["center", )" + QByteArray(damaged) + R"(, "leftHalf", @])", 1);

    for (auto &[shortcuts, problems] : examples) {
        shortcuts.replace("@", R"({"keyCode": 123, "modifiers": 786433})");
        const Decoded read = decoded(R"("knownPlacements": )" + known + R"(, "shortcuts": )"
            + shortcuts + R"(, "customShortcuts": )" + shortcuts);
        EXPECT_EQ(read.settings.shortcuts, only) << shortcuts.data();
        EXPECT_EQ(read.settings.customShortcuts, only) << shortcuts.data();
        EXPECT_EQ(read.problems, 2 * problems) << shortcuts.data();
    }
    Settings settings;
    settings.shortcuts = only;
    EXPECT_EQ(
        settings.toJson()[u"shortcuts"].toArray(), (QJsonArray{u"leftHalf"_s, stored.toJson()}));
}

TEST(SettingsTests, aPlacementThatTheFileDoesNotKnowGainsItsPresetsShortcut)
{
    using enum Placement;
    const KeyCombo ofRectangle = map(ShortcutPreset::rectangle).value(original);
    Settings file;
    file.shortcuts.remove(original);
    file.shortcuts.remove(leftHalf);
    const auto read = [&file](const QJsonValue &known) {
        QJsonObject json = file.toJson();
        json[u"knownPlacements"] = known;
        DecodeProblems problems;
        return Settings::fromJson(json, problems)->shortcuts;
    };

    EXPECT_EQ(read(QJsonArray()), Settings{}.shortcuts);
    EXPECT_EQ(read(QJsonArray::fromStringList(placementNames())), file.shortcuts);
    EXPECT_TRUE(read(QJsonValue::Undefined).contains(original));
    EXPECT_FALSE(read(QJsonValue::Undefined).contains(leftHalf)) << "removed on purpose";

    file.preset = rawValue(ShortcutPreset::rectangle);
    EXPECT_EQ(read(QJsonValue::Undefined).value(original), ofRectangle);
    file.shortcuts[center] = ofRectangle;
    EXPECT_FALSE(read(QJsonValue::Undefined).contains(original)) << "the keys are taken";
}

RC_GTEST_PROP(SettingsPropertyTests, savedSettingsComeBackEqual, ())
{
    const StoreFolder folder;
    const SettingsStore store(folder.path());
    Settings settings;
    settings.shortcuts = anyShortcuts();
    for (double Settings::*const field : {&Settings::gap, &Settings::sizeStep})
        settings.*field =
            *rc::gen::suchThat<double>([](double each) { return std::isfinite(each); });
    for (bool Settings::*const field : {&Settings::cycling, &Settings::launchAtLogin,
             &Settings::showMenuBarIcon, &Settings::showInDock, &Settings::onboardingCompleted})
        settings.*field = *rc::gen::arbitrary<bool>();
    settings.appearance = *rc::gen::elementOf(appearances);
    settings.preset = rawValue(*rc::gen::elementOf(shortcutPresets));
    if (*rc::gen::arbitrary<bool>())
        settings.customShortcuts = anyShortcuts();

    RC_ASSERT(store.save(settings).has_value());
    const auto loaded = store.loadKeepingUnreadable();

    RC_ASSERT(!loaded.problem);
    RC_ASSERT(loaded.settings == settings);
    RC_ASSERT(folder.read(u"settings.json"_s)->contains("\n    \"gap\": ")); // for people to read
}

} // namespace corvane

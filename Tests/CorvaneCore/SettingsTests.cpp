#include "SettingsStore.h"
#include "StoredJson.h"
#include "StoreFolder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct Decoded {
    Settings settings;
    int problems = 0;
};

Decoded decoded(const QByteArray &fields)
{
    DecodeProblems problems;
    const auto json = parseJson('{' + fields + '}', problems);
    if (!json) {
        ADD_FAILURE() << json.error().toStdString();
        return {};
    }
    const auto settings = decode<Settings>(*json, problems);
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
        R"("gap": NaN)", R"("gap": 5, "gap": "wide")", R"("cycling": 1)",
        R"("launchAtLogin": "no")", R"("showMenuBarIcon": {})", R"("showInDock": 0)",
        R"("appearance": "sepia")", R"("preset": 7)", R"("onboardingCompleted": "")",
        R"("shortcuts": "none")", R"("customShortcuts": true)", R"("knownPlacements": "all")"};
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
    const QJsonDocument known(QJsonArray::fromStringList(placementNames()));
    const QByteArray arrow = R"({"keyCode": 123, "modifiers": 786433})";
    KeyCombo stored{123, KeyCombo::control | KeyCombo::option};
    EXPECT_EQ(KeyCombo(123, 786433), stored) << "a press keeps the four modifiers";
    stored.modifiers = 786433; // a file its number
    const ShortcutMap only{{Placement::leftHalf, stored}};
    QList<std::pair<QByteArray, int>> examples{
        {R"(["leftHalf", )" + arrow + "]", 0},
        {R"({"leftHalf": )" + arrow + "}", 0},
        {R"(["farLeft", )" + arrow + R"(, "leftHalf", )" + arrow + "]", 0},
        {R"({"farLeft": 5, "leftHalf": )" + arrow + "}", 0},
        {"[7, " + arrow + R"(, "leftHalf", )" + arrow + "]", 1},
        {R"(["leftHalf", )" + arrow + R"(, "center"])", 1},
    };
    for (const char *damaged :
        {"5", R"({"keyCode": 1})", R"({"modifiers": 1})", R"({"keyCode": 1.5, "modifiers": 0})",
            R"({"keyCode": 65536, "modifiers": 0})", R"({"keyCode": -1, "modifiers": 0})",
            R"({"keyCode": 1, "modifiers": -1})", R"({"keyCode": 1, "modifiers": null})"}) {
        examples << std::pair(
            R"(["center", )" + QByteArray(damaged) + R"(, "leftHalf", )" + arrow + "]", 1);
    }

    for (const auto &[shortcuts, problems] : std::as_const(examples)) {
        const Decoded read = decoded(R"("knownPlacements": )" + known.toJson()
            + R"(, "shortcuts": )" + shortcuts + R"(, "customShortcuts": )" + shortcuts);
        EXPECT_EQ(read.settings.shortcuts, only) << shortcuts.data();
        EXPECT_EQ(read.settings.customShortcuts, only) << shortcuts.data();
        EXPECT_EQ(read.problems, 2 * problems) << shortcuts.data();
        EXPECT_EQ(
            read.settings.toJson()[u"shortcuts"], (QJsonArray{u"leftHalf"_s, stored.toJson()}));
    }
}

TEST(SettingsTests, aPlacementThatTheFileDoesNotKnowGainsItsPresetsShortcut)
{
    using enum Placement;
    const ShortcutMap rectangle = map(ShortcutPreset::rectangle);
    Settings file;
    file.shortcuts.remove(original);
    const ShortcutMap without = file.shortcuts;
    const auto read = [&file](const QJsonValue &known) {
        QJsonObject json = file.toJson();
        json[u"knownPlacements"] = known;
        DecodeProblems problems;
        return Settings::fromJson(json, problems)->shortcuts;
    };

    EXPECT_EQ(read(QJsonValue::Undefined), Settings{}.shortcuts);
    EXPECT_EQ(read(QJsonArray::fromStringList(placementsBeforeOriginal())), Settings{}.shortcuts);
    EXPECT_EQ(read(QJsonArray::fromStringList(placementNames())), without);

    file.shortcuts.remove(leftHalf);
    EXPECT_FALSE(read(QJsonValue::Undefined).contains(leftHalf)) << "removed on purpose";
    EXPECT_EQ(read(QJsonArray()), Settings{}.shortcuts);

    file.preset = rawValue(ShortcutPreset::rectangle);
    EXPECT_EQ(read(QJsonValue::Undefined).value(original), rectangle.value(original));
    file.shortcuts[center] = rectangle.value(original);
    EXPECT_FALSE(read(QJsonValue::Undefined).contains(original)) << "the keys are taken";
    file.shortcuts[original] = rectangle.value(leftHalf);
    EXPECT_EQ(read(QJsonValue::Undefined).value(original), rectangle.value(leftHalf));
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
    settings.preset = QString::fromStdString(*rc::gen::arbitrary<std::string>());
    if (*rc::gen::arbitrary<bool>())
        settings.customShortcuts = anyShortcuts();

    RC_ASSERT(store.save(settings).has_value());
    const auto loaded = store.loadKeepingUnreadable();

    RC_ASSERT(!loaded.problem);
    RC_ASSERT(loaded.settings == settings);
    RC_ASSERT(folder.read(u"settings.json"_s)->contains("\n    \"gap\": ")); // for people to read
}

} // namespace corvane

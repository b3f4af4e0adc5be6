#include "LayoutStore.h"
#include "SettingsStore.h"
#include "StoreFolder.h"

#include <QtCore/QFile>

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString manualPage()
{
    QFile file(QStringLiteral(CORVANE_MANUAL_PAGE));
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What stands between .EX and .EE under the heading, as a reader sees it.
QByteArray example(const QString &heading)
{
    const QString page = manualPage();
    const qsizetype section = page.indexOf(u".SH "_s + heading + u'\n');
    const qsizetype start = page.indexOf(u".EX\n"_s, section) + 4;
    const qsizetype end = page.indexOf(u".EE\n"_s, start);
    QString text = page.sliced(start, end - start);
    return text.replace(u"\\-"_s, u"-"_s).replace(u"\\(aq"_s, u"'"_s).toUtf8();
}

/// Every member name in the value, however deep.
void collectKeys(const QJsonValue &json, QStringList &keys)
{
    for (const QJsonValue element : json.toArray())
        collectKeys(element, keys);
    const QJsonObject object = json.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        keys << member.key();
        collectKeys(member.value(), keys);
    }
}

QStringList undocumented(const QJsonValue &json)
{
    QStringList keys;
    collectKeys(json, keys);
    const QString page = manualPage();
    keys.removeIf([&page](const QString &key) { return page.contains(u"\n.B "_s + key + u'\n'); });
    return keys;
}

} // namespace

TEST(ManualPageTests, theExampleOfTheSettingsLoadsWhole)
{
    const StoreFolder folder;
    const SettingsStore store(folder.path());
    folder.write(u"settings.json"_s, example(u"SETTINGS.JSON"_s));

    const auto loaded = store.loadKeepingUnreadable();

    EXPECT_FALSE(loaded.problem) << loaded.problem->reason.toStdString();
    EXPECT_NE(loaded.settings, Settings{});
    EXPECT_TRUE(loaded.settings.customShortcuts);
    EXPECT_EQ(undocumented(loaded.settings.toJson()), QStringList());
}

TEST(ManualPageTests, theExampleOfTheLayoutsLoadsWhole)
{
    const StoreFolder folder;
    const LayoutStore store(folder.path());
    folder.write(u"layouts.json"_s, example(u"LAYOUTS.JSON"_s));

    const auto loaded = store.loadKeepingUnreadable();

    EXPECT_FALSE(loaded.problem) << loaded.problem->reason.toStdString();
    ASSERT_FALSE(loaded.layouts.isEmpty());
    EXPECT_EQ(undocumented(loaded.layouts.first().toJson()), QStringList());
    const Pane &pane = loaded.layouts.first().panes.first();
    EXPECT_TRUE(loaded.layouts.first().shortcut && pane.app && pane.titleContains && pane.stack);
}

} // namespace corvane

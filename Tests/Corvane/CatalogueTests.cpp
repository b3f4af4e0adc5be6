#include "Catalogues.h"

#include "Appearance.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

TEST(CatalogueTests, everyTextThatNamesAMacThingHasWordsForLinux)
{
    const QRegularExpression mac(u"\\bMacs?\\b|macOS|Finder|\\bDock\\b|Login Items|System Settings"
                                 "|[Aa]ccessibility|menu bar|Applications folder|Privacy &"_s);
    const QRegularExpression message(
        u"<source>(.*?)</source>.*?<translation(| type=\"unfinished\")>(.*?)</translation>"_s,
        QRegularExpression::DotMatchesEverythingOption);
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"corvane_linux.ts"_s));
    QFile::copy(QStringLiteral(CORVANE_SOURCES "/translations/corvane_linux.ts"), file.fileName());
    ASSERT_EQ(
        QProcess::execute(QStringLiteral(CORVANE_SOURCES "/scripts/texts"), {file.fileName()}), 0);
    ASSERT_TRUE(file.open(QFile::ReadOnly));

    int count = 0;
    for (const auto &match : message.globalMatch(QString::fromUtf8(file.readAll()))) {
        const bool isSaid = match.capturedLength(2) == 0 && match.capturedLength(3) > 0;
        EXPECT_TRUE(isSaid || !match.captured(1).contains(mac)) << match.captured(1).toStdString();
        EXPECT_FALSE(match.captured(3).contains(mac)) << match.captured(3).toStdString();
        ++count;
    }

    EXPECT_GT(count, 50);
}

TEST(CatalogueTests, theUsersLanguageStandsAboveTheDesktopsWords)
{
    const QTemporaryDir folder;
    QFile source(folder.filePath(u"corvane_de.ts"_s));
    ASSERT_TRUE(source.open(QFile::WriteOnly));
    source.write("<TS version=\"2.1\" language=\"de\"><context><name>Appearance</name><message>"
                 "<source>Match Mac</source><translation>Wie das System</translation></message>"
                 "</context></TS>");
    source.close();
    QProcess::execute(QStringLiteral(CORVANE_LRELEASE), {u"-silent"_s, source.fileName()});
    const std::pair<QStringList, QString> users[]{{{u"fr-FR"_s, u"de-AT"_s}, u"Wie das System"_s},
        {{u"en-GB"_s, u"de-DE"_s}, u"Match System"_s}, {{u"C"_s}, u"Match System"_s}};

    for (const auto &[languages, matchMac] : users) {
        const Catalogues catalogues(languages, folder.path());

        EXPECT_EQ(title(Appearance::matchMac), matchMac);
    }
}

} // namespace corvane

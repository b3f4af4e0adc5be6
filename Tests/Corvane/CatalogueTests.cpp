#include "Catalogues.h"

#include "Appearance.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QXmlStreamReader>

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct Message {
    QString source;
    QString translation;
};

/// The catalogue for Linux, brought up to date with the code.
QByteArray refreshedCatalogue(const QTemporaryDir &folder)
{
    const QString path = folder.filePath(u"corvane_linux.ts"_s);
    QFile::copy(QStringLiteral(CORVANE_SOURCES "/translations/corvane_linux.ts"), path);
    EXPECT_EQ(QProcess::execute(QStringLiteral(CORVANE_SOURCES "/scripts/texts"), {path}), 0);
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

QList<Message> messages(const QByteArray &catalogue)
{
    QList<Message> messages;
    QXmlStreamReader reader(catalogue);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == "source"_L1)
            messages.append({reader.readElementText(), {}});
        else if (reader.name() == "translation"_L1 && !reader.attributes().hasAttribute("type"_L1))
            messages.last().translation =
                reader.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return messages;
}

bool namesTheMac(const QString &text)
{
    static const QRegularExpression macWords(
        u"\\bMacs?\\b|macOS|\\bFinder\\b|\\bDock\\b|\\bLogin Items\\b|\\bSystem Settings\\b"
        "|\\b[Aa]ccessibility\\b|\\bmenu bar\\b|\\bApplications folder\\b|\\bPrivacy & Security\\b"_s);
    return text.contains(macWords);
}

} // namespace

TEST(CatalogueTests, everyTextThatNamesAMacThingHasWordsForLinux)
{
    const QTemporaryDir folder;

    const QList<Message> all = messages(refreshedCatalogue(folder));

    EXPECT_GT(all.size(), 50);
    for (const Message &each : all) {
        const bool isSaid = !namesTheMac(each.source) || !each.translation.isEmpty();
        EXPECT_TRUE(isSaid) << each.source.toStdString();
        EXPECT_FALSE(namesTheMac(each.translation)) << each.translation.toStdString();
    }
}

TEST(CatalogueTests, theUsersLanguageStandsAboveTheDesktopsWords)
{
    const QTemporaryDir folder;
    QFile source(folder.filePath(u"corvane_de.ts"_s));
    ASSERT_TRUE(source.open(QFile::WriteOnly));
    source.write("<TS version=\"2.1\" language=\"de\"><context><name>Appearance</name><message>"
                 "<source>Dark</source><translation>Dunkel</translation></message></context></TS>");
    source.close();
    ASSERT_EQ(
        QProcess::execute(QStringLiteral(CORVANE_LRELEASE), {u"-silent"_s, source.fileName()}), 0);
    const struct {
        QStringList languages;
        QString dark;
    } users[]{
        {{u"fr-FR"_s, u"de-AT"_s}, u"Dunkel"_s},
        {{u"en-GB"_s, u"de-DE"_s}, u"Dark"_s},
        {{u"C"_s}, u"Dark"_s},
        {{}, u"Dark"_s},
    };

    for (const auto &[languages, dark] : users) {
        const Catalogues catalogues(languages, folder.path());

        EXPECT_EQ(title(Appearance::dark), dark);
        EXPECT_EQ(title(Appearance::matchMac), u"Match System"_s);
    }
    EXPECT_EQ(title(Appearance::matchMac), u"Match Mac"_s);
}

} // namespace corvane

#include "OutcomeReport.h"

#include <QtCore/QJsonArray>

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

OutcomeReport movedReport(const QString &title)
{
    const MoveRecord record{QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC),
        Placement::leftTwoThirds, u"Editor"_s, title, {1, 2, 300, 400}, {0, 25, 960, 1055},
        u"Studio"_s};
    return {Placement::leftHalf, {MoveOutcome::Moved{record}}, {}, {}};
}

} // namespace

TEST(OutcomeReportTests, aMoveIsOneLineWhateverTheTitleHolds)
{
    const QString line = movedReport(u"a\nb\t%1 "_s + QString(5000, u'x')).line();

    EXPECT_FALSE(line.contains(u'\n'));
    EXPECT_LT(line.size(), 250);
    EXPECT_TRUE(line.contains(u"\"a b %1 xxx"_s)) << qUtf8Printable(line);
    EXPECT_TRUE(line.endsWith(u"to 0,25 960×1055 on Studio (leftTwoThirds)"_s))
        << qUtf8Printable(line);
    EXPECT_EQ(movedReport(u"Letter"_s).line(Titles::hidden),
        u"leftHalf: Editor moved from 1,2 300×400 to 0,25 960×1055 on Studio (leftTwoThirds)");
}

TEST(OutcomeReportTests, aMoveInJsonHasTheFieldsOfItsRecord)
{
    const QJsonObject json = movedReport(u"Letter"_s).json();

    EXPECT_EQ(json,
        (QJsonObject{{u"outcome"_s, u"moved"_s}, {u"date"_s, u"2026-01-02T03:04:05Z"_s},
            {u"placement"_s, u"leftTwoThirds"_s}, {u"appName"_s, u"Editor"_s},
            {u"windowTitle"_s, u"Letter"_s}, {u"from"_s, QJsonArray{1, 2, 300, 400}},
            {u"to"_s, QJsonArray{0, 25, 960, 1055}}, {u"displayName"_s, u"Studio"_s}}));
}

TEST(OutcomeReportTests, anythingElseSaysWhyAndExitsWithOne)
{
    const OutcomeReport refused{Placement::maximize,
        {MoveOutcome::Refused{u"Editor: window is in native full screen"_s}}, {}, {}};
    const OutcomeReport noWindow{Placement::center, {MoveOutcome::NoWindow{}}, u"Files"_s, {}};
    const OutcomeReport notTrusted{
        Placement::center, {MoveOutcome::NotTrusted{}}, {}, u"This is why."_s};

    EXPECT_EQ(refused.result(ReportForm::text),
        (CommandResult{1, u"maximize: Editor: window is in native full screen\n"_s, {}}));
    EXPECT_EQ(noWindow.result(ReportForm::json),
        (CommandResult{
            1, u"{\"outcome\":\"noWindow\",\"reason\":\"no focused window (Files)\"}\n"_s, {}}));
    EXPECT_EQ(notTrusted.result(ReportForm::text).output,
        u"center: accessibility not granted. This is why.\n"_s);
}

} // namespace corvane

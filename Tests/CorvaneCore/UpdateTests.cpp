#include "ReleaseNotes.h"
#include "UpdateStatus.h"

#include <gmock/gmock.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Each heading with its items, bold words between asterisks.
QString written(const QByteArray &page)
{
    QString text;
    for (const ReleaseNotes::Section &section : ReleaseNotes::parse(page)) {
        text += section.heading + u':';
        for (const ReleaseNotes::Item &item : section.items) {
            text += u" -";
            for (const ReleaseNotes::Run &run : item)
                text += run.isBold ? u'*' + run.text + u'*' : run.text;
        }
        text += u';';
    }
    return text;
}

} // namespace

TEST(UpdateStatusTests, aCheckThatFailedDoesNotHideWhatIsKnown)
{
    const UpdateAvailability available{UpdateAvailability::Available{u"1.3.0"_s}};

    EXPECT_EQ(available.statusLine(false, true, true), u"v1.3.0 is available.");
    EXPECT_EQ(UpdateAvailability{}.statusLine(false, true, true),
        u"The update server could not be reached.");
}

TEST(UpdateStatusTests, theLastCheckIsToldByTheCalendarOfWhoReadsIt)
{
    const auto at = [](const char *text) {
        return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
    };
    struct Case {
        const char *checked, *now, *zone, *line;
    };
    for (const Case &each :
        {Case{"2026-11-20T09:12:00Z", "2026-11-20T23:59:59Z", "UTC", "Today, 9:12 AM"},
            {"2026-11-20T23:59:00Z", "2026-11-21T00:00:00Z", "Europe/Berlin", "Today, 12:59 AM"},
            {"2026-11-20T04:00:00Z", "2026-11-20T16:00:00Z", "America/New_York",
                "Yesterday, 11:00 PM"},
            {"2026-10-24T22:30:00Z", "2026-10-25T23:30:00Z", "Europe/Berlin", // the clocks go back
                "Yesterday, 12:30 AM"},
            {"2026-11-21T12:00:00Z", "2026-11-20T12:00:00Z", "UTC", "Nov 21, 12:00 PM"}}) {
        UpdateStatus status;
        status.lastChecked = at(each.checked);

        const auto line =
            status.lastCheckLine(at(each.now), QTimeZone(each.zone), QLocale(QLocale::English));

        EXPECT_EQ(line, u"Last check: "_s + QString::fromLatin1(each.line)) << each.checked;
    }
    EXPECT_FALSE(UpdateStatus{}.lastCheckLine(QDateTime::currentDateTime(), QTimeZone::utc()));
}

TEST(ReleaseNotesTests, headingsAndItemsAreReadAndMarkupIsNeverLeft)
{
    struct Case {
        QByteArray page;
        QString text;
    };
    for (const Case &each : {Case{"<h1>No</h1><h2 class=x>New</h2><ul><li>One</li>\n<li>Two</li>"
                                  "</ul><h2>Fixed</h2><li>Three</li>",
                                 u"New: -One -Two;Fixed: -Three;"_s},
             {"<li>Before</li><h2>Empty</h2><h2>A</h2><li> </li><li>b</li>", u": -Before;A: -b;"_s},
             {"<link><header><h2x>no</h2x><LI>Yes</LI>", u": -Yes;"_s},
             {"<li>A <b>bold</b> and <STRONG x=1>strong< / strong > word<br>here</li>",
                 u": -A* bold* and* strong* word here;"_s},
             {"<li>a < b &amp; c &lt;b&gt; &#x2014; &#8230; &nope; &#xD800; &#0; AT&T</li>",
                 u": -a < b & c <b> — … &nope; &#xD800; AT&T;"_s},
             {"<li><a href=\"javascript:x\">Link</a><img src=x><!-- no --><?no?>s</li>",
                 u": -Links;"_s},
             {"<li>\xE2\x80\xAEturned\x07\xE2\x80\xA8round\t</li>", u": -turned round;"_s},
             {"<li>outer<ul><li>inner</li></ul></li>", u": -outer inner;"_s}, {"<li>cut <b", {}},
             {"<li>cut <b</li>", u": -cut <b;"_s}, {"", {}}})
        EXPECT_EQ(written(each.page), each.text) << each.page.constData();
    EXPECT_EQ(
        ReleaseNotes::parse("<li>a</li>" + QByteArray(ReleaseNotes::sizeLimit, ' ') + "<li>b</li>")
            .first()
            .items.size(),
        1)
        << "what is too long is not read";
}

} // namespace corvane

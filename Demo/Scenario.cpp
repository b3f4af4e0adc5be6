#include "Scenario.h"

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

using enum Application;
using enum Placement;

QList<Step> inTurn(Application application, const QList<Placement> &placements)
{
    QList<Step> steps;
    for (const Placement placement : placements)
        steps << Step{application, placement, placement};
    return steps;
}

QList<Step> halvesAndQuarters()
{
    QList<Step> steps = inTurn(terminal, {leftHalf, rightHalf, topHalf, bottomHalf, topLeft});
    steps << inTurn(notes, {topRight}) << inTurn(gallery, {bottomLeft})
          << inTurn(source, {bottomRight});
    // This one insists on being larger than a quarter.
    steps << inTurn(icons, {bottomRight});
    steps << Step{icons, leftHalf, leftHalf, Step::Start::maximized};
    return steps;
}

QList<Step> thirdsAndSizes()
{
    QList<Step> steps{
        {notes, leftHalf, leftHalf},
        {notes, leftHalf, leftTwoThirds},
        {notes, leftHalf, leftThird},
        {notes, nextDisplay, leftThird},
        {notes, previousDisplay, leftThird},
    };
    steps << inTurn(terminal, {leftTwoThirds, centerThird, rightThird, smaller, larger});
    steps << inTurn(gallery, {rightTwoThirds, maximize, center, larger, smaller, almostMaximize});
    steps << inTurn(icons, {maximize});
    return steps;
}

QList<Step> sixths()
{
    return inTurn(notes, {topLeftSixth}) + inTurn(gallery, {topCenterSixth})
        + inTurn(terminal, {topRightSixth})
        + inTurn(source, {bottomLeftSixth, bottomCenterSixth, bottomRightSixth});
}

QList<Step> backAgain()
{
    return inTurn(notes, {snapBack, snapBack, snapBack, snapBack}) + inTurn(notes, {original})
        + inTurn(terminal, {original}) + inTurn(gallery, {original}) + inTurn(source, {original})
        + inTurn(icons, {original});
}

QList<Step> tidy()
{
    return inTurn(source, {nextDisplay, leftThird}) + inTurn(icons, {rightTwoThirds})
        + inTurn(gallery, {bottomRight}) + inTurn(notes, {topRight}) + inTurn(terminal, {leftHalf});
}

} // namespace

QList<Chapter> scenario()
{
    return {
        {u"2-quarters.png"_s, halvesAndQuarters()},
        {u"3-sixths.png"_s, thirdsAndSizes() + sixths()},
        {u"4-originals.png"_s, backAgain()},
        {u"5-after.png"_s, tidy()},
    };
}

} // namespace corvane::demo

#include "Competitors.h"

#include "Platform.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

const std::array<Competitor, 12> &Competitor::known()
{
    static const std::array<Competitor, 12> table{{
        {u"com.irradiatedsoftware.SizeUp"_s, u"SizeUp"_s},
        {u"com.knollsoft.Rectangle"_s, u"Rectangle"_s},
        {u"com.knollsoft.Hookshot"_s, u"Rectangle Pro"_s},
        {u"com.crowdcafe.windowmagnet"_s, u"Magnet"_s},
        {u"com.manytricks.Moom"_s, u"Moom"_s},
        {u"com.MrKai77.Loop"_s, u"Loop"_s},
        {u"com.hegenberg.BetterSnapTool"_s, u"BetterSnapTool"_s},
        {u"com.mizage.Divvy"_s, u"Divvy"_s},
        {u"com.divisiblebyzero.Spectacle"_s, u"Spectacle"_s},
        {u"com.amethyst.Amethyst"_s, u"Amethyst"_s},
        {u"co.highlyopinionated.swish"_s, u"Swish"_s},
        {u"com.sempliva.Tiles"_s, u"Tiles"_s},
    }};
    return table;
}

QList<Competitor::Running> Competitor::running()
{
    Applications &platform = Platform::current().applications();
    const QList<RunningApplication> applications = platform.running();
    QList<Running> result;
    for (const Competitor &competitor : known()) {
        const auto application = std::ranges::find(
            applications, competitor.bundleID, &RunningApplication::bundleIdentifier);
        if (application != applications.end())
            result.append({competitor, *application});
    }
    for (const RunningApplication &rival : platform.rivals())
        result.append({{rival.bundleIdentifier, rival.localizedName}, rival});
    return result;
}

QStringList names(const QList<Competitor::Running> &competitors)
{
    QStringList names;
    for (const Competitor::Running &each : competitors)
        names << each.competitor.name;
    return names;
}

} // namespace corvane

#include "Steps.h"

#include "Geometry.h"
#include "PhysicalKey.h"
#include "ShortcutPreset.h"

#include <algorithm>

namespace corvane::demo {

using namespace Qt::StringLiterals;
using desktop::Key;
using desktop::KeyStroke;
using enum Application;
using enum Placement;

namespace {

QList<Step> inTurn(Application application, const QList<Placement> &placements)
{
    QList<Step> steps;
    for (const Placement placement : placements)
        steps << Step{application, placement};
    return steps;
}

// The program's own defaults.
constexpr double gap = 0;
constexpr double slack = 6;
constexpr double sizeStep = 60;

bool fallsShortByLess(double reached, double wanted, double cell)
{
    return reached <= wanted && wanted - reached < cell;
}

} // namespace

QList<Chapter> scenario()
{
    return {
        {u"2-quarters.png"_s,
            inTurn(terminal, {leftHalf, rightHalf, topHalf, bottomHalf, topLeft})
                + inTurn(notes, {topRight}) + inTurn(gallery, {bottomLeft})
                + inTurn(source, {bottomRight})
                // This one insists on being larger than a quarter.
                + inTurn(icons, {bottomRight}) + QList<Step>{{icons, leftHalf, leftHalf, true}}},
        {u"3-sixths.png"_s,
            QList<Step>{{notes, leftHalf}, {notes, leftHalf, leftTwoThirds},
                {notes, leftHalf, leftThird}, {notes, nextDisplay, leftThird},
                {notes, previousDisplay, leftThird}}
                + inTurn(terminal, {leftTwoThirds, centerThird, rightThird, smaller, larger})
                + inTurn(
                    gallery, {rightTwoThirds, maximize, center, larger, smaller, almostMaximize})
                + inTurn(icons, {maximize}) + inTurn(notes, {topLeftSixth})
                + inTurn(gallery, {topCenterSixth}) + inTurn(terminal, {topRightSixth})
                + inTurn(source, {bottomLeftSixth, bottomCenterSixth, bottomRightSixth})},
        {u"4-originals.png"_s,
            inTurn(notes, {snapBack, snapBack, snapBack, snapBack, original})
                + inTurn(terminal, {original}) + inTurn(gallery, {original})
                + inTurn(source, {original}) + inTurn(icons, {original})},
        {u"5-after.png"_s,
            inTurn(source, {nextDisplay, leftThird}) + inTurn(icons, {rightTwoThirds})
                + inTurn(gallery, {bottomRight}) + inTurn(notes, {topRight})
                + inTurn(terminal, {leftHalf})},
    };
}

std::optional<Shortcut> shortcut(Placement placement)
{
    const auto shortcuts = map(ShortcutPreset::sizeUp);
    if (!shortcuts.contains(placement))
        return std::nullopt;
    const KeyCombo combo = shortcuts[placement];
    const auto key = PhysicalKey::withVirtualKeyCode(combo.keyCode);
    Shortcut shortcut{{.key = static_cast<Key>(key->evdevCode)}, {}};
    for (const auto &[modifier, held, name] :
        {std::tuple(KeyCombo::control, KeyStroke::control, u"Ctrl+"_s),
            {KeyCombo::option, KeyStroke::alt, u"Alt+"_s},
            {KeyCombo::shift, KeyStroke::shift, u"Shift+"_s},
            {KeyCombo::command, KeyStroke::super, u"Super+"_s}}) {
        if (combo.modifiers & modifier) {
            shortcut.stroke.modifiers |= held;
            shortcut.text += name;
        }
    }
    shortcut.text += KeyCombo::keyName(combo.keyCode);
    return shortcut;
}

Rect Expectation::ask(const Step &step, const Rect &current)
{
    QList<Rect> &history = m_history[step.application];
    if (step.pressed == Placement::snapBack)
        return history.isEmpty() ? current : history.takeLast();
    history << current;
    return target(step, current);
}

bool Expectation::isLanding(const Rect &reached, const Rect &asked, const SizeLimits &limits) const
{
    const Size size{
        std::max(asked.width, limits.minimum.width), std::max(asked.height, limits.minimum.height)};
    const Rect wanted = size == asked.size()
        ? asked
        : Geometry::anchored(asked, size, m_areas[areaOf(asked)], slack);
    return reached.origin() == wanted.origin()
        && fallsShortByLess(reached.width, wanted.width, limits.increment.width)
        && fallsShortByLess(reached.height, wanted.height, limits.increment.height);
}

qsizetype Expectation::areaOf(const Rect &frame) const
{
    const auto shared = [&frame](const Rect &area) { return area.intersectionArea(frame); };
    return std::ranges::max_element(m_areas, {}, shared) - m_areas.begin();
}

Rect Expectation::target(const Step &step, const Rect &current) const
{
    const qsizetype here = areaOf(current);
    const Rect &area = m_areas[here];
    const auto onDisplay = [&](qsizetype index) {
        const Rect &to = m_areas[(index + m_areas.size()) % m_areas.size()];
        const auto unit = unitRect(step.becomes);
        return unit ? Geometry::frame(*unit, to, gap) : Geometry::translated(current, area, to);
    };
    switch (step.pressed) {
    case center:
        return Geometry::centered(current, area);
    case larger:
        return Geometry::resized(current, sizeStep, area);
    case smaller:
        return Geometry::resized(current, -sizeStep, area);
    case original:
        return m_originals.value(step.application);
    case nextDisplay:
        return onDisplay(here + 1);
    case previousDisplay:
        return onDisplay(here - 1);
    default:
        return onDisplay(here);
    }
}

} // namespace corvane::demo

#include "Crowd.h"

#include "Geometry.h"
#include "LayoutStore.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr quint8 held = KeyStroke::control | KeyStroke::alt | KeyStroke::super;
constexpr quint64 heldBits = KeyCombo::control | KeyCombo::option | KeyCombo::command;
// The D and F keys, as Corvane's files name them.
constexpr std::array<quint16, 2> corvaneKeyCodes{2, 3};

struct Grid {
    int columns;
    int rows;
};
// Room for 200 windows that are still large enough to be captured.
constexpr std::array<Grid, 2> grids{Grid{16, 13}, Grid{17, 12}};

/// The second grid fills from its end, so that no window keeps its place.
UnitRect cell(size_t layout, qsizetype window)
{
    const auto [columns, rows] = grids[layout];
    const auto index = static_cast<int>(layout == 0 ? window : columns * rows - 1 - window);
    return {double(index % columns) / columns, double(index / columns) / rows, 1.0 / columns,
        1.0 / rows};
}

} // namespace

QString Crowd::title(qsizetype window)
{
    return u"Window %1"_s.arg(window, 3, 10, QLatin1Char('0'));
}

std::array<WindowLayout, 2> Crowd::layouts() const
{
    std::array<WindowLayout, 2> layouts;
    for (size_t which = 0; which < layouts.size(); ++which) {
        WindowLayout &layout = layouts[which];
        layout.name = u"Crowd %1"_s.arg(which + 1);
        layout.displays = {
            {u"Display"_s, static_cast<int>(display.width), static_cast<int>(display.height)}};
        for (qsizetype i = 0; i < windows; ++i)
            layout.panes << Pane{.rect = cell(which, i),
                .app = AppRef{u"CorvaneTestClient"_s, u"Test client"_s},
                .titleContains = title(i)};
    }
    return layouts;
}

void Crowd::store(const PrivateSession &session) const
{
    QList<WindowLayout> stored;
    for (const WindowLayout &layout : layouts()) {
        stored << layout;
        stored.last().shortcut =
            KeyCombo(corvaneKeyCodes[static_cast<size_t>(stored.size() - 1)], heldBits);
    }
    const QString folder = session.dataFolder() + u"/Corvane"_s;
    QDir().mkpath(folder);
    std::ignore = LayoutStore(folder).save(stored);
}

std::array<KeyStroke, 2> Crowd::keys()
{
    return {KeyStroke{held, Key::d}, KeyStroke{held, Key::f}};
}

std::array<QList<Rect>, 2> Crowd::frames() const
{
    std::array<QList<Rect>, 2> frames;
    for (size_t which = 0; which < frames.size(); ++which) {
        for (qsizetype i = 0; i < windows; ++i)
            frames[which] << Geometry::frame(cell(which, i), display, 0);
    }
    return frames;
}

} // namespace corvane::bench

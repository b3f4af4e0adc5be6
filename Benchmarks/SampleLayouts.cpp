#include "SampleLayouts.h"

#include "LayoutStore.h"

#include <QtCore/QFile>
#include <QtCore/QUrl>

namespace corvane::bench {

using namespace Qt::StringLiterals;

namespace {
constexpr int panesPerLayout = 12;
} // namespace

QList<WindowLayout> sampleLayouts(int count)
{
    QList<WindowLayout> layouts;
    for (int number = 0; number < count; ++number) {
        WindowLayout layout{.name = u"Layout %1"_s.arg(number)};
        layout.displays = {{u"Built-in"_s, 1920, 1080}, {u"Desk"_s, 2560, 1440}};
        for (int pane = 0; pane < panesPerLayout; ++pane)
            layout.panes << Pane{.display = pane % 2,
                .rect = {pane / 12.0, 0, 1 / 12.0, 1},
                .app = AppRef{u"org.example.App%1"_s.arg(pane), u"App %1"_s.arg(pane)},
                .titleContains = u"Window %1"_s.arg(pane),
                .stack = pane};
        layouts << layout;
    }
    return layouts;
}

StoredLayouts::StoredLayouts(const desktop::PrivateSession &session, int count)
{
    const LayoutStore store(session.dataFolder() + u"/Corvane"_s);
    m_path = store.url().toLocalFile();
    m_areWritten = store.save(sampleLayouts(count)).has_value();
}

StoredLayouts::~StoredLayouts()
{
    QFile::remove(m_path);
}

} // namespace corvane::bench

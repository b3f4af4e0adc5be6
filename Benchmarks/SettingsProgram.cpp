#include "SettingsProgram.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

static constexpr int paneCount = 5;

SettingsProgram::SettingsProgram(VirtualDesktop &desktop)
    : corvane(desktop)
    , isStarted(corvane.start())
    , window(desktop, isStarted ? corvane.pid() : 0,
          [this] { corvane.request({u"--open-settings"_s}); })
{
}

double SettingsProgram::megabytes()
{
    window.rest();
    return static_cast<double>(corvane.residentKilobytes()) / 1024;
}

std::optional<SettingsPictures> rehearseSettings(VirtualDesktop &desktop)
{
    SettingsProgram program(desktop);
    WindowStopwatch &window = program.window;
    if (!program.isStarted || !window.open())
        return std::nullopt;
    SettingsPictures pictures;
    pictures.opened = window.look();
    program.showPane(u"tremorLog"_s);
    pictures.tremorLog = window.look();
    program.showPane(u"layouts"_s);
    pictures.layouts = window.look();
    for (const Key key : {Key::up, Key::down}) {
        pictures.panes.clear();
        for (int i = 0; i < paneCount; ++i) {
            pictures.panes << window.look();
            window.press({0, key});
        }
    }
    return window.close() ? std::optional(pictures) : std::nullopt;
}

} // namespace corvane::bench

#include "DemoOptions.h"

#include "WindowManagerProcess.h"

namespace corvane::demo {

using namespace Qt::StringLiterals;

expected<DemoOptions, QString> DemoOptions::parse(const QStringList &arguments)
{
    const QStringList managers = desktop::WindowManagerProcess::names();
    DemoOptions options;
    for (auto at = arguments.begin(); at != arguments.end(); ++at) {
        if (*at == "--help"_L1) {
            options.help = true;
            continue;
        }
        QString *const value = *at == "--window-manager"_L1 ? &options.windowManager
            : *at == "--pictures"_L1                        ? &options.pictureFolder
            : *at == "--picture"_L1                         ? &options.reducedPicture
            : *at == "--layout-picture"_L1                  ? &options.layoutPicture
                                                            : nullptr;
        if (!value)
            return unexpected<QString>(u"There is no option \"%1\"."_s.arg(*at));
        if (at + 1 == arguments.end())
            return unexpected<QString>(u"%1 needs a value."_s.arg(*at));
        *value = *++at;
    }
    if (!managers.contains(options.windowManager))
        return unexpected<QString>(u"There is no window manager \"%1\" here; there are %2."_s.arg(
            options.windowManager, managers.join(u", "_s)));
    return options;
}

QString DemoOptions::helpText()
{
    return u"Usage: corvane-demo [--window-manager NAME] [--pictures FOLDER] [--picture FILE]\n"
           "                    [--layout-picture FILE]\n"
           "Shows Corvane on a virtual desktop and exits with 0 when every window landed.\n"_s;
}

} // namespace corvane::demo

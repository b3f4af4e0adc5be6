#include "Look.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *toolkitSettings = R"([Settings]
gtk-font-name=DejaVu Sans 11
gtk-cursor-blink=false
gtk-enable-animations=false
)";

constexpr const char *openboxSettings = R"(  <theme>
    <name>Board</name>
    <titleLayout>LIMC</titleLayout>
    <font place="ActiveWindow"><name>DejaVu Sans</name><size>10</size><weight>bold</weight></font>
    <font place="InactiveWindow"><name>DejaVu Sans</name><size>10</size></font>
  </theme>
)";

constexpr const char *openboxTheme = R"(border.width: 1
window.handle.width: 0
padding.width: 10
padding.height: 6
window.client.padding.width: 0
window.client.padding.height: 0
window.label.text.justify: left
window.active.border.color: #3D4452
window.inactive.border.color: #CBC7BC
window.active.title.separator.color: #DEDAD0
window.inactive.title.separator.color: #DEDAD0
window.active.title.bg: flat solid
window.active.title.bg.color: #FFFFFF
window.inactive.title.bg: flat solid
window.inactive.title.bg.color: #F4F2EC
window.active.label.bg: parentrelative
window.active.label.text.color: #1B1D22
window.inactive.label.bg: parentrelative
window.inactive.label.text.color: #5C6069
window.active.button.*.bg: parentrelative
window.active.button.*.image.color: #1B1D22
window.inactive.button.*.bg: parentrelative
window.inactive.button.*.image.color: #8A8F9A
)";

void write(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}

} // namespace

void setToolkitLook(const desktop::PrivateSession &session)
{
    write(session.configFolder() + u"/gtk-3.0/settings.ini"_s, toolkitSettings);
}

bool setOpenboxLook(desktop::PrivateSession &session)
{
    const QString data = session.environment().value(u"XDG_DATA_HOME"_s);
    write(data + u"/themes/Board/openbox-3/themerc"_s, openboxTheme);
    const QByteArray end = "</openbox_config>";
    QFile settings(session.configFolder() + u"/openbox/rc.xml"_s);
    if (!settings.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = settings.readAll();
    settings.close();
    write(settings.fileName(), QByteArray(text).replace(end, openboxSettings + end));
    return session.run(u"openbox"_s, {u"--reconfigure"_s});
}

} // namespace corvane::demo

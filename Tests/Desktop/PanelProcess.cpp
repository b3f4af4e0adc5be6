#include "PanelProcess.h"

#include "PopupProbe.h"

#include <QtCore/QDir>

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const char *const panelFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="%1"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
    </property>
  </property>
</channel>
)";

// An empty desktop keeps the picture of what stood there before.
void clear(XConnection &connection)
{
    const quint32 black = connection.screen().black_pixel;
    xcb_change_window_attributes(connection.raw(), connection.root(), XCB_CW_BACK_PIXEL, &black);
    xcb_clear_area(connection.raw(), 0, connection.root(), 0, 0, 0, 0);
    connection.sync();
}

} // namespace

PanelProcess::PanelProcess(VirtualDesktop &desktop) : m_desktop(desktop) { }

expected<std::unique_ptr<PanelProcess>, QString> PanelProcess::start(VirtualDesktop &desktop)
{
    const QString folder = desktop.configFolder() + u"/xfce4/xfconf/xfce-perchannel-xml"_s;
    QFile file(folder + u"/xfce4-panel.xml"_s);
    if (!QDir().mkpath(folder) || !file.open(QIODevice::WriteOnly))
        return unexpected<QString>(u"%1 could not be written"_s.arg(file.fileName()));
    file.write(QByteArray(panelFile).replace("%1", QByteArray::number(height)));
    file.close();
    clear(desktop.connection());
    std::unique_ptr<PanelProcess> panel(new PanelProcess(desktop));
    panel->m_process = desktop.launch(u"xfce4-panel"_s, {u"--disable-wm-check"_s});
    const auto isDrawn = [&] {
        const QByteArray pixels = pixelsOn(desktop.connection(), panel->iconPlace());
        return std::ranges::any_of(pixels, [](char each) { return each != 0; });
    };
    if (!waitUntil(isDrawn, Milliseconds{30000}))
        return unexpected<QString>(u"the panel did not appear:\n%1"_s.arg(desktop.logs()));
    return panel;
}

Rect PanelProcess::iconPlace() const
{
    const Rect display = m_desktop.displays().displays().first();
    return {display.maxX() - height, display.y, height, height - 1};
}

bool PanelProcess::showsIcon() const
{
    const QByteArray pixels = pixelsOn(m_desktop.connection(), iconPlace());
    const QByteArray background = pixels.left(bytesPerPixel);
    qsizetype drawn = 0;
    for (qsizetype at = 0; at < pixels.size(); at += bytesPerPixel)
        drawn += pixels.mid(at, bytesPerPixel) != background;
    return drawn > height;
}

void PanelProcess::stop()
{
    m_process->stop();
}

} // namespace corvane::desktop

#include "AppStatus.h"

#include <QtCore/QCoreApplication>

namespace corvane::AppStatus {

QString line(const AppModel &model)
{
    const QList<Competitor::Running> competitors = model.competitors;
    if (!model.accessibilityTrusted)
        return QCoreApplication::translate("AppStatus", "Waiting on Accessibility");
    if (!model.unregistered.value().isEmpty())
        return QCoreApplication::translate("AppStatus", "A shortcut is not working");
    if (!competitors.isEmpty())
        return QCoreApplication::translate("AppStatus", "%1 is also running")
            .arg(competitors.first().competitor.name);
    return QCoreApplication::translate("AppStatus", "Ready");
}

Tone tone(const AppModel &model)
{
    return isReady(model) ? Tone::ready : Tone::attention;
}

bool isReady(const AppModel &model)
{
    return model.accessibilityTrusted && model.unregistered.value().isEmpty()
        && model.competitors.value().isEmpty();
}

QColor color(Tone tone, const Board::Palette &palette)
{
    return tone == Tone::ready ? palette.ready : palette.attention;
}

} // namespace corvane::AppStatus

#include "Symbol.h"

#include "DevicePixels.h"
#include "DrawnIcon.h"

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>
#include <QtSvg/QSvgRenderer>

// A resource of a static library is registered only by a mention, which must stand in no namespace.
static void registerSymbols()
{
    Q_INIT_RESOURCE(Symbols);
}

namespace corvane::Symbol {

using namespace Qt::StringLiterals;

namespace {

QString folder()
{
    static const bool isRegistered = (registerSymbols(), true);
    Q_UNUSED(isRegistered)
    return u":/Symbols/"_s;
}

QByteArray drawing(const QString &name)
{
    static QHash<QString, QByteArray> drawings;
    QByteArray &data = drawings[name];
    if (data.isEmpty()) {
        QFile file(folder() + name + u".svg"_s);
        if (file.open(QIODevice::ReadOnly))
            data = file.readAll();
    }
    return data;
}

QPixmap rendered(const QString &name, const Colors &colors, int side)
{
    const QColor badge = colors.badge.isValid() ? colors.badge : colors.ink;
    QByteArray data = drawing(name);
    data.replace("currentColor", colors.ink.name().toLatin1());
    data.replace("secondaryColor", badge.name().toLatin1());
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(data).render(&painter);
    return pixmap;
}

} // namespace

void paint(QPainter &painter, const QRectF &rect, const QString &name, const Colors &colors)
{
    const double points = std::min(rect.width(), rect.height());
    const double scale = painter.deviceTransform().m22();
    const int side = qRound(points * scale);
    const QString key = u"corvane-symbol/%1/%2/%3/%4"_s.arg(
        name, colors.ink.name(), colors.badge.name(), QString::number(side));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = rendered(name, colors, side);
        QPixmapCache::insert(key, pixmap);
    }
    const QPointF offset(points / 2, points / 2);
    const QRectF square(rect.center() - offset, rect.center() + offset);
    painter.drawPixmap(snapped(painter, square), pixmap, QRectF(pixmap.rect()));
}

QIcon icon(const QString &name, const Colors &colors)
{
    return drawnIcon([name, colors](QPainter &painter, const QRectF &rect, QIcon::Mode) {
        paint(painter, rect, name, colors);
    });
}

} // namespace corvane::Symbol

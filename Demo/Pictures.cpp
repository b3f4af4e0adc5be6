#include "Pictures.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtGui/QPainter>

#include <algorithm>

namespace corvane::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb ground = 0xF4F2EC;
constexpr QRgb sheet = 0xFBFAF6;
constexpr QRgb grid = 0xE9E6DD;
constexpr QRgb hairline = 0xDEDAD0;
constexpr QRgb edge = 0xCBC7BC;
constexpr QRgb fore = 0x1B1D22;
constexpr QRgb muted = 0x5C6069;

constexpr int cell = 40;
constexpr int cellsPerHairline = 5;

QSize boundsOf(const QList<Rect> &displays)
{
    QRect bounds;
    for (const Rect &display : displays)
        bounds |= toQRect(display);
    return bounds.size();
}

} // namespace

QRect toQRect(const Rect &rect)
{
    return QRectF(rect.x, rect.y, rect.width, rect.height).toRect();
}

QImage boardPicture(const QList<Rect> &displays)
{
    QImage picture(boundsOf(displays), QImage::Format_RGB32);
    picture.fill(QColor(edge));
    QPainter painter(&picture);
    painter.setFont(QFont(u"DejaVu Sans Mono"_s, 12));
    for (int number = 1; number <= displays.size(); ++number) {
        const QRect display = toQRect(displays[number - 1]);
        painter.setClipRect(display);
        painter.fillRect(display, QColor(ground));
        for (int i = 1; i * cell < std::max(display.width(), display.height()); ++i) {
            const int x = display.left() + i * cell;
            const int y = display.top() + i * cell;
            painter.setPen(QColor(i % cellsPerHairline ? grid : hairline));
            painter.drawLine(x, display.top(), x, display.bottom());
            painter.drawLine(display.left(), y, display.right(), y);
        }
        painter.setPen(QColor(muted));
        painter.drawText(display.adjusted(20, 20, -20, -20), Qt::AlignLeft | Qt::AlignBottom,
            u"Display %1 · %2 × %3"_s.arg(number).arg(display.width()).arg(display.height()));
    }
    return picture;
}

QImage panelPicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(sheet));
    QPainter painter(&picture);
    painter.setPen(QColor(edge));
    painter.drawLine(0, size.height() - 1, size.width(), size.height() - 1);
    painter.setPen(QColor(muted));
    painter.setFont(QFont(u"DejaVu Sans"_s, 11));
    painter.drawText(picture.rect().adjusted(16, 0, -16, 0), Qt::AlignRight | Qt::AlignVCenter,
        u"a panel %1 pixels high, which no placement covers"_s.arg(size.height()));
    return picture;
}

QImage onBoard(const QImage &seen, const QList<Rect> &displays)
{
    QImage picture = boardPicture(displays);
    QPainter painter(&picture);
    for (const Rect &display : displays)
        painter.drawImage(toQRect(display), seen, toQRect(display));
    return picture;
}

bool writeReduced(const QString &folder, const QStringList &names, const QList<Rect> &displays,
    const QString &path)
{
    constexpr int margin = 28;
    const int count = static_cast<int>(names.size());
    const int gaps = margin * static_cast<int>(displays.size() + 1);
    const QSize page = boundsOf(displays) + QSize(gaps, 2 * margin);
    QImage all(page.width(), page.height() * count, QImage::Format_RGB32);
    all.fill(QColor(ground));
    QPainter painter(&all);
    painter.setPen(QPen(QColor(fore), 4));
    for (const QString &name : names) {
        const QImage whole(folder + u'/' + name);
        for (int i = 0; i < displays.size(); ++i) {
            const QRect source = toQRect(displays[i]);
            const QRect target = source.translated(margin * (i + 1), margin);
            painter.drawRoundedRect(target.adjusted(-4, -4, 4, 4), 6, 6);
            painter.drawImage(target, whole, source);
        }
        painter.translate(0, page.height());
    }
    painter.end();
    QDir().mkpath(QFileInfo(path).path());
    return all.scaledToWidth(count == 1 ? 1400 : 1000, Qt::SmoothTransformation)
        .save(path, "PNG", 0);
}

} // namespace corvane::demo

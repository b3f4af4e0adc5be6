#include "AppIcons.h"

#include "BoardStyle.h"
#include "DevicePixels.h"
#include "Platform.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtGui/QIcon>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>

#include <algorithm>
#include <chrono>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int most = 600; ///< icons that are kept
constexpr int mostAsked = 64; ///< more have been scrolled past
constexpr auto share = 4ms; ///< of a turn of the event loop
constexpr qint64 largestFile = 4 << 20; ///< in bytes
constexpr qint64 largestPicture = 4 << 20; ///< in pixels

/// A file of the application's own may be anything, and as large as it likes.
QPixmap fromFile(const QString &path, int side)
{
    const QFileInfo file(path);
    if (!file.isFile() || file.size() > largestFile)
        return {};
    QImageReader reader(path);
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > largestPicture)
        return {};
    if (size.isValid())
        reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio));
    return QPixmap::fromImage(reader.read());
}

QPixmap iconOf(const QString &id, int side)
{
    const auto app = Platform::current().applications().installed(id);
    QString name = app && !app->iconName.isEmpty() ? app->iconName : id;
    if (name.startsWith(u'/'))
        return fromFile(name, side);
    if (name.contains(u'/'))
        return {};
    // Some entries name a file of the theme.
    for (const auto ending : {".png"_L1, ".svg"_L1, ".xpm"_L1}) {
        if (name.endsWith(ending))
            name.chop(ending.size());
    }
    return QIcon::fromTheme(name).pixmap(QSize(side, side), 1.0);
}

QString firstLetter(const QString &name)
{
    for (const char32_t letter : name.toStdU32String()) {
        if (QChar::isLetterOrNumber(letter))
            return QString::fromUcs4(&letter, 1).toUpper();
    }
    return u"?"_s;
}

void drawLetter(QPainter &painter, const QRectF &rect, const QString &name)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    const bool hasHighContrast = BoardStyle::shared().look().hasHighContrast;
    QFont font = Board::font(Board::Type::body);
    font.setWeight(QFont::DemiBold);
    font.setPixelSize(std::max(1, int(rect.height() * 0.55)));
    painter.save();
    drawField(painter, rect, rect.width() * 0.22, palette.grid,
        hasHighContrast ? palette.fore : palette.edge);
    painter.setFont(font);
    painter.setPen(hasHighContrast ? palette.fore : palette.muted);
    painter.drawText(rect, Qt::AlignCenter, firstLetter(name));
    painter.restore();
}

} // namespace

AppIcons &AppIcons::shared()
{
    static auto *const icons = new AppIcons; // the application owns it
    return *icons;
}

AppIcons::AppIcons() : QObject(QCoreApplication::instance()), m_icons(most)
{
    m_turn.setInterval(0);
    connect(&m_turn, &QTimer::timeout, this, &AppIcons::load);
}

void AppIcons::paint(QPainter &painter, const QRectF &rect, const AppRef &app)
{
    followTheme();
    const double side = std::min(rect.width(), rect.height());
    const QRectF square =
        snapped(painter, {rect.center().x() - side / 2, rect.center().y() - side / 2, side, side});
    const Key key(app.bundleID, qRound(side * painter.device()->devicePixelRatioF()));
    const QPixmap *icon = m_icons.object(key);
    if (!icon && !m_asked.contains(key)) {
        m_asked << key;
        if (m_asked.size() > mostAsked)
            m_asked.removeFirst();
        m_turn.start();
    }
    if (!icon || icon->isNull())
        return drawLetter(painter, square, app.name);
    QRectF target({0, 0}, QSizeF(icon->size()).scaled(square.size(), Qt::KeepAspectRatio));
    target.moveCenter(square.center());
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, *icon, icon->rect());
    painter.restore();
}

void AppIcons::load()
{
    const auto end = std::chrono::steady_clock::now() + share;
    while (!m_asked.isEmpty() && std::chrono::steady_clock::now() < end) {
        const Key key = m_asked.takeFirst();
        m_icons.insert(key, new QPixmap(iconOf(key.first, key.second)));
    }
    if (m_asked.isEmpty())
        m_turn.stop();
    Q_EMIT loaded();
}

void AppIcons::followTheme()
{
    if (std::exchange(m_theme, QIcon::themeName()) != m_theme)
        m_icons.clear();
}

} // namespace corvane

#pragma once

#include "AppRef.h"

#include <QtCore/QCache>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtGui/QPixmap>

class QPainter;

namespace corvane {

/// The icons of applications. Each is read when it is drawn for the first time, which takes so long
/// that only a few are at each turn of the event loop. Until then, and for good where there is none,
/// a tile with the first letter of the name stands for it.
class AppIcons final : public QObject
{
    Q_OBJECT

public:
    /// Those of the application, which must be there.
    static AppIcons &shared();

    /// Draws the icon as large as fits the middle of the rectangle.
    void paint(QPainter &painter, const QRectF &rect, const AppRef &app);

Q_SIGNALS:
    /// What was drawn as a letter may be an icon by now.
    void loaded();

private:
    AppIcons();

    using Key = std::pair<QString, int>; ///< identifier, and side in device pixels

    void load();
    void followTheme();

    QCache<Key, QPixmap> m_icons; ///< null: there is none
    QList<Key> m_asked; ///< the oldest first
    QTimer m_turn;
    QString m_theme; ///< that the icons are of
};

} // namespace corvane

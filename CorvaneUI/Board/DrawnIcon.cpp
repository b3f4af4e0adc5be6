#include "DrawnIcon.h"

#include <QtGui/QIconEngine>
#include <QtGui/QPainter>

namespace corvane {

namespace {

class DrawnIconEngine final : public QIconEngine
{
public:
    explicit DrawnIconEngine(IconDrawing drawing) : m_drawing(std::move(drawing)) { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        m_drawing(*painter, rect, mode);
    }

    /// `size` is in device pixels.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        m_drawing(painter, pixmap.rect(), mode);
        return pixmap;
    }

    [[nodiscard]] QIconEngine *clone() const override { return new DrawnIconEngine(*this); }

private:
    IconDrawing m_drawing;
};

} // namespace

QIcon drawnIcon(IconDrawing drawing)
{
    return QIcon(new DrawnIconEngine(std::move(drawing)));
}

} // namespace corvane

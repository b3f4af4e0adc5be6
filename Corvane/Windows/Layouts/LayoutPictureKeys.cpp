// What keys do in the picture.

#include "Board.h"
#include "LayoutPicture.h"
#include "LayoutPictureAccess.h"
#include "PaneSpan.h"
#include "Percent.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolTip>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr double step = 0.01;

std::optional<Qt::ArrowType> arrowOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return Qt::LeftArrow;
    case Qt::Key_Right:
        return Qt::RightArrow;
    case Qt::Key_Up:
        return Qt::UpArrow;
    case Qt::Key_Down:
        return Qt::DownArrow;
    default:
        return std::nullopt;
    }
}

} // namespace

/// Keys of the picture count before those of the window's shortcuts.
bool LayoutPicture::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && (m_focused || m_isDragged)) {
        const auto &key = static_cast<QKeyEvent &>(*event);
        if (key.key() == Qt::Key_Escape)
            event->accept();
        else if (key.modifiers() & Qt::ControlModifier && !arrowOf(key.key()) && !m_isDragged)
            finish(); // Undo, for one, is of this gesture then
    }
    if (event->type() == QEvent::ToolTip) {
        const auto &help = static_cast<QHelpEvent &>(*event);
        const auto spot = spotAt(help.pos());
        const auto pane =
            spot ? std::ranges::find(m_layout.panes, spot->pane, &Pane::id) : m_layout.panes.cend();
        if (pane == m_layout.panes.cend())
            QToolTip::hideText();
        else
            QToolTip::showText(help.globalPos(),
                LayoutPictureAccess::nameOf(*pane) + u'\n'
                    + LayoutPictureAccess::placeOf(m_layout, *pane),
                this, spot->rect.toAlignedRect());
        return true;
    }
    return QWidget::event(event);
}

void LayoutPicture::keyPressEvent(QKeyEvent *event)
{
    if (m_isDragged) {
        if (event->key() == Qt::Key_Escape)
            cancel();
        return;
    }
    // What the field has no use for is not meant for the picture.
    if (m_percent->isVisible() || !(m_focused ? pressEdgeKey(*event) : pressPaneKey(*event)))
        QWidget::keyPressEvent(event);
}

bool LayoutPicture::pressArrow(Qt::ArrowType arrow, Qt::KeyboardModifiers modifiers)
{
    switch (modifiers) {
    case Qt::NoModifier:
        if (const auto next = neighbour(spotsOf(m_layout, m_scene), m_spot, arrow))
            setSpot(*next);
        return true;
    case Qt::AltModifier:
        if (const auto edge = edgeBeside(arrow))
            setCurrentEdge(*edge);
        return true;
    case Qt::ShiftModifier:
        merge(arrow);
        return true;
    case int(Qt::ControlModifier) | int(Qt::ShiftModifier):
        swap(arrow);
        return true;
    default:
        return false;
    }
}

bool LayoutPicture::pressPaneKey(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (const auto arrow = arrowOf(event.key()))
        return pressArrow(*arrow, modifiers);
    if (modifiers)
        return false;
    switch (event.key()) {
    case Qt::Key_C:
        split(CutLines::vertical);
        return true;
    case Qt::Key_R:
        split(CutLines::horizontal);
        return true;
    case Qt::Key_Delete:
        remove();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (currentPane())
            Q_EMIT appAsked();
        else if (m_scene.display(m_spot.display))
            addPane();
        return true;
    default:
        return false;
    }
}

bool LayoutPicture::pressEdgeKey(const QKeyEvent &event)
{
    const bool isUpright = m_focused->cut == CutLines::vertical;
    const int less = isUpright ? Qt::Key_Left : Qt::Key_Up;
    const int more = isUpright ? Qt::Key_Right : Qt::Key_Down;
    const int key = event.key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
        leaveEdge();
        return true;
    }
    if (!event.text().isEmpty() && event.text().front().isDigit()) {
        openPercent(event.text());
        return true;
    }
    const bool isEnd = key == Qt::Key_Home || key == Qt::Key_End;
    if (key != less && key != more && !isEnd) {
        if (arrowOf(key))
            return true; // across the edge there is nowhere to go
        finish();
        return false;
    }
    if (!m_drag)
        m_drag.emplace(m_layout, *m_focused);
    const int direction = key == more || key == Qt::Key_End ? 1 : -1;
    if (isEnd)
        m_drag->moveToEnd(direction);
    else if (event.modifiers() & Qt::ShiftModifier)
        m_drag->moveToNextSnap(direction);
    else
        m_drag->moveBy(direction * (event.modifiers() & Qt::ControlModifier ? step / 10 : step));
    m_focused = m_drag->edge();
    m_settling.start();
    refresh();
    Q_EMIT shownChanged();
    LayoutPictureAccess::tellValue(*this);
    return true;
}

/// The field stands beside the edge, and takes the size of what is left of it or above it.
void LayoutPicture::openPercent(const QString &text)
{
    finish();
    const QList<QLineF> lines = segmentsOf(*m_focused, m_layout, m_scene);
    if (lines.isEmpty())
        return;
    m_percent->setText(text);
    m_percent->resize(Board::length(64), m_percent->sizeHint().height());
    QRect place = m_percent->rect();
    place.moveCenter(lines.first().center().toPoint());
    place.moveLeft(std::clamp(place.left(), 0, std::max(0, width() - place.width())));
    m_percent->setGeometry(place);
    m_percent->show();
    m_percent->setFocus();
    m_percent->end(false);
}

/// However the field was left: what was typed counts, if it is a number.
void LayoutPicture::takePercent()
{
    if (m_percent->hasFocus())
        return;
    const auto size = fractionFromPercent(m_percent->text());
    m_percent->clear();
    m_percent->hide();
    if (!m_focused || !size)
        return;
    const PaneEdge edge = *m_focused;
    const auto ends = [&edge](const Pane &pane) {
        return sameEdge(spanOf(pane.rect, edge.cut).end(), edge.at);
    };
    const QList<Pane> panes = m_layout.panesOn(edge.display);
    const auto before = std::ranges::find_if(panes, ends);
    const double start = before == panes.end() ? 0 : spanOf(before->rect, edge.cut).start;
    moveEdge(edge, start + *size);
}

} // namespace corvane

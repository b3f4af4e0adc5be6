#include "LayoutPicture.h"

#include "AppIcons.h"
#include "BoardStyle.h"
#include "DraftingGrid.h"
#include "LayoutPictureAccess.h"
#include "OneLine.h"
#include "PaneSpan.h"
#include "Percent.h"
#include "Platform.h"
#include "Screens.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QShortcut>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <chrono>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr double hitWidth = 9; ///< of an edge
constexpr double snapReach = 6;
constexpr double gridStep = 16;

QList<Pane>::iterator paneIn(WindowLayout &layout, const QUuid &id)
{
    return std::ranges::find(layout.panes, id, &Pane::id);
}

} // namespace

LayoutPicture::LayoutPicture(AppModel &model, QWidget *parent)
    : QWidget(parent), m_model(model), m_percent(new QLineEdit(this))
{
    LayoutPictureAccess::install();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_percent->hide();
    m_percent->setFont(Board::font(Board::Type::numerals));
    m_percent->setAccessibleName(tr("Percent"));
    connect(m_percent, &QLineEdit::returnPressed, this, [this] {
        if (fractionFromPercent(m_percent->text()))
            setFocus();
        else
            m_percent->selectAll();
    });
    connect(m_percent, &QLineEdit::editingFinished, this, &LayoutPicture::takePercent);
    connect(new QShortcut(Qt::Key_Escape, m_percent, nullptr, nullptr, Qt::WidgetShortcut),
        &QShortcut::activated, this, [this] {
            m_percent->clear();
            setFocus();
        });
    m_settling.setSingleShot(true);
    m_settling.setInterval(600ms);
    connect(&m_settling, &QTimer::timeout, this, &LayoutPicture::finish);
    connect(&model, &AppModel::layoutsChanged, this, &LayoutPicture::follow);
    connect(&Platform::current().displays(), &Displays::changed, this, [this] {
        cancel();
        arrange();
        updateGeometry();
        Q_EMIT shownChanged();
    });
    connect(&AppIcons::shared(), &AppIcons::loaded, this, qOverload<>(&QWidget::update));
    connect(&BoardStyle::shared(), &BoardStyle::lookChanged, this, [this] {
        arrange();
        update();
    });
}

void LayoutPicture::setLayout(const QUuid &id)
{
    finish();
    m_id = id;
    m_focused.reset();
    m_results.clear();
    m_spot = {};
    m_layout = m_model.layout(id).value_or(WindowLayout{});
    arrange();
    setSpot(firstSpot());
    setAccessibleName(tr("%1, picture").arg(oneLine(m_layout.name)));
    updateGeometry();
    Q_EMIT shownChanged();
}

/// What was changed elsewhere counts: a gesture loses its ground.
void LayoutPicture::follow()
{
    const auto layout = m_model.layout(m_id);
    if (layout == m_layout)
        return;
    cancel();
    if (!layout)
        return;
    m_layout = *layout;
    setAccessibleName(tr("%1, picture").arg(oneLine(m_layout.name)));
    arrange();
    const QList<Spot> spots = spotsOf(m_layout, m_scene);
    const auto same = std::ranges::find_if(spots, [this](const Spot &each) {
        return each.pane == m_spot.pane && (!each.pane.isNull() || each.display == m_spot.display);
    });
    setSpot(same == spots.end() ? firstSpot() : *same);
    updateGeometry();
    Q_EMIT shownChanged();
}

void LayoutPicture::arrange()
{
    m_scene = LayoutScene::of(m_layout, Screens::all(), room());
    for (const Spot &each : spotsOf(m_layout, m_scene)) {
        if (each.pane == m_spot.pane && each.display == m_spot.display)
            m_spot = each;
    }
    refresh();
}

LayoutView LayoutPicture::view() const
{
    LayoutView view{.layout = shown(),
        .scene = m_scene,
        .pane = m_spot.pane,
        .display = m_spot.display,
        .showsFocus = hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange),
        .edge = m_drag  ? m_drag->edge()
            : m_focused ? m_focused
                        : m_hovered,
        .isEdgeFocused = m_focused.has_value(),
        .drag = m_drag ? &*m_drag : nullptr,
        .results = m_results,
        .isUnderWay = m_isUnderWay};
    if (m_showsRemoval && withoutCurrent(&view.grower))
        view.removed = m_spot.pane;
    return view;
}

/// Paints again just what looks otherwise than before.
void LayoutPicture::refresh()
{
    QList<DrawnPart> parts = LayoutDrawing::parts(view());
    const auto repaint = [this](const DrawnPart &part) {
        update(part.bounds.toAlignedRect().adjusted(-1, -1, 1, 1));
    };
    for (const auto &[some, others] : {std::pair(&m_parts, &parts), {&parts, &m_parts}}) {
        for (const DrawnPart &part : std::as_const(*some)) {
            const auto other = std::ranges::find(*others, part.key, &DrawnPart::key);
            if (other == others->end() || !part.isLike(*other))
                repaint(part);
        }
    }
    m_parts = std::move(parts);
}

void LayoutPicture::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setClipRegion(event->region());
    // The card's outline lies around it.
    DraftingGrid::paint(painter, QRectF(rect()).adjusted(1, 1, -1, 0), Board::length(gridStep),
        BoardStyle::shared().colors());
    for (const DrawnPart &part : std::as_const(m_parts)) {
        if (!event->region().intersects(part.bounds.toAlignedRect()))
            continue;
        painter.save();
        part.paint(painter);
        painter.restore();
    }
}

const WindowLayout &LayoutPicture::shown() const
{
    return m_drag ? m_drag->layout() : m_layout;
}

std::optional<Pane> LayoutPicture::currentPane() const
{
    const auto found = std::ranges::find(shown().panes, m_spot.pane, &Pane::id);
    return found == shown().panes.end() ? std::nullopt : std::optional(*found);
}

/// Where to go on when what was current is gone: on the same display, if that is there.
Spot LayoutPicture::firstSpot() const
{
    const QList<Spot> spots = spotsOf(m_layout, m_scene);
    const auto same = std::ranges::find(spots, m_spot.display, &Spot::display);
    return same != spots.end() ? *same : spots.isEmpty() ? Spot{} : spots.first();
}

void LayoutPicture::setSpot(const Spot &spot)
{
    m_focused.reset();
    const bool isOther = spot.pane != m_spot.pane || spot.display != m_spot.display;
    m_spot = spot;
    refresh();
    if (!isOther)
        return;
    Q_EMIT currentPaneChanged();
    tellFocus();
}

void LayoutPicture::setCurrentPane(const QUuid &id)
{
    const QList<Spot> spots = spotsOf(m_layout, m_scene);
    const auto found = std::ranges::find(spots, id, &Spot::pane);
    if (found != spots.end())
        setSpot(*found);
}

void LayoutPicture::setCurrentEdge(const PaneEdge &edge)
{
    finish();
    m_focused = edge;
    refresh();
    tellFocus();
}

void LayoutPicture::leaveEdge()
{
    finish();
    m_focused.reset();
    refresh();
    tellFocus();
}

/// Says which part of the picture has the focus, after Qt has said that the picture has.
void LayoutPicture::tellFocus()
{
    if (hasFocus())
        QMetaObject::invokeMethod(
            this, [this] { LayoutPictureAccess::tellFocus(*this); }, Qt::QueuedConnection);
}

void LayoutPicture::setResults(const QList<PaneResult> &results, bool isUnderWay)
{
    m_isUnderWay = isUnderWay;
    m_results.clear();
    for (const PaneResult &result : results)
        m_results.insert(result.pane.id, result.status);
    refresh();
}

void LayoutPicture::showRemoval(bool isShown)
{
    m_showsRemoval = isShown;
    refresh();
}

QSize LayoutPicture::sizeHint() const
{
    return {Board::length(480), Board::length(260)};
}

int LayoutPicture::heightForWidth(int width) const
{
    using namespace LayoutDrawing;
    const QSizeF room(width - Board::length(rulerRoom) - Board::length(endRoom), 1e6);
    const LayoutScene scene = LayoutScene::of(m_layout, Screens::all(), QRectF({0, 0}, room));
    const int least = Board::length(200);
    return std::clamp(
        int(scene.bounds().height()) + Board::length(rulerRoom) + Board::length(nameRoom), least,
        std::max(least, window()->height() * 45 / 100));
}

QRectF LayoutPicture::room() const
{
    using namespace LayoutDrawing;
    return QRectF(rect()).adjusted(Board::length(rulerRoom), Board::length(rulerRoom),
        -Board::length(endRoom), -Board::length(nameRoom));
}

std::optional<Spot> LayoutPicture::spotAt(const QPointF &point) const
{
    std::optional<Spot> found;
    const auto size = [](const Spot &spot) { return spot.rect.width() * spot.rect.height(); };
    for (const Spot &each : spotsOf(m_layout, m_scene)) {
        if (each.rect.contains(point) && (!found || size(each) <= size(*found)))
            found = each;
    }
    return found;
}

std::optional<PaneEdge> LayoutPicture::edgeAt(const QPointF &point) const
{
    const double reach = Board::length(hitWidth) / 2.0;
    for (const PaneEdge &edge : edgesOf(shown())) {
        const bool isUpright = edge.cut == CutLines::vertical;
        for (const QLineF &line : segmentsOf(edge, shown(), m_scene)) {
            const QRectF hit = QRectF(line.p1(), line.p2())
                                   .adjusted(isUpright ? -reach : 0, isUpright ? 0 : -reach,
                                       isUpright ? reach : 0, isUpright ? 0 : reach);
            if (hit.contains(point))
                return edge;
        }
    }
    return std::nullopt;
}

std::optional<PaneEdge> LayoutPicture::edgeBeside(Qt::ArrowType side) const
{
    const auto pane = currentPane();
    if (!pane)
        return std::nullopt;
    const bool isUpright = side == Qt::LeftArrow || side == Qt::RightArrow;
    const CutLines cut = isUpright ? CutLines::vertical : CutLines::horizontal;
    const PaneSpan span = spanOf(pane->rect, cut);
    const double at = side == Qt::LeftArrow || side == Qt::UpArrow ? span.start : span.end();
    for (const PaneEdge &edge : edgesOf(shown())) {
        if (edge.display == pane->display && edge.cut == cut && sameEdge(edge.at, at))
            return edge;
    }
    return std::nullopt;
}

double LayoutPicture::fractionAt(const PaneEdge &edge, const QPointF &point) const
{
    const QRectF area = m_scene.display(edge.display)->visible;
    return edge.cut == CutLines::vertical ? (point.x() - area.left()) / area.width()
                                          : (point.y() - area.top()) / area.height();
}

void LayoutPicture::commit(const WindowLayout &layout, const QString &undoTitle)
{
    if (layout == m_layout)
        return;
    m_layout = layout; // so that `follow` finds nothing that somebody else did
    m_model.updateLayout(layout, undoTitle);
    m_layout = m_model.layout(m_id).value_or(layout);
    arrange();
    if (!m_spot.pane.isNull() && !currentPane())
        setSpot(firstSpot());
    Q_EMIT shownChanged();
}

void LayoutPicture::edit(
    const QString &undoTitle, const std::function<void(WindowLayout &layout)> &change)
{
    finish();
    WindowLayout layout = m_layout;
    change(layout);
    commit(layout, undoTitle);
}

void LayoutPicture::finish()
{
    m_settling.stop();
    m_isDragged = false;
    if (const auto drag = std::exchange(m_drag, std::nullopt)) {
        if (m_focused)
            m_focused = drag->edge();
        if (drag->hasMoved())
            commit(drag->layout(), tr("Move Edge"));
        refresh();
    }
}

void LayoutPicture::cancel()
{
    m_settling.stop();
    m_isDragged = false;
    m_focused.reset();
    m_hovered.reset();
    m_percent->hide();
    if (std::exchange(m_drag, std::nullopt))
        Q_EMIT shownChanged();
    refresh();
}

bool LayoutPicture::canSplit(CutLines cut) const
{
    const auto pane = currentPane();
    return pane && spanOf(pane->rect, cut).length / 2 >= EdgeDrag::minimum;
}

void LayoutPicture::split(CutLines cut)
{
    finish();
    if (canSplit(cut))
        edit(tr("Split Pane"), [&](WindowLayout &layout) { layout.split(m_spot.pane, cut); });
}

/// The layout without the current pane, and which pane has grown into its space.
std::optional<WindowLayout> LayoutPicture::withoutCurrent(QUuid *grower) const
{
    WindowLayout layout = m_layout;
    layout.remove(m_spot.pane);
    if (layout.panes.size() == m_layout.panes.size())
        return std::nullopt;
    for (const Pane &pane : std::as_const(layout.panes)) {
        if (!m_layout.panes.contains(pane))
            *grower = pane.id;
    }
    return layout;
}

void LayoutPicture::remove()
{
    finish();
    QUuid grower;
    const auto layout = withoutCurrent(&grower);
    if (!layout)
        return;
    // The pane that grew is the one to go on with.
    if (!grower.isNull())
        setCurrentPane(grower);
    commit(*layout, tr("Remove Pane"));
}

// The current pane is put first, since the first neighbour in the list grows.
void LayoutPicture::merge(Qt::ArrowType direction)
{
    finish();
    const auto other = neighbour(spotsOf(m_layout, m_scene), m_spot, direction);
    if (!other || other->pane.isNull() || !currentPane() || other->display != m_spot.display)
        return;
    WindowLayout layout = m_layout;
    const qsizetype from = paneIn(layout, m_spot.pane) - layout.panes.begin();
    const qsizetype removed = paneIn(layout, other->pane) - layout.panes.begin();
    layout.panes.move(from, 0);
    const UnitRect before = layout.panes.first().rect;
    layout.remove(other->pane);
    if (layout.panes.first().rect == before)
        return;
    layout.panes.move(0, removed < from ? from - 1 : from);
    commit(layout, tr("Merge Panes"));
}

void LayoutPicture::swap(Qt::ArrowType direction)
{
    finish();
    const auto other = neighbour(spotsOf(m_layout, m_scene), m_spot, direction);
    if (!other || other->pane.isNull() || !currentPane())
        return;
    edit(tr("Swap Panes"), [&](WindowLayout &layout) {
        Pane &one = *paneIn(layout, m_spot.pane);
        Pane &two = *paneIn(layout, other->pane);
        std::swap(one.app, two.app);
        std::swap(one.titleContains, two.titleContains);
        std::swap(one.launch, two.launch);
        std::swap(one.stack, two.stack);
        std::swap(one.capturedTitle, two.capturedTitle);
    });
    setCurrentPane(other->pane);
}

void LayoutPicture::moveEdge(const PaneEdge &edge, double to)
{
    finish();
    EdgeDrag drag(m_layout, edge);
    drag.place(to);
    const bool wasFocused = m_focused == edge;
    if (drag.hasMoved())
        commit(drag.layout(), tr("Move Edge"));
    if (wasFocused)
        m_focused = drag.edge();
    refresh();
}

void LayoutPicture::addPane()
{
    const int display = m_spot.display;
    edit(tr("Add Pane"),
        [display](WindowLayout &layout) { layout.setSplit(display, {1}, CutLines::vertical); });
    const QList<Pane> panes = m_layout.panesOn(display);
    if (!panes.isEmpty())
        setCurrentPane(panes.first().id);
}

void LayoutPicture::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    finish();
    const QPointF point = event->position();
    for (const RulerNumber &number : LayoutDrawing::rulers(view())) {
        if (number.span.contains(point)) {
            Q_EMIT bandAsked(number.cut, number.index);
            return;
        }
    }
    if (const auto edge = edgeAt(point)) {
        m_focused.reset();
        m_drag.emplace(m_layout, *edge);
        m_isDragged = true;
        Q_EMIT shownChanged();
        return refresh();
    }
    if (const auto spot = spotAt(point)) {
        setSpot(*spot);
        if (spot->pane.isNull())
            addPane();
    }
}

void LayoutPicture::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_isDragged) {
        const auto edge = edgeAt(event->position());
        if (std::exchange(m_hovered, edge) != edge)
            refresh();
        if (!edge)
            return unsetCursor();
        return setCursor(edge->cut == CutLines::vertical ? Qt::SplitHCursor : Qt::SplitVCursor);
    }
    const PaneEdge edge = m_drag->edge();
    const QRectF area = m_scene.display(edge.display)->visible;
    m_drag->moveTo(fractionAt(edge, event->position()),
        snapReach / (edge.cut == CutLines::vertical ? area.width() : area.height()),
        event->modifiers() & Qt::ControlModifier ? EdgeDrag::Snapping::tenths
                                                 : EdgeDrag::Snapping::edges);
    refresh();
    Q_EMIT shownChanged();
}

void LayoutPicture::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_isDragged)
        return;
    finish();
    m_hovered = edgeAt(event->position());
    refresh();
    Q_EMIT shownChanged();
}

void LayoutPicture::mouseDoubleClickEvent(QMouseEvent *event)
{
    const auto spot = spotAt(event->position());
    if (!edgeAt(event->position()) && spot && !spot->pane.isNull())
        Q_EMIT appAsked();
}

void LayoutPicture::leaveEvent(QEvent *)
{
    m_hovered.reset();
    refresh();
}

void LayoutPicture::resizeEvent(QResizeEvent *)
{
    arrange();
}

void LayoutPicture::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    refresh();
    tellFocus();
}

void LayoutPicture::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::PopupFocusReason && !m_percent->hasFocus())
        finish();
    QWidget::focusOutEvent(event);
    refresh();
}

} // namespace corvane

#include "LayoutPictureAccess.h"

#include "LayoutPicture.h"
#include "OneLine.h"
#include "PaneSpan.h"
#include "Percent.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QAccessibleWidget>

#include <algorithm>
#include <cmath>
#include <map>
#include <variant>

namespace corvane::LayoutPictureAccess {

using namespace Qt::StringLiterals;

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LayoutPicture)
};

/// A pane, by its id, or an edge, by its place in the order of all edges.
using Part = std::variant<QUuid, int>;

class PictureInterface;

/// What panes and edges have in common.
class PartInterface : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    PartInterface(LayoutPicture &picture, PictureInterface &parent)
        : m_picture(picture), m_parent(parent)
    {
    }

    [[nodiscard]] virtual bool isCurrent() const = 0;
    virtual void makeCurrent() = 0;

    bool isValid() const override { return true; }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override;
    QWindow *window() const override { return m_picture.window()->windowHandle(); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override { }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = state.selectable = true;
        state.selected = isCurrent();
        state.focused = isCurrent() && m_picture.hasFocus();
        return state;
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }
    void doAction(const QString &name) override
    {
        if (name == setFocusAction()) {
            m_picture.setFocus();
            makeCurrent();
        }
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }
    QString localizedActionName(const QString &name) const override { return name; }

protected:
    [[nodiscard]] QRect onScreen(const QRectF &rect) const
    {
        const QRect whole = rect.toAlignedRect();
        return {m_picture.mapToGlobal(whole.topLeft()), whole.size()};
    }

    LayoutPicture &m_picture;
    PictureInterface &m_parent;
};

class PaneInterface final : public PartInterface
{
public:
    PaneInterface(LayoutPicture &picture, PictureInterface &parent, const QUuid &id)
        : PartInterface(picture, parent), m_id(id)
    {
    }

    bool isCurrent() const override
    {
        const auto current = m_picture.currentPane();
        return current && current->id == m_id && !m_picture.currentEdge();
    }
    void makeCurrent() override { m_picture.setCurrentPane(m_id); }

    bool isValid() const override { return pane().has_value(); }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QRect rect() const override
    {
        return pane() ? onScreen(m_picture.scene().rectOf(*pane())) : QRect();
    }
    QString text(QAccessible::Text kind) const override
    {
        if (!pane())
            return {};
        if (kind == QAccessible::Name)
            return nameOf(*pane());
        if (kind != QAccessible::Description)
            return {};
        QString text = placeOf(m_picture.shown(), *pane());
        const auto result = m_picture.results().constFind(m_id);
        if (result != m_picture.results().cend() && !statusText(*result).isEmpty())
            text += u". "_s + statusText(*result);
        return text;
    }
    QStringList actionNames() const override
    {
        return {
            setFocusAction(), u"split columns"_s, u"split rows"_s, u"remove"_s, u"choose app"_s};
    }
    QString localizedActionName(const QString &name) const override
    {
        const QStringList names{Texts::tr("Focus"), Texts::tr("Split Columns"),
            Texts::tr("Split Rows"), Texts::tr("Remove"), Texts::tr("Choose App…")};
        return names.value(actionNames().indexOf(name));
    }
    QString localizedActionDescription(const QString &) const override { return {}; }
    void doAction(const QString &name) override
    {
        PartInterface::doAction(setFocusAction());
        if (name == "split columns"_L1)
            m_picture.split(CutLines::vertical);
        else if (name == "split rows"_L1)
            m_picture.split(CutLines::horizontal);
        else if (name == "remove"_L1)
            m_picture.remove();
        else if (name == "choose app"_L1)
            QMetaObject::invokeMethod(&m_picture, &LayoutPicture::appAsked, Qt::QueuedConnection);
    }

private:
    [[nodiscard]] std::optional<Pane> pane() const
    {
        const QList<Pane> &panes = m_picture.shown().panes;
        const auto found = std::ranges::find(panes, m_id, &Pane::id);
        return found == panes.end() ? std::nullopt : std::optional(*found);
    }

    QUuid m_id;
};

class EdgeInterface final : public PartInterface, public QAccessibleValueInterface
{
public:
    EdgeInterface(LayoutPicture &picture, PictureInterface &parent, int index)
        : PartInterface(picture, parent), m_index(index)
    {
    }

    bool isCurrent() const override { return edge() && m_picture.currentEdge() == edge(); }
    void makeCurrent() override
    {
        if (const auto current = edge())
            m_picture.setCurrentEdge(*current);
    }

    bool isValid() const override { return edge().has_value(); }
    QAccessible::Role role() const override { return QAccessible::Slider; }
    QRect rect() const override
    {
        QRectF all;
        if (const auto current = edge()) {
            for (const QLineF &line : segmentsOf(*current, m_picture.shown(), m_picture.scene()))
                all |= QRectF(line.p1(), line.p2()).adjusted(-4, -4, 4, 4);
        }
        return onScreen(all);
    }
    QString text(QAccessible::Text kind) const override
    {
        const auto current = edge();
        if (!current || (kind != QAccessible::Name && kind != QAccessible::Value))
            return {};
        if (kind == QAccessible::Value)
            return LayoutDrawing::percent(current->at);
        QStringList sides;
        for (const bool isBefore : {true, false}) {
            for (const Pane &pane : m_picture.shown().panesOn(current->display)) {
                const PaneSpan span = spanOf(pane.rect, current->cut);
                if (sameEdge(isBefore ? span.end() : span.start, current->at)) {
                    sides << (pane.app ? oneLine(pane.app->name) : Texts::tr("Empty"));
                    break;
                }
            }
        }
        return Texts::tr("Edge between %1 and %2").arg(sides.value(0), sides.value(1));
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : PartInterface::interface_cast(type);
    }
    QStringList actionNames() const override
    {
        return {setFocusAction(), increaseAction(), decreaseAction()};
    }
    QString localizedActionDescription(const QString &) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (name == increaseAction() || name == decreaseAction())
            setCurrentValue(currentValue().toDouble() + (name == increaseAction() ? 1 : -1));
        else
            PartInterface::doAction(name);
    }

    QVariant currentValue() const override
    {
        return edge() ? std::round(edge()->at * 1000) / 10 : 0.0;
    }
    void setCurrentValue(const QVariant &value) override
    {
        if (const auto current = edge())
            m_picture.moveEdge(*current, value.toDouble() / 100);
    }
    QVariant maximumValue() const override { return 100 * (1 - EdgeDrag::minimum); }
    QVariant minimumValue() const override { return 100 * EdgeDrag::minimum; }
    QVariant minimumStepSize() const override { return 0.1; }

private:
    [[nodiscard]] std::optional<PaneEdge> edge() const
    {
        const QList<PaneEdge> edges = edgesOf(m_picture.shown());
        return m_index < edges.size() ? std::optional(edges[m_index]) : std::nullopt;
    }

    int m_index;
};

class PictureInterface final : public QAccessibleWidget
{
public:
    explicit PictureInterface(LayoutPicture &picture)
        : QAccessibleWidget(&picture, QAccessible::List), m_picture(picture)
    {
    }
    ~PictureInterface() override
    {
        for (const auto &[part, id] : m_parts)
            QAccessible::deleteAccessibleInterface(id);
    }
    Q_DISABLE_COPY_MOVE(PictureInterface)

    int childCount() const override { return int(parts().size()); }
    QAccessibleInterface *child(int index) const override
    {
        const QList<Part> all = parts();
        return index >= 0 && index < all.size() ? interface(all[index]) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (int index = 0; index < childCount(); ++index) {
            if (this->child(index) == child)
                return index;
        }
        return -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        QAccessibleInterface *found = nullptr;
        for (int index = 0; index < childCount(); ++index) {
            if (QAccessibleInterface *each = child(index); each->rect().contains(x, y))
                found = each;
        }
        return found;
    }
    QAccessibleInterface *focusChild() const override
    {
        for (int index = 0; index < childCount(); ++index) {
            auto *part = static_cast<PartInterface *>(child(index));
            if (part->isCurrent() && m_picture.hasFocus())
                return part;
        }
        return QAccessibleWidget::focusChild();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.focused = state.focused && !m_picture.currentPane();
        return state;
    }

private:
    [[nodiscard]] QList<Part> parts() const
    {
        QList<Part> all;
        for (const Pane &pane : m_picture.shown().panes)
            all << pane.id;
        for (int index = 0; index < edgesOf(m_picture.shown()).size(); ++index)
            all << index;
        return all;
    }
    QAccessibleInterface *interface(const Part &part) const
    {
        auto &self = const_cast<PictureInterface &>(*this); // made when first asked for
        auto &id = self.m_parts[part];
        if (id == 0) {
            PartInterface *made = nullptr;
            if (const auto *pane = std::get_if<QUuid>(&part))
                made = new PaneInterface(m_picture, self, *pane);
            else
                made = new EdgeInterface(m_picture, self, std::get<int>(part));
            id = QAccessible::registerAccessibleInterface(made);
        }
        return QAccessible::accessibleInterface(id);
    }

    LayoutPicture &m_picture;
    std::map<Part, QAccessible::Id> m_parts;
};

QAccessibleInterface *PartInterface::parent() const
{
    return &m_parent;
}

QAccessibleInterface *make(const QString &, QObject *object)
{
    auto *picture = qobject_cast<LayoutPicture *>(object);
    return picture ? new PictureInterface(*picture) : nullptr;
}

void tell(LayoutPicture &picture, QAccessible::Event type)
{
    QAccessibleInterface *whole = QAccessible::queryAccessibleInterface(&picture);
    QAccessibleInterface *part = whole ? whole->focusChild() : nullptr;
    if (!part || part == whole)
        return;
    if (type == QAccessible::ValueChanged) {
        QAccessibleValueChangeEvent event(part, part->valueInterface()->currentValue());
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleEvent event(part, type);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace

void install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(make);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

void tellFocus(LayoutPicture &picture)
{
    if (QAccessible::isActive() && picture.hasFocus())
        tell(picture, QAccessible::Focus);
}

void tellValue(LayoutPicture &picture)
{
    if (QAccessible::isActive() && picture.currentEdge())
        tell(picture, QAccessible::ValueChanged);
}

QString nameOf(const Pane &pane)
{
    if (!pane.app)
        return Texts::tr("Empty");
    const QString name = oneLine(pane.app->name);
    const QString title = pane.titleContains.value_or(QString());
    return title.isEmpty() ? name : Texts::tr("%1, %2").arg(name, oneLine(title));
}

QString placeOf(const WindowLayout &layout, const Pane &pane)
{
    const auto side = [](PaneSpan span, const QString &first, const QString &last) {
        const double before = span.start;
        const double after = 1 - span.end();
        if (std::abs(before - after) < edgeTolerance)
            return QString();
        return before < after ? first : last;
    };
    QStringList words{pane.display >= 0 && pane.display < layout.displays.size()
            ? layout.displays[pane.display].name
            : QString()};
    words << side(spanOf(pane.rect, CutLines::vertical), Texts::tr("left"), Texts::tr("right"))
          << side(spanOf(pane.rect, CutLines::horizontal), Texts::tr("top"), Texts::tr("bottom"));
    words.removeAll(QString());
    words << Texts::tr("%1 by %2 percent")
                 .arg(percentNumber(pane.rect.w), percentNumber(pane.rect.h));
    return words.join(u", "_s);
}

} // namespace corvane::LayoutPictureAccess

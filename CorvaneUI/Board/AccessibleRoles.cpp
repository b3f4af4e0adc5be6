#include "AccessibleRoles.h"

#include "BoardLink.h"

#include <QtWidgets/QAccessibleWidget>

namespace corvane::AccessibleRoles {

using namespace Qt::StringLiterals;

namespace {

class Container final : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::Role role() const override
    {
        const bool isGroup = !widget()->isWindow() && !widget()->accessibleName().isEmpty();
        return isGroup ? QAccessible::Grouping : QAccessibleWidget::role();
    }
};

class Link final : public QAccessibleWidget
{
public:
    explicit Link(BoardLink &link)
        : QAccessibleWidget(&link, QAccessible::Link, link.text()), m_link(link)
    {
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction())
            m_link.animateClick();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    BoardLink &m_link;
};

/// Asked for the widget's class, then for those that it derives from.
QAccessibleInterface *make(const QString &className, QObject *object)
{
    if (auto *link = qobject_cast<BoardLink *>(object))
        return new Link(*link);
    return className == "QWidget"_L1 ? new Container(static_cast<QWidget *>(object)) : nullptr;
}

} // namespace

void install()
{
    QAccessible::installFactory(make);
}

} // namespace corvane::AccessibleRoles

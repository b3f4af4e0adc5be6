#pragma once

#include "SettingsPane.h"

#include <QtCore/QMargins>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QVBoxLayout>

namespace corvane {

class Card;
class PaneHead;

/// What all panes of the settings window have: a head, and content below it, which scrolls.
class SettingsPage : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsPage(SettingsPane pane, QWidget *parent = nullptr);

    /// The room at the sides of what stands in the window's page. To the right is a scroll bar's, too.
    [[nodiscard]] static QMargins sides();
    /// Takes everything out of a layout, at once to the eye.
    static void empty(QLayout &layout);

    [[nodiscard]] PaneHead &head() { return *m_head; }
    [[nodiscard]] virtual QScrollArea *scrolled() { return m_scrolled; }

protected:
    /// From then on, content is added to this layout, which scrolls.
    QVBoxLayout &scrolledContent();
    /// A section of the scrolled content: its label, if it has one, and an empty card.
    Card &addSection(const QString &label);
    /// Below the scrolled content.
    void addFoot(QWidget *foot);
    /// Below the head, as it is.
    void addContent(QWidget *content);

private:
    void addWithSides(QWidget *widget);

    PaneHead *m_head;
    QScrollArea *m_scrolled = nullptr;
    QVBoxLayout *m_content = nullptr;
};

} // namespace corvane

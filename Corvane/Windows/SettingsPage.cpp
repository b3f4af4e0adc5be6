#include "SettingsPage.h"

#include "Board.h"
#include "BoardText.h"
#include "Card.h"
#include "PaneHead.h"
#include "ScrollFade.h"

#include <QtWidgets/QScrollBar>

namespace corvane {

SettingsPage::SettingsPage(SettingsPane pane, QWidget *parent)
    : QWidget(parent), m_head(new PaneHead(int(pane) + 1, int(settingsPanes.size()), title(pane)))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    addWithSides(m_head);
}

QMargins SettingsPage::sides()
{
    return {Board::length(32), 0, Board::length(32), 0};
}

void SettingsPage::addWithSides(QWidget *widget)
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(sides());
    row->addWidget(widget);
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void SettingsPage::empty(QLayout &layout)
{
    while (QLayoutItem *item = layout.takeAt(0)) {
        if (QWidget *widget = item->widget()) {
            widget->hide();
            widget->deleteLater();
        }
        delete item;
    }
}

QVBoxLayout &SettingsPage::scrolledContent()
{
    if (m_content)
        return *m_content;
    m_scrolled = new QScrollArea;
    m_scrolled->setWidgetResizable(true);
    m_scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrolled->setFocusPolicy(Qt::NoFocus);
    auto *content = new QWidget;
    m_content = new QVBoxLayout(content);
    const int bar = m_scrolled->verticalScrollBar()->sizeHint().width();
    m_content->setContentsMargins(
        sides() + Board::margins(0, Board::length(20), -bar, Board::length(24)));
    m_scrolled->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_content->setSpacing(0);
    m_scrolled->setWidget(content);
    m_scrolled->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    new ScrollFade(*m_scrolled);
    layout()->addWidget(m_scrolled);
    return *m_content;
}

Card &SettingsPage::addSection(const QString &label)
{
    QVBoxLayout &content = scrolledContent();
    if (content.count() > 0)
        content.addSpacing(Board::length(20));
    if (!label.isEmpty()) {
        content.addWidget(new BoardText(label, Board::Type::label, &Board::Palette::faint));
        content.addSpacing(Board::length(8));
    }
    auto *card = new Card;
    card->setAccessibleName(label);
    content.addWidget(card);
    return *card;
}

void SettingsPage::addFoot(QWidget *foot)
{
    addWithSides(foot);
}

void SettingsPage::addContent(QWidget *content)
{
    static_cast<QVBoxLayout *>(layout())->addWidget(content, 1);
}

} // namespace corvane

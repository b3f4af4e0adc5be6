#include "NoticeStrip.h"

#include "BoardStyle.h"
#include "BoardText.h"
#include "Buttons.h"
#include "DevicePixels.h"
#include "KeySentence.h"
#include "Platform.h"
#include "Symbol.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

namespace corvane {

using namespace Qt::StringLiterals;

NoticeStrip::NoticeStrip(
    Notice notice, std::function<void()> dismiss, std::function<void()> accept, QWidget *parent)
    : QWidget(parent)
    , m_notice(std::move(notice))
    , m_close(symbolButton(u"xmark"_s, &Board::Palette::muted, tr("Dismiss")))
{
    setAccessibleName(KeySentence::spoken(m_notice.text));
    auto *row = new QHBoxLayout(this);
    const int margin = Board::length(12);
    row->setContentsMargins(
        Board::margins(margin + Board::length(28), Board::length(8), margin, Board::length(8)));
    row->setSpacing(Board::length(8));
    row->addWidget(new KeySentence(m_notice.text, Board::Type::secondary), 1);
    if (m_notice.reveal) {
        auto *show = new QPushButton(tr("Show in Finder"));
        connect(show, &QPushButton::clicked, this,
            [this] { Platform::current().session().reveal(*m_notice.reveal); });
        row->addWidget(show);
    }
    if (const QString title = m_notice.offerTitle(); !title.isEmpty())
        row->addWidget(pushButton(title, this, std::move(accept)));
    connect(m_close, &QToolButton::clicked, this, std::move(dismiss));
    row->addWidget(m_close);
}

void NoticeStrip::paintEvent(QPaintEvent *)
{
    const Board::Palette &palette = BoardStyle::shared().colors();
    QPainter painter(this);
    drawField(painter, rect(), Board::length(10), palette.raised, palette.attention);
    const int side = Board::length(16);
    const QRect triangle(Board::length(14), (height() - side) / 2, side, side);
    Symbol::paint(painter, QStyle::visualRect(layoutDirection(), rect(), triangle),
        u"exclamationmark.triangle"_s, {palette.attention});
}

} // namespace corvane

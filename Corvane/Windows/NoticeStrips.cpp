#include "NoticeStrips.h"

#include "Board.h"
#include "NoticeStrip.h"
#include "SettingsPage.h"

#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace corvane {

NoticeStrips::NoticeStrips(QWidget *parent) : QScrollArea(parent)
{
    auto *content = new QWidget;
    auto *strips = new QVBoxLayout(content);
    strips->setContentsMargins(SettingsPage::sides() + QMargins(0, 0, 0, Board::length(16)));
    strips->setSpacing(Board::length(8));
    setWidget(content);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

void NoticeStrips::show(const QList<Notice> &notices)
{
    QLayout &strips = *widget()->layout();
    SettingsPage::empty(strips);
    for (const Notice &notice : notices) {
        auto *strip = new NoticeStrip(
            notice, [this, id = notice.id] { Q_EMIT dismissed(id); },
            [this, offer = notice.offer] { Q_EMIT accepted(offer); });
        strips.addWidget(strip);
        strip->setVisible(true); // the focus may go to it at once
    }
    setVisible(!notices.isEmpty());
    updateGeometry();
}

void NoticeStrips::bound(int height)
{
    m_bound = height;
    updateGeometry();
}

bool NoticeStrips::takeFocus()
{
    for (NoticeStrip *strip : widget()->findChildren<NoticeStrip *>()) {
        if (strip->isHidden())
            continue;
        strip->close().setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

int NoticeStrips::heightForWidth(int width) const
{
    return std::min(std::max(0, widget()->layout()->heightForWidth(width)), m_bound);
}

QSize NoticeStrips::sizeHint() const
{
    return {0, heightForWidth(width())};
}

} // namespace corvane

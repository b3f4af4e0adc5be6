#pragma once

#include "Notices.h"

#include <QtWidgets/QScrollArea>

namespace corvane {

/// All notices, the oldest first, at the top of a window. They scroll where they would take too much of it.
class NoticeStrips final : public QScrollArea
{
    Q_OBJECT

public:
    explicit NoticeStrips(QWidget *parent = nullptr);

    void show(const QList<Notice> &notices);
    /// At most so high.
    void bound(int height);
    /// Gives the focus to the button that dismisses the oldest one. Whether there is one.
    bool takeFocus();

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void dismissed(const QString &id);
    /// The user wants what a notice offers.
    void accepted(corvane::Notice::Offer offer);

private:
    int m_bound = 0;
};

} // namespace corvane

#pragma once

#include "Notices.h"

#include <QtWidgets/QWidget>

#include <functional>

class QToolButton;

namespace corvane {

/// One notice, in a strip at the top of a window.
class NoticeStrip final : public QWidget
{
    Q_OBJECT

public:
    NoticeStrip(Notice notice, std::function<void()> dismiss, std::function<void()> accept,
        QWidget *parent = nullptr);

    [[nodiscard]] const Notice &notice() const { return m_notice; }
    /// The button that dismisses it.
    [[nodiscard]] QToolButton &close() { return *m_close; }

protected:
    void paintEvent(QPaintEvent *) override;

private:
    Notice m_notice;
    QToolButton *m_close;
};

} // namespace corvane

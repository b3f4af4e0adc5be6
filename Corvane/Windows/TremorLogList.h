#pragma once

#include "TremorLogModel.h"

#include <QtWidgets/QListView>

namespace corvane {

/// The entries, whose rows end where the page's other content does, before the scroll bar.
class TremorLogList final : public QListView
{
    Q_OBJECT

public:
    explicit TremorLogList(TremorLogModel &log);

    /// The current entry, if there is one.
    [[nodiscard]] const ActivityEntry *current() const;

public Q_SLOTS:
    /// Copies the current entry as a line of text. The Edit menu calls it by this name.
    void copy() const;

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    TremorLogModel &m_log;
};

} // namespace corvane

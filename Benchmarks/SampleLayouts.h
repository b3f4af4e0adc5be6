#pragma once

#include "VirtualDesktop.h"
#include "WindowLayout.h"

namespace corvane::bench {

/// Layouts of twelve panes for two displays.
[[nodiscard]] QList<WindowLayout> sampleLayouts(int count);

/// Sample layouts on the disk of a desktop's user, for as long as the object lives.
class StoredLayouts
{
public:
    StoredLayouts(const desktop::PrivateSession &session, int count);
    ~StoredLayouts();
    Q_DISABLE_COPY_MOVE(StoredLayouts)

    [[nodiscard]] bool areWritten() const { return m_areWritten; }

private:
    QString m_path;
    bool m_areWritten = false;
};

} // namespace corvane::bench

#pragma once

#include "Hand.h"
#include "KWinScripts.h"

namespace corvane::desktop {

/// The hand on KWin, by scripts that run once. All displays have the size of the first.
class KWinHand final : public Hand
{
public:
    explicit KWinHand(PrivateSession &session) : m_session(session), m_scripts(session) { }

    /// Whether KWin runs scripts by now.
    [[nodiscard]] bool isThere() { return m_scripts.isThere(); }

    QList<SeenWindow> windows() override;
    void activate(quint32 window) override;
    void close(quint32 window) override;
    void setMinimized(quint32 window, bool isMinimized) override;
    void setMaximized(quint32 window, bool isMaximized) override;
    void setFullScreen(quint32 window, bool isFullScreen) override;
    void tile(quint32 window) override;
    void moveElsewhere(quint32 window) override;
    void place(quint32 window, const Rect &frame) override;

    [[nodiscard]] bool arrange(const QList<Rect> &displays) override;
    [[nodiscard]] bool setScale(int display, double scale) override;
    [[nodiscard]] QList<Rect> displays() override;

private:
    void change(quint32 window, const QString &statements);
    [[nodiscard]] bool configure(const QStringList &changes);

    PrivateSession &m_session;
    KWinScripts m_scripts;
    QStringList m_ids; ///< of all windows ever seen, in the order of their numbers
};

} // namespace corvane::desktop

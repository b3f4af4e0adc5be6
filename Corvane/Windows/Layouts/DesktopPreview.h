#pragma once

#include "AppModel.h"
#include "ScreenInfo.h"

#include <QtCore/QTimer>

#include <memory>
#include <vector>

class QAbstractButton;
class QKeyEvent;
class QShortcut;
class QWidget;

namespace corvane {

class LayoutPicture;
class PaneOverlay;

/// Where applying a layout puts the window of a pane, in accessibility coordinates.
struct PanePlace {
    Pane pane;
    Rect frame;

    bool operator==(const PanePlace &) const = default;
};

/// The panes whose displays are connected, in their order.
[[nodiscard]] QList<PanePlace> placesOf(
    const WindowLayout &layout, const QList<ScreenInfo> &connected, double gap);

/// Shows the panes of the picture's layout over the real displays while Space is held in the picture or
/// the list, or while the button is on. It ends with Esc, and when the user turns to something else.
class DesktopPreview final : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the picture. `button` can be checked; it is enabled while there is something to show.
    DesktopPreview(AppModel &model, LayoutPicture &picture, QWidget &list, QAbstractButton &button);
    ~DesktopPreview() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Request { none, key, button };

    bool heedKey(const QKeyEvent &event);
    void show(Request request);
    void end();
    /// Has what is shown be what the picture and the desk are now.
    void follow();
    void draw();

    AppModel &m_model;
    LayoutPicture &m_picture;
    QAbstractButton &m_button;
    QShortcut *m_escape;
    Request m_request = Request::none;
    WindowLayout m_layout; ///< the picture's
    QList<PanePlace> m_places; ///< of it
    QTimer m_releasing; ///< from the release of the key to the end
    std::vector<std::unique_ptr<PaneOverlay>> m_overlays;
};

} // namespace corvane

#pragma once

#include "AppModel.h"
#include "LayoutDrawing.h"

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

class QLineEdit;

namespace corvane {

/// A layout as a picture of the desk: its panes are chosen, and their edges moved, by mouse and keys.
/// It changes the layout through the model, one step that can be undone for each gesture.
class LayoutPicture final : public QWidget
{
    Q_OBJECT

public:
    explicit LayoutPicture(AppModel &model, QWidget *parent = nullptr);

    /// Shows this layout of the model's from now on, with its first pane current.
    void setLayout(const QUuid &id);
    [[nodiscard]] std::optional<Pane> currentPane() const;
    /// That of the current pane, or one without panes.
    [[nodiscard]] int currentDisplay() const { return m_spot.display; }
    [[nodiscard]] std::optional<PaneEdge> currentEdge() const { return m_focused; }
    void setCurrentPane(const QUuid &id);
    void setCurrentEdge(const PaneEdge &edge);
    /// The layout as it is shown: during a gesture, not yet what the model has.
    [[nodiscard]] const WindowLayout &shown() const;
    [[nodiscard]] const LayoutScene &scene() const { return m_scene; }
    [[nodiscard]] bool isDragging() const { return m_isDragged; }
    /// Whether an edge is being moved, be it by the mouse or by keys.
    [[nodiscard]] bool hasGesture() const { return m_drag.has_value(); }
    /// Ends a gesture as if the user had.
    void finish();
    /// Changes the layout as one step, after whatever gesture is under way.
    void edit(const QString &undoTitle, const std::function<void(WindowLayout &layout)> &change);

    /// Puts these results on the panes; none clears them. While the apply that they are of is under
    /// way, the other panes are marked as waiting.
    void setResults(const QList<PaneResult> &results, bool isUnderWay = false);
    [[nodiscard]] const QHash<QUuid, PaneStatus> &results() const { return m_results; }
    /// Shows which pane would grow if the current one were removed.
    void showRemoval(bool isShown);

    /// Whether both halves would be large enough.
    [[nodiscard]] bool canSplit(CutLines cut) const;
    void split(CutLines cut);
    void remove();
    void merge(Qt::ArrowType direction);
    void swap(Qt::ArrowType direction);
    /// To a fraction of its display, or as near as its panes allow.
    void moveEdge(const PaneEdge &edge, double to);
    /// Gives the current display, which has none, a pane that covers it.
    void addPane();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    void currentPaneChanged();
    /// Another layout, or other panes in it, be it in the middle of a gesture.
    void shownChanged();
    /// The user wants an application for the current pane.
    void appAsked();
    /// The user wants to type the size of this column or row of the current display.
    void bandAsked(corvane::CutLines cut, int index);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void follow();
    void arrange();
    void refresh();
    [[nodiscard]] LayoutView view() const;
    [[nodiscard]] QRectF room() const;
    void setSpot(const Spot &spot);
    [[nodiscard]] Spot firstSpot() const;
    [[nodiscard]] std::optional<Spot> spotAt(const QPointF &point) const;
    [[nodiscard]] std::optional<PaneEdge> edgeAt(const QPointF &point) const;
    /// The edge on this side of the current pane, unless it is the display's own.
    [[nodiscard]] std::optional<PaneEdge> edgeBeside(Qt::ArrowType side) const;
    [[nodiscard]] double fractionAt(const PaneEdge &edge, const QPointF &point) const;
    [[nodiscard]] std::optional<WindowLayout> withoutCurrent(QUuid *grower) const;
    [[nodiscard]] bool pressArrow(Qt::ArrowType arrow, Qt::KeyboardModifiers modifiers);
    [[nodiscard]] bool pressEdgeKey(const QKeyEvent &event);
    [[nodiscard]] bool pressPaneKey(const QKeyEvent &event);
    void leaveEdge();
    void openPercent(const QString &text);
    void takePercent();
    void commit(const WindowLayout &layout, const QString &undoTitle);
    void cancel();
    void tellFocus();

    AppModel &m_model;
    QUuid m_id;
    WindowLayout m_layout; ///< the model's, as it was told last
    LayoutScene m_scene;
    Spot m_spot; ///< the current one
    QHash<QUuid, PaneStatus> m_results;
    bool m_isUnderWay = false; ///< the apply that they are of
    std::optional<PaneEdge> m_hovered;
    std::optional<PaneEdge> m_focused; ///< the edge that the keys move
    std::optional<EdgeDrag> m_drag; ///< a gesture under way
    bool m_isDragged = false; ///< by the mouse
    bool m_showsRemoval = false;
    QTimer m_settling; ///< from the last key to the end of a gesture by keys
    QList<DrawnPart> m_parts; ///< as they are on the screen, or will be at the next painting
    QLineEdit *m_percent; ///< for the size before the edge
};

} // namespace corvane

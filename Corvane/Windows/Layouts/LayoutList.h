#pragma once

#include "AppModel.h"
#include "BoardText.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>

namespace corvane {

/// Whether a layout's displays are connected now, in words.
struct LayoutState {
    enum class Kind {
        noDisplays,
        matches,
        missing, ///< some or all of its displays
        other, ///< all are there, and further ones
    };

    Kind kind = Kind::noDisplays;
    QString text;

    [[nodiscard]] static LayoutState of(
        const WindowLayout &layout, const QList<DisplayKey> &connected);
    /// What stands before the text; empty where nothing does.
    [[nodiscard]] QString symbol() const;
    [[nodiscard]] BoardText::Tone tone() const;
};

/// The saved layouts, in the order of the menu. They are renamed in place, and moved by the mouse or
/// by Alt and arrows.
class LayoutList final : public QListView
{
    Q_OBJECT

public:
    explicit LayoutList(AppModel &model, QWidget *parent = nullptr);

    [[nodiscard]] QUuid current() const;
    void setCurrent(const QUuid &id);
    void rename(const QUuid &id);
    /// What can be done with the current layout.
    [[nodiscard]] QMenu *actionMenu() { return &m_menu; }

Q_SIGNALS:
    void currentLayoutChanged();
    void deleted(const QString &name);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void fillMenu();
    void follow();
    void move(int by);
    void remove();
    [[nodiscard]] QModelIndex indexOf(const QUuid &id) const;

    AppModel &m_model;
    QStandardItemModel m_rows;
    QMenu m_menu;
    bool m_isFollowing = false;
};

} // namespace corvane

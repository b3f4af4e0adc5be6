#pragma once

#include "LayoutPicture.h"
#include "PaneCure.h"

#include <functional>

class QPushButton;

namespace corvane {

class BoardText;
class Card;
class ReportRow;

/// What became of each pane of a layout that was applied, in place of the cards, with what helps.
/// While the apply is under way, the picture shows how far it has come.
///
/// It is about the layout as it was applied: an edit ends it, save for those that it makes itself. It
/// shows whatever began the apply, be it a key while no window was open: whoever opens the layout
/// afterwards finds it, until it is closed or the window is.
class ApplyReport final : public QWidget
{
    Q_OBJECT

public:
    /// The picture outlives the report.
    ApplyReport(AppModel &model, LayoutPicture &picture,
        std::function<void(const WindowLayout &)> apply, QWidget *parent = nullptr);

    void setLayout(const QUuid &id);
    [[nodiscard]] bool isShown() const { return m_shown.has_value(); }
    /// Gives its head the focus.
    void turnTo();
    /// The user has seen it.
    void end();

Q_SIGNALS:
    void shownChanged();
    /// It is going away, with the focus in it.
    void left();
    /// The user wants another title for the picture's current pane.
    void titleAsked();

private:
    void addHead();
    void addBanner();
    void follow();
    void show(const AppModel::LastApply &apply, const WindowLayout &layout);
    void leave();
    [[nodiscard]] QString headText(const AppModel::LastApply &apply) const;
    void addRow(const PaneResult &result, bool isFolded);
    void addFold(const QList<PaneResult> &results);
    void showTrust();
    void showCurrent();
    void showBadges();
    void apply();
    void cure(ReportRow &row);
    void change(ReportRow &row, const QString &undoTitle,
        const std::function<void(WindowLayout &layout, Pane &pane)> &change);
    void askForDisplay(ReportRow &row);
    void openWindow(ReportRow &row);
    /// Whether the layout differs from what the report is about only by the cure under way.
    [[nodiscard]] bool takesCure(const WindowLayout &layout);
    void settle(ReportRow &row, const QString &sentence);

    AppModel &m_model;
    LayoutPicture &m_picture;
    std::function<void(const WindowLayout &)> m_apply;
    QUuid m_id;
    std::optional<AppModel::LastApply> m_shown;
    WindowLayout m_about; ///< with what was cured since
    QUuid m_curing; ///< the pane that an edit is awaited of
    QSet<QUuid> m_cured;
    QList<ReportRow *> m_rows;
    BoardText *m_head = nullptr;
    QPushButton *m_again = nullptr;
    QWidget *m_banner = nullptr;
    Card *m_card = nullptr;
};

} // namespace corvane

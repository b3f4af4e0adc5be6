#pragma once

#include "AppModel.h"
#include "SettingsPage.h"
#include "TremorLogModel.h"

namespace corvane {

class SearchField;
class Segments;
class TremorLogList;

/// Every move and refusal of the last thirty days.
class TremorLogPane final : public SettingsPage
{
    Q_OBJECT

public:
    explicit TremorLogPane(AppModel &model, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    [[nodiscard]] QWidget *bar();
    void show();
    void filter();

    AppModel &m_model;
    TremorLogModel m_log;
    QWidget *m_bar = nullptr;
    Segments *m_kinds = nullptr;
    SearchField *m_filter = nullptr;
    TremorLogList *m_list = nullptr;
    QWidget *m_empty = nullptr; ///< in place of the list
};

} // namespace corvane

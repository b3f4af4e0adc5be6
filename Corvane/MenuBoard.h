#pragma once

#include "AppModel.h"
#include "StatusItem.h"

namespace corvane {

/// The status item with its menus, and the main menu, each as the model is when it opens.
class MenuBoard final : public QObject
{
    Q_OBJECT

public:
    explicit MenuBoard(AppModel &model) : m_model(model) { }

    void start() { m_item.setVisible(true); }
    void rebuild() {}
    void popUp() { m_item.popUp(); }

private:
    AppModel &m_model;
    StatusItem m_item;
};

} // namespace corvane

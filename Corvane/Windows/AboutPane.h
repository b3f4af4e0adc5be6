#pragma once

#include "AppModel.h"
#include "SettingsPage.h"

namespace corvane {

/// The product, what leaves the computer, and updates.
class AboutPane final : public SettingsPage
{
    Q_OBJECT

public:
    explicit AboutPane(AppModel &model, QWidget *parent = nullptr);

private:
    void addProduct();
    void addData();
    void addUpdates();
    void showUpdates();

    AppModel &m_model;
    Card *m_updates = nullptr;
};

} // namespace corvane

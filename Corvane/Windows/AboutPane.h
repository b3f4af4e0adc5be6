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
    void showUpdates();
    void takeFocus();
    void addUpdateStatus();
    void addAutomaticChecks();
    /// For a copy that others update.
    void addKeeper(const QString &sentence, const QString &explanation, QWidget *control = nullptr);
    void addPackage();

    AppModel &m_model;
    Card *m_updates = nullptr;
};

} // namespace corvane

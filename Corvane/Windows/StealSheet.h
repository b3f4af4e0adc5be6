#pragma once

#include "AppModel.h"
#include "Sheet.h"

namespace corvane {

/// Asks whether a shortcut is to move from the one that holds it to the one that is to get it.
class StealSheet final : public Sheet
{
    Q_OBJECT

public:
    /// For the model's pending conflict.
    StealSheet(AppModel &model, const ShortcutSteal &steal, QWidget *window);

private:
    AppModel &m_model;
};

} // namespace corvane

#pragma once

#include <QtWidgets/QLineEdit>

namespace corvane {

/// A field whose words narrow a list down; it has a button that clears it.
class SearchField final : public QLineEdit
{
    Q_OBJECT

public:
    /// What it says while it is empty is its name, too.
    explicit SearchField(const QString &placeholder, QWidget *parent = nullptr);

    void setPlaceholder(const QString &placeholder);
};

} // namespace corvane

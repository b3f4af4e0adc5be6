#pragma once

#include <QtCore/QObject>

namespace corvane {

/// Decides whether task bar and switcher list the program's windows, those that are open now and those
/// to come.
class DockPresence final : public QObject
{
    Q_OBJECT

public:
    DockPresence();

    /// A regular program has its windows listed.
    void setRegular(bool isRegular);

private:
    bool eventFilter(QObject *object, QEvent *event) override;

    bool m_isRegular = true;
};

} // namespace corvane

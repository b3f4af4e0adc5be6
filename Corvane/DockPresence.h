#pragma once

#include <QtCore/QObject>

namespace corvane {

/// Whether task bar and switcher list the program's windows, those open now and those to come.
class DockPresence final : public QObject
{
    Q_OBJECT

public:
    DockPresence();

    [[nodiscard]] bool isRegular() const { return m_isRegular; }
    void set(bool isRegular);

private:
    bool eventFilter(QObject *object, QEvent *event) override;

    bool m_isRegular = true;
};

} // namespace corvane

#pragma once

#include <QtCore/QObject>

namespace corvane {

/// Has the program quit as by its menu when the system asks it to end: at the end of the session, or from
/// a terminal. Who asks twice ends it at once. One object at a time.
class TerminationSignals final : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;
};

} // namespace corvane

#pragma once

#include "FileDescriptor.h"

namespace corvane {

/// Has the program start again in a Wayland session whose compositor went away and came back: a program
/// loses its windows with it, and Qt ends it at once. A process of almost nothing waits for that.
class Successor final
{
public:
    /// To be called while the program is small, since a copy of it is what waits. `backEnd`: what CORVANE_BACKEND is to say for the next one.
    explicit Successor(const QByteArray &backEnd);
    /// The program ends for another reason, and no other one comes.
    ~Successor();
    Q_DISABLE_COPY_MOVE(Successor)

    /// Whether this program was started in that way.
    [[nodiscard]] static bool isOne();

private:
    FileDescriptor m_life; ///< closed by the system when the program is gone, however it ends
};

} // namespace corvane

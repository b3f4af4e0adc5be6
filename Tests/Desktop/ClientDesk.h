#pragma once

#include "WindowRequest.h"

#include <chrono>

namespace corvane::desktop {

/// The test client's end of a desktop: the windows that it has there.
class ClientDesk
{
public:
    using Time = std::chrono::steady_clock::time_point;

    virtual ~ClientDesk() = default;

    [[nodiscard]] virtual bool isValid() const = 0;
    /// Readable when there are events.
    [[nodiscard]] virtual int file() const = 0;
    /// Takes what the desktop has told, and does what is due. Never waits.
    virtual void work(Time now) = 0;
    /// Whether nothing becomes due by itself.
    [[nodiscard]] virtual bool isIdle() const = 0;

    /// The number of the new window.
    [[nodiscard]] virtual quint32 show(const WindowRequest &request) = 0;
    /// Of the window that has been there longest; 0 when there is none.
    [[nodiscard]] virtual quint32 oldest() const = 0;
    /// Returns once the desktop knows.
    virtual void destroy(quint32 window) = 0;
    /// Has the window say that it belongs to this application.
    virtual void rename(quint32 window, const QByteArray &application) = 0;
};

} // namespace corvane::desktop

#pragma once

#include "Connection.h"
#include "FreedesktopSession.h"

namespace corvane::x11 {

class X11Session final : public freedesktop::FreedesktopSession
{
    Q_OBJECT

public:
    explicit X11Session(Connection &connection) : m_connection(connection) { }

    bool isPointerButtonDown() override;
    SystemFacts systemFacts() override;

private:
    Connection &m_connection;
};

} // namespace corvane::x11

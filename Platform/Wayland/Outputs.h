#pragma once

#include "Connection.h"
#include "Rect.h"

#include <map>
#include <memory>

struct zxdg_output_manager_v1;

namespace corvane::wayland {

/// One output, as the compositor tells every client of it.
struct OutputInfo {
    Rect frame; ///< in the compositor's global space: logical pixels
    QString name; ///< of its connector, such as "DP-1"
    QString model; ///< of the monitor; empty where it is unknown

    bool operator==(const OutputInfo &) const = default;
};

/// The outputs of the session (wl_output, and xdg_output_unstable_v1 for their place).
class Outputs final : public QObject
{
    Q_OBJECT

public:
    explicit Outputs(Connection &connection);
    ~Outputs() override;

    /// From the left to the right, then from the top down; the one at the origin first.
    [[nodiscard]] QList<OutputInfo> all() const;

    struct Output;

Q_SIGNALS:
    void changed();

private:
    void add(quint32 global, quint32 version);
    void describe(Output &output);

    Connection &m_connection;
    std::map<quint32, std::unique_ptr<Output>> m_outputs; ///< by the name of their global
    zxdg_output_manager_v1 *m_manager = nullptr;
};

} // namespace corvane::wayland

#include "Outputs.h"

#include "xdg-output-unstable-v1-client-protocol.h"

#include <algorithm>
#include <wayland-client-protocol.h>

namespace corvane::wayland {

using namespace Qt::StringLiterals;

struct Outputs::Output {
    ~Output()
    {
        if (description)
            zxdg_output_v1_destroy(description);
        wl_output_get_version(output) >= WL_OUTPUT_RELEASE_SINCE_VERSION
            ? wl_output_release(output)
            : wl_output_destroy(output);
    }

    Outputs *outputs = nullptr;
    wl_output *output = nullptr;
    zxdg_output_v1 *description = nullptr;
    OutputInfo told; ///< so far, until the compositor says that it is done
    OutputInfo info;
    bool isComplete = false;
};

namespace {

Outputs::Output &outputOf(void *data)
{
    return *static_cast<Outputs::Output *>(data);
}

/// Compositors name what they know nothing of, each in its own way.
QString modelOf(const char *text)
{
    const QString model = QString::fromUtf8(text).trimmed();
    const QStringList unknown{u"unknown"_s, u"headless"_s, u"none"_s, u"n/a"_s};
    const bool isVirtual = model.contains("virtual"_L1, Qt::CaseInsensitive)
        || model.startsWith("wayland"_L1, Qt::CaseInsensitive);
    return isVirtual || unknown.contains(model, Qt::CaseInsensitive) ? QString() : model;
}

constexpr wl_output_listener outputListener{
    .geometry =
        [](void *data, wl_output *, int32_t x, int32_t y, int32_t, int32_t, int32_t, const char *,
            const char *model, int32_t) {
            OutputInfo &told = outputOf(data).told;
            told.model = modelOf(model);
            // Until xdg_output tells better.
            told.frame.x = x;
            told.frame.y = y;
        },
    .mode = [](void *, wl_output *, uint32_t, int32_t, int32_t, int32_t) {},
    .done =
        [](void *data, wl_output *) {
            Outputs::Output &output = outputOf(data);
            output.isComplete = true;
            if (std::exchange(output.info, output.told) != output.told)
                Q_EMIT output.outputs->changed();
        },
    .scale = [](void *, wl_output *, int32_t) {},
    .name = [](void *data, wl_output *,
                const char *name) { outputOf(data).told.name = QString::fromUtf8(name); },
    .description = [](void *, wl_output *, const char *) {},
};

constexpr zxdg_output_v1_listener descriptionListener{
    .logical_position =
        [](void *data, zxdg_output_v1 *, int32_t x, int32_t y) {
            outputOf(data).told.frame.x = x;
            outputOf(data).told.frame.y = y;
        },
    .logical_size =
        [](void *data, zxdg_output_v1 *, int32_t width, int32_t height) {
            outputOf(data).told.frame.width = width;
            outputOf(data).told.frame.height = height;
        },
    .done = [](void *, zxdg_output_v1 *) {},
    .name = [](void *data, zxdg_output_v1 *,
                const char *name) { outputOf(data).told.name = QString::fromUtf8(name); },
    .description = [](void *, zxdg_output_v1 *, const char *) {},
};

} // namespace

Outputs::Outputs(Connection &connection) : m_connection(connection)
{
    connect(&connection, &Connection::globalAppeared, this,
        [this](quint32 name, const QByteArray &interface, quint32 version) {
            if (interface == wl_output_interface.name)
                return add(name, version);
            if (interface != zxdg_output_manager_v1_interface.name)
                return;
            m_manager =
                static_cast<zxdg_output_manager_v1 *>(wl_registry_bind(m_connection.registry(),
                    name, &zxdg_output_manager_v1_interface, std::min(version, 3u)));
            for (const auto &[global, output] : m_outputs)
                describe(*output);
        });
    connect(&connection, &Connection::globalVanished, this, [this](quint32 name) {
        if (m_outputs.erase(name) > 0)
            Q_EMIT changed();
    });
}

Outputs::~Outputs()
{
    m_outputs.clear();
    if (m_manager)
        zxdg_output_manager_v1_destroy(m_manager);
}

QList<OutputInfo> Outputs::all() const
{
    QList<OutputInfo> all;
    for (const auto &[global, output] : m_outputs) {
        if (output->isComplete && output->info.frame.width > 0)
            all << output->info;
    }
    std::ranges::stable_sort(all, {}, [](const OutputInfo &output) {
        const Rect &frame = output.frame;
        return std::tuple(frame.x != 0 || frame.y != 0, frame.x, frame.y);
    });
    return all;
}

void Outputs::add(quint32 global, quint32 version)
{
    auto output = std::make_unique<Output>();
    output->outputs = this;
    output->output = static_cast<wl_output *>(wl_registry_bind(
        m_connection.registry(), global, &wl_output_interface, std::min(version, 4u)));
    wl_output_add_listener(output->output, &outputListener, output.get());
    describe(*output);
    m_outputs[global] = std::move(output);
}

void Outputs::describe(Output &output)
{
    if (!m_manager || output.description)
        return;
    output.description = zxdg_output_manager_v1_get_xdg_output(m_manager, output.output);
    zxdg_output_v1_add_listener(output.description, &descriptionListener, &output);
}

} // namespace corvane::wayland

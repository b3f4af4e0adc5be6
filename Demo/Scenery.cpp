#include "Scenery.h"

#include "ProtocolTables.h"
#include "Waiting.h"

#include <sys/mman.h>
#include <unistd.h>

namespace corvane::demo {

using namespace desktop;
using namespace desktop::protocol;

namespace {
enum Anchor : uint32_t { atTop = 1, atLeft = 4, atRight = 8 };
} // namespace

Scenery::~Scenery()
{
    for (const auto &each : m_surfaces) {
        wl_proxy_marshal(each->layerSurface, LayerSurface::destroy);
        wl_proxy_destroy(each->layerSurface);
    }
}

bool Scenery::showBackground(qsizetype display, const QImage &picture)
{
    if (!has(display))
        return false;
    constexpr int behindPanels = -1;
    Surface &surface = create(display, picture, LayerSurface::background);
    wl_proxy_marshal(
        surface.layerSurface, LayerSurface::setSize, picture.width(), picture.height());
    wl_proxy_marshal(surface.layerSurface, LayerSurface::setAnchor, atTop | atLeft);
    wl_proxy_marshal(surface.layerSurface, LayerSurface::setExclusiveZone, behindPanels);
    return show(surface);
}

bool Scenery::showPanel(qsizetype display, const QImage &picture)
{
    if (!has(display))
        return false;
    Surface &surface = create(display, picture, LayerSurface::top);
    wl_proxy_marshal(surface.layerSurface, LayerSurface::setSize, 0, picture.height());
    wl_proxy_marshal(surface.layerSurface, LayerSurface::setAnchor, atTop | atLeft | atRight);
    wl_proxy_marshal(surface.layerSurface, LayerSurface::setExclusiveZone, picture.height());
    return show(surface);
}

Scenery::Surface &Scenery::create(qsizetype display, const QImage &picture, uint32_t layer)
{
    struct Listener {
        void (*configure)(void *, wl_proxy *, uint32_t, uint32_t, uint32_t);
        void (*closed)(void *, wl_proxy *);
    };
    static constexpr Listener listener{
        [](void *data, wl_proxy *, uint32_t serial, uint32_t, uint32_t) {
            static_cast<Surface *>(data)->serial = serial;
        },
        [](void *, wl_proxy *) {}};
    Owned<wl_surface> own(wl_compositor_create_surface(m_globals.compositor));
    wl_proxy *const layered = wl_proxy_marshal_constructor(m_globals.layers, LayerSurface::createIn,
        &layerSurface, nullptr, own.get(), m_globals.outputs[display].output, layer, "scenery");
    m_surfaces.push_back(std::make_unique<Surface>(
        picture.convertToFormat(QImage::Format_RGB32), std::move(own), layered));
    wl_proxy_add_listener(layered, reinterpret_cast<void (**)()>(const_cast<Listener *>(&listener)),
        m_surfaces.back().get());
    return *m_surfaces.back();
}

bool Scenery::show(Surface &surface)
{
    wl_surface_commit(surface.surface.get());
    const bool isTaken = waitUntil([&] {
        m_connection.sync();
        return surface.serial != 0 || !m_connection.isValid();
    });
    if (isTaken && m_connection.isValid()) {
        wl_proxy_marshal(surface.layerSurface, LayerSurface::acknowledge, surface.serial);
        draw(surface);
    }
    return isTaken && m_connection.isValid();
}

void Scenery::draw(const Surface &surface)
{
    const QImage &picture = surface.picture;
    const auto bytes = static_cast<int32_t>(picture.sizeInBytes());
    const int file = ::memfd_create("picture", MFD_CLOEXEC);
    if (::write(file, picture.constBits(), static_cast<size_t>(bytes)) == bytes) {
        wl_shm_pool *const pool = wl_shm_create_pool(m_globals.memory, file, bytes);
        wl_surface_attach(surface.surface.get(),
            wl_shm_pool_create_buffer(pool, 0, picture.width(), picture.height(),
                static_cast<int32_t>(picture.bytesPerLine()), WL_SHM_FORMAT_XRGB8888),
            0, 0);
        wl_shm_pool_destroy(pool);
        wl_surface_damage(surface.surface.get(), 0, 0, picture.width(), picture.height());
        wl_surface_commit(surface.surface.get());
        m_connection.sync();
    }
    ::close(file);
}

} // namespace corvane::demo

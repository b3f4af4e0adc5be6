#include "MonitorNames.h"

#include <cstdint>

namespace corvane::x11 {

QString monitorNameFromEdid(std::span<const uint8_t> edid)
{
    constexpr size_t blockSize = 128;
    constexpr size_t firstDescriptor = 54;
    constexpr size_t descriptorSize = 18;
    constexpr uint8_t productName = 0xFC;
    if (edid.size() < blockSize)
        return {};
    for (size_t at = firstDescriptor; at + descriptorSize < blockSize; at += descriptorSize) {
        const auto descriptor = edid.subspan(at, descriptorSize);
        if (descriptor[0] || descriptor[1] || descriptor[2] || descriptor[3] != productName)
            continue;
        const auto text = descriptor.subspan(5);
        const QString name = QString::fromLatin1(
            reinterpret_cast<const char *>(text.data()), static_cast<qsizetype>(text.size()));
        return name.section(u'\n', 0, 0).trimmed();
    }
    return {};
}

} // namespace corvane::x11

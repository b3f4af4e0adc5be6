#include "UpdateKeys.h"

namespace corvane {

namespace {

PublicKeys keys(const QByteArray &list)
{
    PublicKeys keys;
    for (const QByteArray &each : list.split(' '))
        if (!each.isEmpty())
            keys << QByteArray::fromBase64(each);
    return keys;
}

} // namespace

UpdateKeys builtInKeys()
{
    return {keys(CORVANE_UPDATE_RELEASE_KEYS), keys(CORVANE_UPDATE_FEED_KEYS)};
}

} // namespace corvane

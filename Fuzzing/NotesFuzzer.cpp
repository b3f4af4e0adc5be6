#include "ReleaseNotes.h"
#include "Require.h"

using namespace corvane;

namespace {

/// Whether it can stand in a line without ending it or turning it round.
bool isTame(const QString &text)
{
    for (const QChar character : text) {
        if (!character.isPrint() && !character.isSurrogate())
            return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QByteArray page(reinterpret_cast<const char *>(bytes), qsizetype(size));

    qsizetype length = 0;
    for (const ReleaseNotes::Section &section : ReleaseNotes::parse(page)) {
        require(isTame(section.heading) && !section.items.isEmpty());
        length += section.heading.size();
        for (const ReleaseNotes::Item &item : section.items) {
            require(!item.isEmpty());
            for (const ReleaseNotes::Run &run : item) {
                require(isTame(run.text) && !run.text.isEmpty());
                length += run.text.size();
            }
        }
    }
    require(length <= page.size());
    return 0;
}

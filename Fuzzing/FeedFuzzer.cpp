#include "ChooseRelease.h"
#include "FeedDraft.h"
#include "Require.h"

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

/// The draft with a piece of the input in place of a piece of its own, so that most of it makes sense.
QByteArray spliced(QByteArray draft, const QByteArray &input)
{
    if (input.size() < 3)
        return draft;
    const auto byte = [&](int index) { return static_cast<uint8_t>(input[index]); };
    return draft.replace((byte(0) * 256 + byte(1)) % draft.size(), byte(2), input.sliced(3));
}

void requireBounds(const Artefact &artefact)
{
    require(!artefact.addresses.isEmpty() && artefact.addresses.size() <= 3);
    require(artefact.size > 0 && artefact.size <= Feed::largestArtefact);
    require(artefact.unpackedSize > 0 && artefact.unpackedSize <= Feed::largestUnpacked);
    require(artefact.sha256.size() == 32);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static const SigningKey releaseKey;
    static const SigningKey feedKey;
    static const FeedReader reader{
        {{releaseKey.publicKey}, {feedKey.publicKey}}, u"Corvane"_s, u"stable"_s};
    static const RunningCopy running{5, u"linux"_s, u"x86_64"_s, {2, 36}, {}, 0};
    const QByteArray input(reinterpret_cast<const char *>(bytes), qsizetype(size));

    // Nobody has signed the input as it is; of what follows somebody has signed every piece.
    require(!reader.read(input));
    const QByteArray release = releaseKey.envelope(releaseType, spliced(releaseDraft, input));
    const QByteArray good = releaseKey.envelope(releaseType, releaseDraft);
    for (const QByteArray &payload :
        {input, feedDraft({release}), spliced(feedDraft({good}), input)}) {
        const auto feed = reader.read(feedKey.envelope(feedType, payload));
        if (!feed)
            continue;
        require(feed->issued < feed->expires);
        const auto choice = chooseRelease(feed->entries, running, feed->issued, Asker::user);
        if (choice) {
            require(choice->entry.release.build > running.build);
            requireBounds(choice->artefact);
        }
    }
    return 0;
}

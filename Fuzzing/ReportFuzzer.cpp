#include "Redaction.h"
#include "ReportAnswer.h"
#include "Require.h"

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

/// Whether the name stands there as a word of its own.
bool names(const QString &text, const QString &name)
{
    for (qsizetype at = 0; (at = text.indexOf(name, at, Qt::CaseInsensitive)) >= 0; ++at) {
        const QString after = text.mid(at + name.size(), 1);
        const bool isWithin = (at > 0 && text[at - 1].isLetterOrNumber())
            || (!after.isEmpty() && (after[0].isLetterOrNumber() || after[0].isSurrogate()));
        if (!isWithin && !(at > 0 && text[at - 1].isSurrogate()))
            return true;
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static const Redaction redaction({.users = {u"bob"_s, u"Zelda Quux"_s},
        .homes = {u"/home/bob"_s, u"/data/My People/bob"_s},
        .hosts = {u"bob-tower.example.org"_s}});
    const QByteArray input(reinterpret_cast<const char *>(bytes), qsizetype(size));

    const auto event =
        redaction.redacted(FlightRecorder::Event{{}, u"move"_s, QString::fromUtf8(input)});
    for (const QString &name : {u"bob"_s, u"zelda"_s, u"quux"_s, u"bob-tower"_s})
        require(!names(event.detail, name));

    const ReportAnswer answer = ReportAnswer::ofServer(input);
    require(ReportAnswer::fromLine(answer.toLine()) == answer);
    return 0;
}

#include "Require.h"
#include "Settings.h"
#include "StoredJson.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(bytes), qsizetype(size));
    DecodeProblems problems;
    const auto json = parseJson(file, problems);
    const auto settings = json ? decode<Settings>(*json, problems) : std::nullopt;
    if (!settings)
        return 0;

    const auto written = parseJson(QJsonDocument(settings->toJson()).toJson(), problems = {});
    const auto again = decode<Settings>(written.value(), problems);

    require(again == settings && problems.count == 0);
    DecodeProblems left;
    const auto edited = decode<Settings>(mended(json->toObject(), *settings, problems), left);
    require(edited && left.count == 0);
    return 0;
}

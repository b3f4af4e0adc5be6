#include "AppRef.h"

#include "Decoding.h"

namespace corvane {

using namespace Qt::StringLiterals;

QJsonObject AppRef::toJson() const
{
    return {{u"bundleID"_s, bundleID}, {u"name"_s, name}};
}

std::optional<AppRef> AppRef::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader fields(json, problems);
    return fields.result(AppRef{
        .bundleID = fields.require<QString>("bundleID"_L1),
        .name = fields.require<QString>("name"_L1),
    });
}

} // namespace corvane

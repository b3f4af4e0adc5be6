#include "DisplayKey.h"

#include "Decoding.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;

QString DisplayKey::label() const
{
    const QString size =
        QCoreApplication::translate("DisplayKey", "%1 × %2").arg(width).arg(height);
    return name.isEmpty()
        ? size
        : QCoreApplication::translate("DisplayKey", "%1 (%2)", "name, size").arg(name, size);
}

QJsonObject DisplayKey::toJson() const
{
    return {{u"name"_s, name}, {u"width"_s, width}, {u"height"_s, height}};
}

std::optional<DisplayKey> DisplayKey::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader fields(json, problems);
    return fields.result(DisplayKey{
        .name = fields.require<QString>("name"_L1),
        .width = fields.require<int>("width"_L1),
        .height = fields.require<int>("height"_L1),
    });
}

} // namespace corvane

#include "Pane.h"

#include "Decoding.h"

namespace corvane {

using namespace Qt::StringLiterals;

QJsonObject Pane::toJson() const
{
    QJsonObject json{
        {u"id"_s, encode(id)},
        {u"display"_s, display},
        {u"rect"_s, rect.toJson()},
        {u"launch"_s, launch},
    };
    if (app)
        json.insert(u"app"_s, app->toJson());
    if (titleContains)
        json.insert(u"titleContains"_s, *titleContains);
    if (stack)
        json.insert(u"stack"_s, *stack);
    if (capturedTitle)
        json.insert(u"capturedTitle"_s, *capturedTitle);
    return json;
}

std::optional<Pane> Pane::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader fields(json, problems);
    const std::optional<QUuid> id = fields.readOptional<QUuid>("id"_L1);
    return fields.result(Pane{
        .id = id ? *id : QUuid::createUuid(),
        .display = fields.read<int>("display"_L1, 0),
        .rect = fields.read<UnitRect>("rect"_L1, {0, 0, 1, 1}),
        .app = fields.readOptional<AppRef>("app"_L1),
        .titleContains = fields.readOptional<QString>("titleContains"_L1),
        .launch = fields.read<bool>("launch"_L1, true),
        .stack = fields.readOptional<int>("stack"_L1),
        .capturedTitle = fields.readOptional<QString>("capturedTitle"_L1),
    });
}

} // namespace corvane

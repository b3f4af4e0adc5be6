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
    return json;
}

std::optional<Pane> Pane::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    StrictReader fields(json, problems);
    const std::optional<QUuid> id = fields.readOptional<QUuid>(u"id");
    return fields.result(Pane{
        .id = id ? *id : QUuid::createUuid(),
        .display = fields.read<int>(u"display", 0),
        .rect = fields.read<UnitRect>(u"rect", {0, 0, 1, 1}),
        .app = fields.readOptional<AppRef>(u"app"),
        .titleContains = fields.readOptional<QString>(u"titleContains"),
        .launch = fields.read<bool>(u"launch", true),
        .stack = fields.readOptional<int>(u"stack"),
    });
}

size_t qHash(const Pane &pane, size_t seed) noexcept
{
    return qHashMulti(seed, pane.id, pane.display, pane.rect, pane.app.value_or(AppRef{}),
        pane.titleContains.value_or(QString()), pane.launch, pane.stack.value_or(-1));
}

} // namespace corvane

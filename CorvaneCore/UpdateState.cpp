#include "UpdateState.h"

#include "StoredJson.h"

#include <QtCore/QRandomGenerator>

#include <limits>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct Build {
    qint64 number = 0;

    static std::optional<Build> fromJson(const QJsonValue &json)
    {
        const qint64 number = json.toInteger();
        return number > 0 ? std::optional(Build{number}) : std::nullopt;
    }
};

QString pathIn(const QString &folder)
{
    return folder + u"/update-state.json"_s;
}

} // namespace

UpdateState UpdateState::load(const QString &folder)
{
    return readStored<UpdateState>(pathIn(folder)).value;
}

expected<void, QString> UpdateState::save(const QString &folder) const
{
    return writeJson(pathIn(folder), QJsonDocument(toJson()));
}

void UpdateState::noteFailed(qint64 build)
{
    failedBuilds.removeOne(build);
    failedBuilds << build;
    failedBuilds.remove(0, qMax<qsizetype>(0, failedBuilds.size() - mostFailedBuilds));
}

std::optional<UpdateState> UpdateState::fromJson(const QJsonValue &json, DecodeProblems &problems)
{
    if (!json.isObject())
        return std::nullopt;
    LenientReader reader(json.toObject(), problems);
    UpdateState state;
    state.lastChecked = reader.readOptional<QDateTime>("lastChecked"_L1);
    state.issued = reader.readOptional<QDateTime>("issued"_L1);
    for (const Build &each : reader.read<LossyArray<Build>>("failedBuilds"_L1, {}).elements)
        state.noteFailed(each.number);
    state.wentBack = reader.read<bool>("wentBack"_L1, false);
    if (const auto seed = reader.readOptional<int>("seed"_L1); seed >= 0)
        state.seed = *seed;
    return state;
}

QJsonObject UpdateState::toJson() const
{
    QJsonObject json{{u"seed"_s, seed}};
    if (lastChecked)
        json[u"lastChecked"] = encode(*lastChecked);
    if (issued)
        json[u"issued"] = encode(*issued);
    QJsonArray builds;
    for (const qint64 each : failedBuilds)
        builds << each;
    json[u"failedBuilds"] = builds;
    if (wentBack)
        json[u"wentBack"] = true;
    return json;
}

int UpdateState::newSeed()
{
    return QRandomGenerator::global()->bounded(std::numeric_limits<int>::max());
}

} // namespace corvane

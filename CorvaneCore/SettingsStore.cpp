#include "SettingsStore.h"

#include "DataFolder.h"
#include "StoredJson.h"

#include <QtCore/QFileInfo>

namespace corvane {

using namespace Qt::StringLiterals;

SettingsStore::SettingsStore() : SettingsStore(dataFolder()) { }

SettingsStore::SettingsStore(QString directory) : m_directory(std::move(directory)) { }

QUrl SettingsStore::url() const
{
    return QUrl::fromLocalFile(path());
}

SettingsStore::Loaded SettingsStore::inspect() const
{
    const Stored<Settings> stored = readStored<Settings>(path());
    if (stored.damage.isEmpty())
        return {stored.value, std::nullopt};
    return {stored.value, StoreProblem{QFileInfo(path()).fileName(), std::nullopt, stored.damage}};
}

SettingsStore::Loaded SettingsStore::loadKeepingUnreadable() const
{
    Loaded loaded = inspect();
    if (loaded.problem)
        loaded.problem = StoreProblem::keep(url(), loaded.problem->reason);
    return loaded;
}

SettingsStore::Loaded SettingsStore::loadEdit(const Settings &inForce) const
{
    DecodeProblems problems;
    auto json = readJson(path(), problems);
    if (json && json->isUndefined())
        return {inForce, std::nullopt};
    if (json && json->isObject())
        json = mended(json->toObject(), inForce, problems);
    const Stored<Settings> stored = decodeStored<Settings>(json, problems);
    if (stored.damage.isEmpty())
        return {stored.value, std::nullopt};
    return {json && json->isObject() ? stored.value : inForce,
        StoreProblem::keep(url(), stored.damage)};
}

expected<void, QString> SettingsStore::save(const Settings &settings) const
{
    return writeJson(path(), QJsonDocument(settings.toJson()));
}

QString SettingsStore::path() const
{
    return m_directory + u"/settings.json"_s;
}

} // namespace corvane

#include "SettingsStore.h"

#include "DataFolder.h"
#include "StoredJson.h"

#include <QtCore/QFileInfo>

namespace corvane {

using namespace Qt::StringLiterals;

SettingsStore::SettingsStore() : SettingsStore(dataFolder()) { }

SettingsStore::SettingsStore(const QString &directory) : m_path(directory + u"/settings.json"_s) { }

QUrl SettingsStore::url() const
{
    return QUrl::fromLocalFile(m_path);
}

SettingsStore::Loaded SettingsStore::inspect() const
{
    const Stored<Settings> stored = readStored<Settings>(m_path);
    if (stored.damage.isEmpty())
        return {stored.value, std::nullopt};
    return {stored.value, StoreProblem{QFileInfo(m_path).fileName(), std::nullopt, stored.damage}};
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
    auto json = readJson(m_path, problems);
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
    return writeJson(m_path, QJsonDocument(settings.toJson()));
}

} // namespace corvane

#include "LayoutStore.h"

#include "DataFolder.h"
#include "StoredJson.h"

namespace corvane {

using namespace Qt::StringLiterals;

LayoutStore::LayoutStore() : LayoutStore(dataFolder()) { }

LayoutStore::LayoutStore(const QString &directory) : m_path(directory + u"/layouts.json"_s) { }

QUrl LayoutStore::url() const
{
    return QUrl::fromLocalFile(m_path);
}

QList<WindowLayout> LayoutStore::load() const
{
    return readStoredArray<WindowLayout>(m_path).value.elements;
}

LayoutStore::Loaded LayoutStore::loadKeepingUnreadable() const
{
    const auto stored = readStoredArray<WindowLayout>(m_path);
    if (stored.damage.isEmpty())
        return {stored.value.elements, std::nullopt};
    return {stored.value.elements, StoreProblem::keep(url(), stored.damage)};
}

expected<void, QString> LayoutStore::save(const QList<WindowLayout> &layouts) const
{
    return writeJson(m_path, QJsonDocument(encode(layouts)));
}

} // namespace corvane

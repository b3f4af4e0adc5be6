#include "LayoutStore.h"

#include "DataFolder.h"
#include "StoredJson.h"

#include <QtCore/QSet>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// A layout that was copied by hand has its original's id. It gets another one, the same at every
/// load, so that whoever remembers it finds it again.
QList<WindowLayout> toldApart(QList<WindowLayout> layouts)
{
    QSet<QUuid> given;
    for (const WindowLayout &layout : std::as_const(layouts))
        given.insert(layout.id);
    QSet<QUuid> seen;
    for (WindowLayout &layout : layouts) {
        const QUuid original = layout.id;
        for (int copy = 2; seen.contains(layout.id); ++copy) {
            const QUuid other = QUuid::createUuidV5(original, QByteArray::number(copy));
            if (!given.contains(other))
                layout.id = other;
        }
        seen.insert(layout.id);
    }
    return layouts;
}

} // namespace

LayoutStore::LayoutStore() : LayoutStore(dataFolder()) { }

LayoutStore::LayoutStore(const QString &directory) : m_path(directory + u"/layouts.json"_s) { }

QUrl LayoutStore::url() const
{
    return QUrl::fromLocalFile(m_path);
}

LayoutStore::Loaded LayoutStore::loadKeepingUnreadable() const
{
    const auto stored = readStoredArray<WindowLayout>(m_path);
    const QList<WindowLayout> layouts = toldApart(stored.value.elements);
    if (stored.damage.isEmpty())
        return {layouts, std::nullopt};
    return {layouts, StoreProblem::keep(url(), stored.damage)};
}

expected<void, QString> LayoutStore::save(const QList<WindowLayout> &layouts) const
{
    return writeJson(m_path, QJsonDocument(encode(layouts)));
}

} // namespace corvane

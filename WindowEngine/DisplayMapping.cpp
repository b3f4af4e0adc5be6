#include "DisplayMapping.h"

#include <QtCore/QSet>

#include <functional>

namespace corvane {

namespace {

class Mapping final
{
public:
    Mapping(const QList<DisplayKey> &layout, const QList<DisplayKey> &current)
        : m_layout(layout), m_current(current)
    {
    }

    template <typename Same>
    void pair(Same same)
    {
        for (int saved = 0; saved < m_layout.size(); ++saved) {
            if (m_found.contains(saved))
                continue;
            for (int now = 0; now < m_current.size(); ++now) {
                if (m_used.contains(now) || !same(m_layout[saved], m_current[now]))
                    continue;
                m_found.insert(saved, now);
                m_used.insert(now);
                break;
            }
        }
    }

    void pairByPosition()
    {
        if (m_layout.size() != m_current.size())
            return;
        for (int index = 0; index < m_layout.size(); ++index) {
            if (!m_found.contains(index) && !m_used.contains(index))
                m_found.insert(index, index);
        }
    }

    const QMap<int, int> &found() const { return m_found; }

private:
    const QList<DisplayKey> &m_layout;
    const QList<DisplayKey> &m_current;
    QMap<int, int> m_found;
    QSet<int> m_used;
};

} // namespace

QMap<int, int> displayMapping(const QList<DisplayKey> &layout, const QList<DisplayKey> &current)
{
    Mapping mapping(layout, current);
    mapping.pair(std::equal_to<>());
    mapping.pair([](const DisplayKey &a, const DisplayKey &b) { return a.name == b.name; });
    mapping.pairByPosition();
    return mapping.found();
}

} // namespace corvane

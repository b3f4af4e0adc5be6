#include "Notifications.h"

#include "BusCall.h"

#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// Services may read the body as markup. Quotation marks stay: not all of them do.
QString escaped(QString text)
{
    return text.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
}

} // namespace

void Notifications::show(const QString &id, const QString &title, const QString &body)
{
    Entry &entry = m_entries[id];
    if (entry.awaitsNumber)
        entry.next = Text{title, body};
    else
        send(id, {title, body});
}

void Notifications::send(const QString &id, const Text &text)
{
    Entry &entry = m_entries[id];
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s,
        u"/org/freedesktop/Notifications"_s, u"org.freedesktop.Notifications"_s, u"Notify"_s);
    constexpr int serviceChooses = -1;
    call << u"Corvane"_s << entry.number << u"app.corvane.Corvane"_s << text.title
         << escaped(text.body) << QStringList()
         << QVariantMap{{u"desktop-entry"_s, u"app.corvane.Corvane"_s}} << serviceChooses;
    entry.awaitsNumber =
        callLater(m_bus, call, startPatience, this, [this, id](const QDBusMessage &answer) {
            // An error carries text, which is no number: whatever is shown next is new.
            learnNumber(id, answer.signature() == u"u" ? answer.arguments()[0].toUInt() : 0);
        });
}

void Notifications::learnNumber(const QString &id, quint32 number)
{
    Entry &entry = m_entries[id];
    entry.number = number;
    entry.awaitsNumber = false;
    if (const auto next = std::exchange(entry.next, std::nullopt))
        send(id, *next);
}

} // namespace corvane::freedesktop

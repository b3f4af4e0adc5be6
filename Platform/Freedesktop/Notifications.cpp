#include "Notifications.h"

#include "BusCall.h"

#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

const QString interface = u"org.freedesktop.Notifications"_s; // and the service's name
const QString path = u"/org/freedesktop/Notifications"_s;
const QString clickAction = u"default"_s; // which a click on the notification itself stands for

/// Services may read the body as markup. Quotation marks stay: not all of them do.
QString escaped(QString text)
{
    return text.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
}

} // namespace

void Notifications::show(const QString &id, const Text &text)
{
    Entry &entry = m_entries[id];
    if (entry.awaitsNumber)
        entry.next = text;
    else
        send(id, text);
}

void Notifications::send(const QString &id, const Text &text)
{
    if (!text.action.isEmpty())
        listen();
    Entry &entry = m_entries[id];
    auto call = QDBusMessage::createMethodCall(interface, path, interface, u"Notify"_s);
    constexpr int serviceChooses = -1;
    const QStringList actions =
        text.action.isEmpty() ? QStringList() : QStringList{clickAction, text.action};
    call << u"Corvane"_s << entry.number << u"app.corvane.Corvane"_s << text.title
         << escaped(text.body) << actions
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

void Notifications::listen()
{
    if (std::exchange(m_isListening, true))
        return;
    // From whomever: to follow one service only, its owner would have to be waited for.
    m_bus.connect(
        {}, path, interface, u"ActivationToken"_s, u"us"_s, this, SLOT(takeToken(uint, QString)));
    m_bus.connect(
        {}, path, interface, u"ActionInvoked"_s, u"us"_s, this, SLOT(takeAction(uint, QString)));
}

void Notifications::takeToken(uint number, const QString &token)
{
    m_tokens = {{number, token}};
}

/// Clicks on other programs' notifications are told, too.
void Notifications::takeAction(uint number, const QString &action)
{
    const QString token = m_tokens.take(number);
    if (number == 0 || action != clickAction)
        return;
    for (const auto &[id, entry] : m_entries.asKeyValueRange()) {
        if (entry.number == number)
            return Q_EMIT clicked(id, token);
    }
}

} // namespace corvane::freedesktop

#include "ClientProperties.h"

#include "Properties.h"

#include <QtCore/QFile>

#include <algorithm>
#include <csignal>

namespace corvane::x11 {

using namespace Qt::StringLiterals;

namespace {

/// The process, as the server knows it from the socket of the client that made the window.
pid_t localClientPid(Connection &connection, xcb_res_query_client_ids_cookie_t cookie)
{
    if (cookie.sequence == 0)
        return 0;
    const auto reply = connection.reply<xcb_res_query_client_ids_reply_t>(cookie.sequence);
    if (!reply)
        return 0;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply->get()); ids.rem;
         xcb_res_client_id_value_next(&ids)) {
        if (ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID
            && xcb_res_client_id_value_value_length(ids.data) > 0)
            return static_cast<pid_t>(*xcb_res_client_id_value_value(ids.data));
    }
    return 0;
}

bool isAlive(pid_t pid)
{
    return pid > 0 && (kill(pid, 0) == 0 || errno == EPERM);
}

/// Whether the process knows itself by this number, in its sandbox or outside of any.
bool isCalled(pid_t pid, pid_t stated)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    return stated == pid
        || (pid > 0 && stated > 0 && status.open(QIODevice::ReadOnly)
            && innermostPid(status.readAll()) == stated);
}

/// The client's process, 0 where it has none here. Whose socket it is may only pass on what clients
/// say, from this machine or another; the number that they state counts on the machine that they name.
pid_t processOf(pid_t stated, pid_t socketPid, const QString &machine)
{
    if (machine.isEmpty() || isCalled(socketPid, stated))
        return socketPid;
    if (!isThisMachine(machine, QSysInfo::machineHostName()))
        return 0;
    return isAlive(stated) ? stated : socketPid;
}

/// A window lists its types in order of preference, and those of its toolkit's own among them.
std::optional<Atom> knownType(const Connection &connection, std::span<const quint32> types)
{
    for (const quint32 type : types) {
        for (auto known = Atom::typeNormal; known <= Atom::typeDnd;
             known = Atom(static_cast<int>(known) + 1)) {
            if (connection.atom(known) == type)
                return known;
        }
    }
    return std::nullopt;
}

xcb_res_query_client_ids_cookie_t requestClientIds(
    const Connection &connection, xcb_window_t window)
{
    if (!connection.extension(xcb_res_id))
        return {};
    const xcb_res_client_id_spec_t spec{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    return xcb_res_query_client_ids(connection.xcb(), 1, &spec);
}

} // namespace

pid_t innermostPid(const QByteArray &status)
{
    for (const QByteArray &line : status.split('\n')) {
        if (line.startsWith("NSpid:"))
            return line.simplified().split(' ').last().toInt();
    }
    return 0;
}

bool isThisMachine(const QString &machine, const QString &host)
{
    const QString name = machine.section(u'.', 0, 0);
    const bool bothQualified = machine.contains(u'.') && host.contains(u'.');
    const bool isSame = bothQualified
        ? machine.compare(host, Qt::CaseInsensitive) == 0
        : name.compare(host.section(u'.', 0, 0), Qt::CaseInsensitive) == 0;
    return isSame || name.compare("localhost"_L1, Qt::CaseInsensitive) == 0;
}

StrutRequest requestStruts(const Connection &connection, xcb_window_t window)
{
    return {requestProperty(connection, window, Atom::netWmStrutPartial),
        requestProperty(connection, window, Atom::netWmStrut)};
}

QList<Strut> readStruts(Connection &connection, const StrutRequest &request)
{
    const auto partial = propertyReply(connection, request.partial);
    const auto whole = propertyReply(connection, request.whole);
    return strutsFromProperty(values32(partial).size() >= 12 ? values32(partial) : values32(whole));
}

QList<Strut> strutsFromProperty(std::span<const quint32> values)
{
    constexpr double everywhere = 65535;
    using enum Strut::Edge;
    QList<Strut> struts;
    if (values.size() < 4)
        return struts;
    for (const auto edge : {left, right, top, bottom}) {
        const auto index = static_cast<size_t>(edge);
        if (values[index] == 0 || values[index] > everywhere)
            continue;
        Strut strut{edge, double(values[index]), 0, everywhere};
        if (values.size() >= 12) {
            strut.start = values[4 + 2 * index];
            strut.end = values[5 + 2 * index];
        }
        struts << strut;
    }
    return struts;
}

KindRequest requestKind(const Connection &connection, xcb_window_t window)
{
    return {requestProperty(connection, window, Atom::netWmWindowType),
        requestProperty(connection, window, XCB_ATOM_WM_TRANSIENT_FOR)};
}

WindowKind readKind(Connection &connection, const KindRequest &request, xcb_window_t window)
{
    const auto type = propertyReply(connection, request.type);
    const auto transientFor = propertyReply(connection, request.transientFor);
    const Atom known = knownType(connection, values32(type)).value_or(Atom::typeNormal);
    if (known == Atom::typeDesktop)
        return WindowKind::desktop;
    if (known == Atom::typeDock)
        return WindowKind::panel;
    const auto owner = values32(transientFor);
    const bool isTransient = !owner.empty() && owner[0] != window && owner[0] != noWindow;
    return isTransient || known != Atom::typeNormal ? WindowKind::dialog : WindowKind::standard;
}

bool isInTaskbar(const Connection &connection, std::span<const quint32> states)
{
    return std::ranges::find(states, connection.atom(Atom::stateSkipTaskbar)) == states.end();
}

ClientPropertiesRequest requestClientProperties(const Connection &connection, xcb_window_t window)
{
    return {.window = window,
        .geometry = xcb_get_geometry(connection.xcb(), window),
        .pid = requestProperty(connection, window, Atom::netWmPid),
        .machine = requestProperty(connection, window, XCB_ATOM_WM_CLIENT_MACHINE),
        .clientIds = requestClientIds(connection, window),
        .names = requestNames(connection, window),
        .state = requestProperty(connection, window, Atom::netWmState),
        .kind = requestKind(connection, window),
        .struts = requestStruts(connection, window)};
}

std::optional<KnownWindow> clientProperties(
    Connection &connection, const ClientPropertiesRequest &request)
{
    // Every answer is taken, even of a window that is gone, so that none is left waiting.
    const auto geometry = connection.reply<xcb_get_geometry_reply_t>(request.geometry.sequence);
    const auto pid = propertyReply(connection, request.pid);
    const QString machine = textOf(propertyReply(connection, request.machine));
    const pid_t socketPid = localClientPid(connection, request.clientIds);
    const auto names = readNames(connection, request.names);
    const auto state = propertyReply(connection, request.state);
    KnownWindow known;
    known.kind = readKind(connection, request.kind, request.window);
    known.struts = readStruts(connection, request.struts);
    if (!geometry)
        return std::nullopt;

    const auto stated = values32(pid);
    const auto statedPid = stated.empty() ? pid_t(0) : static_cast<pid_t>(stated[0]);
    known.pid = processOf(statedPid, socketPid, machine);
    known.machine = machine;
    known.names = names.value_or(WindowNames{});
    known.inTaskbar =
        known.kind == WindowKind::standard && isInTaskbar(connection, values32(state));
    return known;
}

} // namespace corvane::x11

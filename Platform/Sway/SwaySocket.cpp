#include "SwaySocket.h"

#include <array>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace corvane::sway {

using namespace wayland;

namespace {

constexpr QByteArrayView magic("i3-ipc");
constexpr qsizetype headerSize = magic.size() + 8;
constexpr quint32 mostBytes = 64 << 20; // of one message: more is a mistake

int millisecondsUntil(SwaySocket::Time deadline)
{
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return std::max(0, int(left.count()));
}

} // namespace

SwaySocket::~SwaySocket()
{
    close();
}

bool SwaySocket::open(const QByteArray &path)
{
    close();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || size_t(path.size()) >= sizeof(address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (file < 0)
        return false;
    if (connect(file, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0) {
        ::close(file);
        return false;
    }
    m_file = file;
    return true;
}

void SwaySocket::close()
{
    if (m_file >= 0)
        ::close(std::exchange(m_file, -1));
    m_received.clear();
}

bool SwaySocket::send(Message message, const QByteArray &content)
{
    if (!isOpen())
        return false;
    const std::array<quint32, 2> numbers{quint32(content.size()), quint32(message)};
    QByteArray bytes = magic.toByteArray();
    bytes.append(reinterpret_cast<const char *>(numbers.data()), sizeof(numbers));
    bytes.append(content);
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t written =
            ::send(m_file, bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
        if (written <= 0) {
            close();
            return false;
        }
        sent += written;
    }
    return true;
}

std::optional<Packet> SwaySocket::receive(Time deadline)
{
    if (!fill(headerSize, deadline))
        return std::nullopt;
    std::array<quint32, 2> numbers{};
    std::memcpy(numbers.data(), m_received.constData() + magic.size(), sizeof(numbers));
    if (!m_received.startsWith(magic) || numbers[0] > mostBytes) {
        close();
        return std::nullopt;
    }
    const qsizetype size = headerSize + qsizetype(numbers[0]);
    if (!fill(size, deadline))
        return std::nullopt;
    Packet packet{numbers[1]};
    packet.content.Parse<rapidjson::kParseIterativeFlag>(
        m_received.constData() + headerSize, numbers[0]);
    m_received.remove(0, size);
    return packet;
}

expected<rapidjson::Document, AXError> SwaySocket::ask(
    Message message, const QByteArray &content, Time deadline)
{
    if (!isOpen())
        return unexpected<AXError>(AXError::apiDisabled);
    auto answer = send(message, content) ? receive(deadline) : std::nullopt;
    if (answer && answer->type == quint32(message))
        return std::move(answer->content);
    close();
    return unexpected<AXError>(AXError::cannotComplete);
}

/// Reads until so many bytes are there.
bool SwaySocket::fill(qsizetype size, Time deadline)
{
    while (m_received.size() < size) {
        if (!isOpen())
            return false;
        pollfd descriptor{m_file, POLLIN, 0};
        if (poll(&descriptor, 1, millisecondsUntil(deadline)) <= 0)
            return false;
        std::array<char, 65536> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): is filled
        const ssize_t count = recv(m_file, buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            close();
            return false;
        }
        m_received.append(buffer.data(), count);
    }
    return true;
}

} // namespace corvane::sway

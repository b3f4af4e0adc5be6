#pragma once

#include "AXError.h"
#include "Expected.h"
#include "Json.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <chrono>
#include <optional>

namespace corvane::sway {

/// The messages of sway's IPC, by its own numbers (sway-ipc(7)).
enum class Message : quint32 {
    runCommand = 0,
    subscribe = 2,
    getOutputs = 3,
    getTree = 4,
    getVersion = 7,
    getConfig = 9,
};

/// An event's number has its highest bit set.
enum class Event : quint32 {
    workspace = 0x8000'0000,
    output = 0x8000'0001,
    window = 0x8000'0003,
    binding = 0x8000'0005,
    shutdown = 0x8000'0006,
};

/// One message as it arrives: an answer, or an event.
struct Packet {
    quint32 type = 0;
    rapidjson::Document content{};
};

/// One connection to sway's socket. Broken for good after the first failure, a silence included: an
/// answer that came late would be taken for that of the next question.
class SwaySocket final
{
public:
    using Time = std::chrono::steady_clock::time_point;

    SwaySocket() = default;
    ~SwaySocket();
    Q_DISABLE_COPY_MOVE(SwaySocket)

    /// Connects anew. False when nobody listens at the path.
    bool open(const QByteArray &path);
    void close();
    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    [[nodiscard]] int file() const { return m_file; }

    /// Sends without waiting for the answer.
    bool send(Message message, const QByteArray &content = {});
    /// The next message. Nothing when none comes in time, or the connection has ended.
    [[nodiscard]] std::optional<Packet> receive(Time deadline);
    /// The answer to a question; events may not arrive on this connection.
    [[nodiscard]] expected<rapidjson::Document, AXError> ask(
        Message message, const QByteArray &content, Time deadline);

private:
    [[nodiscard]] bool fill(qsizetype size, Time deadline);

    int m_file = -1;
    QByteArray m_received;
};

} // namespace corvane::sway

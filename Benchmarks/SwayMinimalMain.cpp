// Answers each of its keys with one message of commands: the least work that a program with this task
// can do on sway. It hears the keys on the connection on which it answers.
//
//   corvane-sway-minimal {KEYS FILE}...
//
// It finds its windows by their titles at each key. The keys are as sway's configuration names them. A
// line of a file: the window's title, a bar, the commands for it.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unordered_map>
#include <vector>

namespace {

constexpr uint32_t runCommand = 0;
constexpr uint32_t subscribe = 2;
constexpr uint32_t getTree = 4;
constexpr uint32_t bindingEvent = 0x80000005;

struct [[gnu::packed]] Header {
    char magic[6];
    uint32_t size;
    uint32_t type;
};

struct Message {
    uint32_t type = 0;
    std::string text;
};

class Sway
{
public:
    Sway() : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const char *const path = std::getenv("SWAYSOCK");
        std::strncpy(address.sun_path, path ? path : "", sizeof address.sun_path - 1);
        m_isOpen = ::connect(m_socket, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0;
    }

    bool isOpen() const { return m_isOpen; }
    void send(uint32_t type, const std::string &text)
    {
        const Header header{{'i', '3', '-', 'i', 'p', 'c'}, uint32_t(text.size()), type};
        const std::string bytes =
            std::string(reinterpret_cast<const char *>(&header), sizeof header) + text;
        m_isOpen = ::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL)
            == static_cast<ssize_t>(bytes.size());
    }
    Message next()
    {
        Header header{};
        Message message;
        if (!receive(&header, sizeof header))
            return message;
        message.type = header.type;
        message.text.resize(header.size);
        receive(message.text.data(), header.size);
        return message;
    }

private:
    bool receive(void *bytes, size_t count)
    {
        m_isOpen = ::recv(m_socket, bytes, count, MSG_WAITALL) == static_cast<ssize_t>(count);
        return m_isOpen;
    }

    int m_socket;
    bool m_isOpen = false;
};

const std::string mark = "nop minimal-";

struct Order {
    std::string title;
    std::string commands;
};

std::vector<Order> ordersIn(const char *path)
{
    std::vector<Order> orders;
    std::ifstream file(path);
    for (Order order; std::getline(file, order.title, '|') && std::getline(file, order.commands);)
        orders.push_back(order);
    return orders;
}

/// By title. A node's number comes before its name.
std::unordered_map<std::string, std::string> windowsIn(const std::string &tree)
{
    const std::string number = "\"id\": ";
    const std::string name = "\"name\": \"";
    std::unordered_map<std::string, std::string> windows;
    for (size_t at = tree.find(name); at != std::string::npos; at = tree.find(name, at + 1)) {
        const size_t before = tree.rfind(number, at) + number.size();
        const size_t title = at + name.size();
        windows[tree.substr(title, tree.find('"', title) - title)] =
            tree.substr(before, tree.find(',', before) - before);
    }
    return windows;
}

std::string commandsFor(const std::vector<Order> &orders, Sway &sway)
{
    sway.send(getTree, {});
    Message tree = sway.next();
    while (sway.isOpen() && tree.type != getTree)
        tree = sway.next();
    const auto windows = windowsIn(tree.text);
    std::string text;
    for (const auto &[title, commands] : orders) {
        if (const auto found = windows.find(title); found != windows.end())
            text += "[con_id=" + found->second + "] " + commands + "; ";
    }
    return text;
}

} // namespace

int main(int argc, char **argv)
{
    Sway sway;
    std::vector<std::vector<Order>> orders;
    sway.send(subscribe, "[\"binding\"]");
    sway.next();
    for (int at = 1; at + 2 <= argc && sway.isOpen(); at += 2) {
        sway.send(runCommand,
            std::string("bindsym ") + argv[at] + ' ' + mark + std::to_string(orders.size()));
        sway.next();
        orders.push_back(ordersIn(argv[at + 1]));
    }
    std::puts("ready");
    std::fflush(stdout);
    while (sway.isOpen()) {
        const Message message = sway.next();
        const size_t at = message.text.find(mark);
        if (message.type != bindingEvent || at == std::string::npos)
            continue;
        const size_t which = std::strtoul(message.text.c_str() + at + mark.size(), nullptr, 10);
        if (which < orders.size())
            sway.send(runCommand, commandsFor(orders[which], sway));
    }
    return 1;
}

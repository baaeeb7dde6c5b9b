#include "servers/RelayLines.h"

#include "platform/ado/ConnectionAttributes.h"
#include "platform/runtime/Text.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace Quillane {

namespace {

int PortOf(int listener) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

} // namespace

int ListenOnLoopback() {
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 16) != 0)
        throw std::runtime_error("no port for the relay");
    return listener;
}

int ConnectToServer(const std::string& connectionString) {
    const ConnectionAttributes text(connectionString);
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(text.Get("Server").c_str(), text.Get("Port").c_str(), &wanted, &found) != 0)
        return -1;
    const int line = socket(found->ai_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool answers = connect(line, found->ai_addr, found->ai_addrlen) == 0;
    freeaddrinfo(found);
    if (answers)
        return line;
    close(line);
    return -1;
}

std::string ThroughRelay(int listener, const std::string& connectionString) {
    std::string text = "Server=127.0.0.1;Port=" + std::to_string(PortOf(listener));
    for (std::size_t begin = 0; begin < connectionString.size();) {
        const std::size_t end =
            std::min(connectionString.find(';', begin), connectionString.size());
        const std::string entry = connectionString.substr(begin, end - begin);
        const std::string key = UpperCase(Trim(entry.substr(0, entry.find('='))));
        if (key != "SERVER" && key != "PORT")
            text += ";" + entry;
        begin = end + 1;
    }
    return text;
}

void DisableSendDelay(int line) {
    const int on = 1;
    setsockopt(line, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

bool SendAll(int line, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(line, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

} // namespace Quillane

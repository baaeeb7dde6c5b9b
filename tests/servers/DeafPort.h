#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

namespace Quillane {

/// A port on loopback that accepts connections and never answers, or that refuses them.
class DeafPort {
public:
    explicit DeafPort(bool takesCalls) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address);
        socklen_t size = sizeof address;
        getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        number_ = ntohs(address.sin_port);
        if (takesCalls)
            listen(socket_, 5);
    }
    ~DeafPort() { close(socket_); }
    DeafPort(const DeafPort&) = delete;
    DeafPort& operator=(const DeafPort&) = delete;

    std::string Entry() const { return ";Server=127.0.0.1;Port=" + std::to_string(number_); }

private:
    int socket_;
    int number_ = 0;
};

} // namespace Quillane

#pragma once

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

namespace quillon::tests {

/// A port on loopback that accepts connections and never says a word.
class SilentServer {
 public:
  SilentServer() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(0, ::bind(socket_, generic, size));
    EXPECT_EQ(0, ::listen(socket_, 8));
    EXPECT_EQ(0, ::getsockname(socket_, generic, &size));
    port_ = ::ntohs(address.sin_port);
  }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;
  ~SilentServer() { ::close(socket_); }

  [[nodiscard]] std::string asProxy() const {
    return "socks5://127.0.0.1:" + std::to_string(port_);
  }

 private:
  int socket_;
  int port_ = 0;
};

}  // namespace quillon::tests

#include "platform/socket.h"

#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

namespace vask::platform {
namespace {

constexpr std::size_t kReceiveSize = 4096;  // bytes at a time

// Waits until the socket can be read or written, or is broken, which the next call on it tells;
// false when the deadline passes before.
bool Wait(int handle, short events, Deadline deadline) {
  using std::chrono::milliseconds;
  constexpr milliseconds::rep kLongest = 60'000;
  for (;;) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - Deadline::clock::now()).count();
    if (left <= 0) {
      return false;
    }
    pollfd waiting{handle, events, 0};
    const int ready = poll(&waiting, 1, static_cast<int>(std::min(left, kLongest)));
    if (ready > 0) {
      return true;
    }
    if (ready < 0 && errno != EINTR) {
      return false;
    }
  }
}

bool IsTemporary(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

}  // namespace

std::optional<std::uint32_t> LookUpHost(const std::string& name) {
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(name.c_str(), nullptr, &wanted, &found) != 0) {
    return std::nullopt;
  }
  sockaddr_in first{};
  std::copy_n(reinterpret_cast<const char*>(found->ai_addr), sizeof first,
              reinterpret_cast<char*>(&first));
  freeaddrinfo(found);
  return ntohl(first.sin_addr.s_addr);
}

bool CSocket::Open() {
  Close();
  myHandle = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  return myHandle >= 0;
}

bool CSocket::Connect(const SInternetAddress& address, Deadline deadline) {
  sockaddr_in target{};
  target.sin_family = AF_INET;
  target.sin_port = htons(address.port);
  target.sin_addr.s_addr = htonl(address.host);
  if (connect(myHandle, reinterpret_cast<const sockaddr*>(&target), sizeof target) == 0) {
    return true;
  }
  if ((errno != EINPROGRESS && errno != EINTR) || !Wait(myHandle, POLLOUT, deadline)) {
    return false;
  }
  int error = 0;
  socklen_t size = sizeof error;
  return getsockopt(myHandle, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

bool CSocket::Send(std::string_view bytes, Deadline deadline) {
  while (!bytes.empty()) {
    if (!Wait(myHandle, POLLOUT, deadline)) {
      return false;
    }
    const ssize_t sent = send(myHandle, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && !IsTemporary(errno)) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(sent, 0)));
  }
  return true;
}

ESocketResult CSocket::Receive(std::string& bytes, Deadline deadline) {
  std::array<char, kReceiveSize> buffer{};
  bytes.clear();
  while (Wait(myHandle, POLLIN, deadline)) {
    const ssize_t received = recv(myHandle, buffer.data(), buffer.size(), 0);
    if (received > 0) {
      bytes.assign(buffer.data(), static_cast<std::size_t>(received));
      return ESocketResult::kDone;
    }
    if (received == 0 || !IsTemporary(errno)) {
      return ESocketResult::kLost;
    }
  }
  return ESocketResult::kTimeout;
}

void CSocket::Close() {
  if (myHandle >= 0) {
    close(myHandle);
    myHandle = -1;
  }
}

}  // namespace vask::platform

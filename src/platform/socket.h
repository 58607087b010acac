#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vask::platform {

// When an operation gives up.
using Deadline = std::chrono::steady_clock::time_point;

// An AF_INET address.
struct SInternetAddress {
  std::uint16_t port = 0;
  std::uint32_t host = 0;  // 127.0.0.1 is 0x7F000001
};

// The first AF_INET address of a host, which is given by name or in digits; none when there is no
// such host. Takes as long as the system's resolver does.
std::optional<std::uint32_t> LookUpHost(const std::string& name);

enum class ESocketResult {
  kDone,
  kTimeout,  // the deadline has passed
  kLost,     // the other side has closed, or the connection is broken
};

// A TCP connection to another host. No operation lasts beyond its deadline, and none raises a
// signal; the destructor closes.
class CSocket {
 public:
  CSocket() = default;
  ~CSocket() { Close(); }
  CSocket(const CSocket&) = delete;
  CSocket& operator=(const CSocket&) = delete;

  // Makes a fresh socket in place of an earlier one; false when the system has none to give.
  bool Open();
  bool Connect(const SInternetAddress& address, Deadline deadline);
  // Sends all of it; false when the deadline passes or the connection breaks before.
  bool Send(std::string_view bytes, Deadline deadline);
  // Waits for at least one byte; `bytes` is then what has come, else empty.
  ESocketResult Receive(std::string& bytes, Deadline deadline);
  // May be called at any time, also twice.
  void Close();

 private:
  int myHandle = -1;
};

}  // namespace vask::platform

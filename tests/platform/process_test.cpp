#include "platform/process.h"

#include "platform/filelock.h"
#include "platform/socket.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <thread>

namespace vask::platform {
namespace {

TEST(Process, ALostReaderIsAnErrorAndNotTheEnd) {
  BreakIntoDebugger();  // which would end it without one
  std::signal(SIGPIPE, SIG_DFL);
  SurviveBrokenPipes();
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  EXPECT_EQ(write(ends[1], "x", 1), -1);
  EXPECT_EQ(errno, EPIPE);
  close(ends[1]);
}

TEST(FileLock, IsHeldByOneAtATime) {
  {
    const CFileLock first("lock", 0);
    EXPECT_TRUE(first.IsHeld());
    EXPECT_FALSE(CFileLock("lock", 0).IsHeld());
  }
  EXPECT_TRUE(CFileLock("lock", 0).IsHeld());
}

TEST(Socket, SendsAllUntilTheOtherSideHasGone) {
  const auto in = [](int ms) { return Deadline::clock::now() + std::chrono::milliseconds(ms); };
  std::signal(SIGPIPE, SIG_DFL);
  sockaddr_in place{
      .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
  socklen_t size = sizeof place;
  auto* const address = reinterpret_cast<sockaddr*>(&place);
  const int server = socket(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(bind(server, address, size) + listen(server, 1) + getsockname(server, address, &size),
            0);
  const SInternetAddress target{ntohs(place.sin_port), LookUpHost("localhost").value_or(0)};
  CSocket client;
  client.Open();
  EXPECT_TRUE(client.Connect(target, in(9000)));
  const int peer = accept(server, nullptr, nullptr);
  std::string sent, bytes;
  for (int i = 0; i < 1'000'000; ++i) {
    sent += std::to_string(i);
  }
  std::string got(sent.size(), '.');
  std::thread reader([&] { recv(peer, got.data(), got.size(), MSG_WAITALL); });
  EXPECT_TRUE(client.Send(sent, in(9000)));
  reader.join();
  EXPECT_TRUE(got == sent) << "much more than goes at a time";
  send(peer, "hello", 5, 0);
  EXPECT_EQ(client.Receive(bytes, in(9000)), ESocketResult::kDone);
  EXPECT_EQ(bytes, "hello");
  EXPECT_EQ(client.Receive(bytes, in(2)), ESocketResult::kTimeout);
  EXPECT_EQ(bytes, "");
  EXPECT_FALSE(client.Send(std::string(100'000'000, 'x'), in(2))) << "nobody reads";
  shutdown(peer, SHUT_WR);
  errno = EAGAIN;  // of some call before
  EXPECT_EQ(client.Receive(bytes, in(9000)), ESocketResult::kLost);
  close(peer);
  close(server);
  while (client.Send("x", in(9000))) {  // until the news has come
  }
  EXPECT_FALSE(client.Send("x", in(9000))) << "without the signal, too";
  client.Open();
  EXPECT_FALSE(client.Connect(target, in(9000))) << "refused";
}

}  // namespace
}  // namespace vask::platform

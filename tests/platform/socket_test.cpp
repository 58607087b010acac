#include "platform/socket.h"

#include "platform/newfile.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

namespace vask::platform {
namespace {

TEST(Socket, GivesUpWhenNobodyReadsAndTellsThatTheOtherSideHasGone) {
  const auto in = [](int ms) { return Deadline::clock::now() + std::chrono::milliseconds(ms); };
  std::signal(SIGPIPE, SIG_DFL);
  sockaddr_in place{};
  socklen_t size = sizeof place;
  const int server = socket(AF_INET, SOCK_STREAM, 0);
  ASSERT_EQ(listen(server, 1), 0);  // the system chooses the port
  getsockname(server, reinterpret_cast<sockaddr*>(&place), &size);
  CSocket client;
  client.Open();
  EXPECT_TRUE(client.Connect({ntohs(place.sin_port), INADDR_LOOPBACK}, in(9000)));
  const int peer = accept(server, nullptr, nullptr);
  EXPECT_FALSE(client.Send(std::string(100'000'000, 'x'), in(2)));
  shutdown(peer, SHUT_WR);
  std::string bytes;
  errno = EAGAIN;  // of some call before
  EXPECT_EQ(client.Receive(bytes, in(9000)), ESocketResult::kLost);
  close(peer);
  close(server);
  while (client.Send("x", in(9000))) {  // until the news has come
  }
  EXPECT_FALSE(client.Send("x", in(9000))) << "without the signal, too";
}

TEST(NewFile, StaysOnAFullDiskUnlessNothingOfItCouldBeWritten) {
  std::signal(SIGXFSZ, SIG_IGN);
  for (const rlim_t room : {0U, 1U}) {
    rlimit disk = {.rlim_cur = room, .rlim_max = RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &disk);
    {
      CNewFile file("new.txt");
      file.Write("12345");
      EXPECT_FALSE(file.IsGood());
    }
    disk.rlim_cur = RLIM_INFINITY;
    setrlimit(RLIMIT_FSIZE, &disk);
    EXPECT_EQ(std::filesystem::remove("new.txt"), room > 0);
  }
  std::signal(SIGXFSZ, SIG_DFL);
}

}  // namespace
}  // namespace vask::platform

#pragma once

#include "fuzz.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

// The mail host, which has sent all its replies before it is told anything.
namespace vask::fuzz {

inline std::string ourReplies;
inline int ourHost = -1;  // the other end of the connection

// What the host has been told, a "\n" at the end of each line.
inline std::string TakeWhatWasSaid() {
  std::string said(1 << 18, '\0');
  const ssize_t size = recv(ourHost, said.data(), said.size(), 0);
  said.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  std::ptrdiff_t lines = 0;
  for (std::size_t at = said.find('\r'); at != std::string::npos; at = said.find('\r', at)) {
    said.erase(at, 1);
    Require(said.substr(at, 1) == "\n");
    ++lines;
  }
  Require(std::ranges::count(said, '\n') == lines);
  return said;
}

// The text as it has to arrive: in lines of at most 900 bytes, of ASCII, and with one more dot
// before each that stands first.
inline std::string Carried(const std::string& text) {
  constexpr std::size_t kLongest = 900;
  std::string carried;
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool isEnd = byte == '\n' || byte == '\r';
    if (isEnd || column == kLongest) {
      carried += '\n';
      column = 0;
    }
    if (!isEnd) {
      carried += column++ == 0 && byte == '.' ? ".." : std::string(1, byte < 127 ? text[i] : '?');
    } else if (text.compare(i, 2, "\r\n") == 0) {
      ++i;
    }
  }
  return carried;
}

// Commands and header lines come in order, with nothing between them, and the mail ends where its
// dot stands alone.
inline void CheckDialogue(const std::string& said, bool isWhole) {
  std::istringstream lines(said);
  std::string line;
  for (const char* start : {"HELO ", "MAIL FROM:", "RCPT TO:", "DATA",
                            "MIME-Version: ", "From: ", "To: ", "Subject: ", "Content-type: "}) {
    Require(!std::getline(lines, line) || line.starts_with(start));
    if (line == "DATA" && lines.peek() == '\n') {
      lines.get();  // before a mail with attachments
    }
  }
  while (std::getline(lines, line) && line != ".") {
  }
  const bool hasQuit = static_cast<bool>(std::getline(lines, line));
  Require(!hasQuit || line == "QUIT");
  Require(!std::getline(lines, line));
  Require(!isWhole || hasQuit);
}

}  // namespace vask::fuzz

// In place of the system's: the host is in this program.
extern "C" int connect(int handle, const sockaddr*, socklen_t) {
  int ends[2];
  vask::fuzz::Require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends) == 0);
  dup2(ends[0], handle);
  close(ends[0]);
  vask::fuzz::ourHost = ends[1];
  vask::fuzz::Require(send(vask::fuzz::ourHost, vask::fuzz::ourReplies.data(),
                           vask::fuzz::ourReplies.size(), MSG_NOSIGNAL) >= 0);
  return shutdown(vask::fuzz::ourHost, SHUT_WR);
}

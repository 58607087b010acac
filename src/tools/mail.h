#pragma once

#include "platform/socket.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vask {

// How long a mail may take.
struct SMailLimits {
  std::chrono::milliseconds step{5'000};    // one line sent and its whole reply
  std::chrono::milliseconds whole{20'000};  // everything after the look-up of the host's name
};

// Sends one mail over plain SMTP, straight to the recipient's mail host. Blocks meanwhile, within
// its limits. The host's name and its replies are echoed to the standard output; errors go to the
// log. No name, address, subject or file name can add a header or a command of its own. The replies
// are not checked: the text is sent even if the host rejects the recipient.
//
//     mail.SetSender("Test program", "test@example.com");
//     mail.SetSubject("It broke");
//     mail.SetText("This is how");
//     mail.Send("developer@example.com");
class CMail {
 public:
  // A subject: one line.
  class CSubject {
   public:
    explicit CSubject(std::string_view text = {});
    const std::string& Get() const { return myText; }

   private:
    std::string myText;
  };

  // A text in the form that any mail host carries: each line ends with CR and LF, lines break at
  // 900 bytes, and bytes over 126 become "?".
  class CStringWarp {
   public:
    explicit CStringWarp(std::string_view text = {});
    const std::string& Get() const { return myText; }

   private:
    std::string myText;
  };

  explicit CMail(const SMailLimits& limits = {}) : myLimits(limits) {}

  // The mail host; empty, as at start: the recipient's domain.
  void SetHost(const std::string& host) { myHost = host; }
  // Outside 1 to 65535, and at start: 25.
  void SetPort(int port);
  int GetPort() const { return myServerAddress.port; }
  void SetSender(std::string_view name, const std::string& address);
  void SetSubject(std::string_view subject) { mySubject = CSubject(subject); }
  void SetText(std::string_view text) { myText = CStringWarp(text); }
  // The content is any bytes.
  void AddAttachment(std::string_view fileName, const std::string& content);
  // The name by which this host introduces itself; "localhost" at start.
  void SetHelo(std::string_view name);

  // Whether the whole dialogue took place. Sender and recipient need an "@" and may hold no blank,
  // control character, "<" or ">".
  bool Send(const std::string& recipient);
  // The first line of the error of the last Send(); empty for none.
  const std::string& GetError() const { return myError; }
  // The last reply of the host, cut to the reply buffer's size.
  const std::string& GetReply() const { return myReply; }

 private:
  static constexpr std::uint16_t kSmtpPort = 25;

  struct SAttachment {
    std::string fileName;
    std::string content;
  };

  bool CheckAddress(const std::string& address);
  bool Connect(const std::string& host);
  bool Talk(const std::string& recipient);
  std::string Compose(const std::string& recipient) const;
  std::string ComposeWithAttachments(const std::string& recipient) const;
  // The header lines that say from whom to whom about what.
  std::string ComposeHeader(const std::string& recipient) const;

  bool SendLine(const std::string& line, platform::Deadline deadline);
  // Sends a line and waits for the reply.
  bool Ask(const std::string& line);
  // Says goodbye and waits until the host has worked through everything and closes.
  bool Quit();
  platform::ESocketResult ReadReply(platform::Deadline deadline);
  // Moves what has been received to the reply; false when it ends before the reply does.
  bool TakeReply();

  // The deadline of a step that begins now.
  platform::Deadline StepDeadline() const;
  // Returns false.
  bool ReportError(const std::string& error);

  platform::CSocket mySocket;
  platform::SInternetAddress myServerAddress{kSmtpPort, 0};
  std::string myHost;              // empty: the recipient's domain
  std::size_t myReplySize = 1024;  // bytes
  std::string myReply;
  std::string myError;
  std::string mySenderName;
  std::string mySenderAddress;
  CSubject mySubject;
  CStringWarp myText;
  std::vector<SAttachment> myAttachments;
  std::string myHelo = "localhost";
  SMailLimits myLimits;
  platform::Deadline myDeadline;  // of the whole
  std::string myInput;            // received, not yet taken for a reply
  std::size_t myColumn = 0;       // of the reply's line that is being read
  bool myReplyGoesOn = false;     // a "-" follows the line's code
  bool myReplyIsWhole = true;     // the next byte begins a new one
};

}  // namespace vask

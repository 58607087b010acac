#include "tools/mail.h"

#include "tools/base64.h"
#include "utils/log/log.h"

#include <algorithm>
#include <iostream>

namespace vask {
namespace {

using platform::Deadline;
using platform::ESocketResult;

constexpr int kGreatestPort = 65535;
constexpr std::size_t kLineLimit = 900;  // bytes; hosts need not carry lines of more than 998
constexpr std::size_t kCodeLength = 3;   // digits in front of each line of a reply
constexpr unsigned char kDelete = 127;

bool IsControl(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code < ' ' || code == kDelete;
}

// The text in one line that ends nowhere before its end.
std::string WithoutControls(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(line, IsControl, ' ');
  return line;
}

bool IsAddress(std::string_view text) {
  return text.find('@') != std::string_view::npos && std::ranges::none_of(text, [](char character) {
           return IsControl(character) || character == ' ' || character == '<' || character == '>';
         });
}

// A line that is a lone dot would end the mail: the host takes one off each line that begins so.
std::string DoubleLeadingDots(std::string_view text) {
  std::string doubled;
  for (const char character : text) {
    if (character == '.' && (doubled.empty() || doubled.back() == '\n')) {
      doubled += '.';
    }
    doubled += character;
  }
  return doubled;
}

}  // namespace

CMail::CSubject::CSubject(std::string_view text) : myText(WithoutControls(text)) {}

CMail::CStringWarp::CStringWarp(std::string_view text) {
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isLineEnd = text[i] == '\r' || text[i] == '\n';
    if (isLineEnd || column == kLineLimit) {
      myText += "\r\n";
      column = 0;
    }
    if (isLineEnd) {
      i += text.substr(i).starts_with("\r\n") ? 1 : 0;
      continue;
    }
    myText += static_cast<unsigned char>(text[i]) < kDelete ? text[i] : '?';
    ++column;
  }
}

void CMail::SetPort(int port) {
  const bool isPort = port >= 1 && port <= kGreatestPort;
  myServerAddress.port = isPort ? static_cast<std::uint16_t>(port) : kSmtpPort;
}

void CMail::SetSender(std::string_view name, const std::string& address) {
  mySenderName = WithoutControls(name);
  mySenderAddress = address;
}

void CMail::AddAttachment(std::string_view fileName, const std::string& content) {
  myAttachments.push_back({WithoutControls(fileName), content});
}

void CMail::SetHelo(std::string_view name) { myHelo = WithoutControls(name); }

bool CMail::Send(const std::string& recipient) {
  myError.clear();
  if (!CheckAddress(recipient) || !CheckAddress(mySenderAddress)) {
    return false;
  }
  const std::string host = myHost.empty() ? recipient.substr(recipient.find('@') + 1) : myHost;
  std::cout << host << "\n" << std::flush;
  const bool sent = Connect(host) && Talk(recipient);
  mySocket.Close();
  return sent;
}

bool CMail::CheckAddress(const std::string& address) {
  return IsAddress(address) ||
         ReportError("The email address " + address + " is not a valid email address");
}

bool CMail::Connect(const std::string& host) {
  const std::string failure = "Error couldn't connect to host " + host + " ";
  const auto address = platform::LookUpHost(host);
  if (!address) {
    return ReportError(failure);
  }
  if (!mySocket.Open()) {
    return ReportError("Error on creating socket AF_INET");
  }
  myDeadline = Deadline::clock::now() + myLimits.whole;
  myServerAddress.host = *address;
  return mySocket.Connect(myServerAddress, StepDeadline()) || ReportError(failure);
}

bool CMail::Talk(const std::string& recipient) {
  myInput.clear();
  myReply.clear();
  myColumn = 0;
  myReplyGoesOn = false;
  myReplyIsWhole = true;
  // The greeting. Without one the dialogue goes on.
  ReadReply(StepDeadline());
  const std::string message =
      myAttachments.empty() ? Compose(recipient) : ComposeWithAttachments(recipient);
  return Ask("HELO " + myHelo + "\r\n") && Ask("MAIL FROM:" + mySenderAddress + "\r\n") &&
         Ask("RCPT TO:" + recipient + "\r\n") && Ask("DATA\r\n") &&
         SendLine(DoubleLeadingDots(message), StepDeadline()) && Ask(".\r\n") && Quit();
}

std::string CMail::Compose(const std::string& recipient) const {
  return "MIME-Version: 1.0\r\n" + ComposeHeader(recipient) +
         "Content-type: text/plain; charset=US-ASCII\r\n\r\n" + myText.Get() + "\r\n\r\n\r\n";
}

std::string CMail::ComposeWithAttachments(const std::string& recipient) const {
  std::string message = "\r\nMIME-Version: 1.0\r\n" + ComposeHeader(recipient) +
                        "Content-type: multipart/mixed; boundart=\"stringiboundi\"\r\n"
                        "--stringiboundi\r\n"
                        "Content-type: text/plain; charset=\"us-ascii\"\r\n"
                        "Content-Transfer-Encoding: quoted-printable\r\n" +
                        myText.Get() + "\r\n\r\n";
  for (const SAttachment& attachment : myAttachments) {
    message += "--stringiboundi\r\n";
    message += "Content-Type: application/octet-stream; name=\"" + attachment.fileName + "\"\r\n";
    message += "Content-Transfer-Encoding: base64\r\n";
    message += "Content-Disposition: attachment; filename=\"" + attachment.fileName + "\"\r\n\r\n";
    message += EncodeBase64(attachment.content) + "\r\n";
  }
  return message + "--stringiboundi\r\n";
}

std::string CMail::ComposeHeader(const std::string& recipient) const {
  return "From: " + mySenderName + " <" + mySenderAddress + ">\r\n" +
         "To: " + recipient.substr(0, recipient.find('@')) + " <" + recipient + ">\r\n" +
         "Subject: " + mySubject.Get() + "\r\n";
}

bool CMail::SendLine(const std::string& line, Deadline deadline) {
  return mySocket.Send(line, deadline) || ReportError("Error on sending line: " + line);
}

bool CMail::Ask(const std::string& line) {
  const Deadline deadline = StepDeadline();
  return SendLine(line, deadline) && (ReadReply(deadline) == ESocketResult::kDone ||
                                      ReportError("Error on sending line: " + line));
}

bool CMail::Quit() {
  const std::string line = "QUIT\r\n";
  const Deadline deadline = StepDeadline();
  if (!SendLine(line, deadline)) {
    return false;
  }
  const ESocketResult goodbye = ReadReply(deadline);
  // A slow host may still be sending earlier replies, and drops the mail when its reader is gone.
  while (mySocket.Receive(myInput, deadline) == ESocketResult::kDone) {
  }
  return goodbye != ESocketResult::kTimeout || ReportError("Error on sending line: " + line);
}

ESocketResult CMail::ReadReply(Deadline deadline) {
  while (!TakeReply()) {
    const ESocketResult result = mySocket.Receive(myInput, deadline);
    if (result != ESocketResult::kDone) {
      return result;
    }
  }
  std::cout << myReply << std::flush;
  return ESocketResult::kDone;
}

bool CMail::TakeReply() {
  for (std::size_t i = 0; i < myInput.size(); ++i) {
    if (myReplyIsWhole) {
      myReply.clear();
      myReplyIsWhole = false;
    }
    const char character = myInput[i];
    if (myReply.size() < myReplySize) {
      myReply += character;
    }
    myReplyGoesOn = myColumn == kCodeLength ? character == '-' : myReplyGoesOn;
    ++myColumn;
    if (character == '\n') {
      myReplyIsWhole = !myReplyGoesOn;
      myReplyGoesOn = false;
      myColumn = 0;
    }
    if (myReplyIsWhole) {
      myInput.erase(0, i + 1);
      return true;
    }
  }
  myInput.clear();
  return false;
}

Deadline CMail::StepDeadline() const {
  return std::min(Deadline::clock::now() + myLimits.step, myDeadline);
}

bool CMail::ReportError(const std::string& error) {
  myError = WithoutControls(error.substr(0, error.find_first_of("\r\n")));
  if (CLog* log = CLog::PeekSingletonPtr()) {
    const std::string line = error.ends_with("\r\n") ? error.substr(0, error.size() - 2) : error;
    log->Error() << WithoutControls(line) << "\n";
  }
  return false;
}

}  // namespace vask

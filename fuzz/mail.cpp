// A mail of any texts, to a host that sends any replies: what is said is one dialogue in whole
// lines, into which no text puts a line of its own. A good host gets the text.

#include "tools/mail.h"

#include "fuzz.h"
#include "models/mailhost.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <iostream>
#include <utility>

namespace {

constexpr const char* kGoodReplies =
    "220 Hello\r\n250 Yes\r\n250 Yes\r\n250 Yes\r\n354 Go\r\n250-It is\r\n250 in\r\n221 Bye\r\n";

std::string TakeText(FuzzedDataProvider& input) { return input.ConsumeRandomLengthString(2000); }

bool IsAddress(const std::string& text) {
  return std::ranges::all_of(text, [](unsigned char character) {
    return character > ' ' && character != 127 && character != '<' && character != '>';
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::cout.setstate(std::ios::failbit);  // where replies are echoed
  FuzzedDataProvider input(data, size);
  vask::CMail mail;
  mail.SetHost("127.0.0.1");
  mail.SetPort(input.ConsumeIntegral<int>());
  mail.SetHelo(TakeText(input));
  const std::string recipient = "you@" + TakeText(input);
  const std::string name = TakeText(input);
  const std::string sender = "me@here" + TakeText(input);
  mail.SetSender(name, sender);
  mail.SetSubject(TakeText(input));
  const std::string text = TakeText(input);
  mail.SetText(text);
  if (input.ConsumeBool()) {
    mail.AddAttachment(TakeText(input), TakeText(input));
  }
  const bool isGood = input.ConsumeBool();
  vask::fuzz::ourReplies = isGood ? kGoodReplies : input.ConsumeRemainingBytesAsString();
  const bool isSent = mail.Send(recipient);
  vask::fuzz::Require(isSent || !isGood || !IsAddress(recipient) || !IsAddress(sender));
  if (vask::fuzz::ourHost >= 0) {
    const std::string said = vask::fuzz::TakeWhatWasSaid();
    vask::fuzz::CheckDialogue(said, isSent);
    const std::string body = "\n" + vask::fuzz::Carried(text) + "\n";
    vask::fuzz::Require(!isSent || said.find(body) != std::string::npos);
    close(std::exchange(vask::fuzz::ourHost, -1));
  }
  vask::fuzz::Require(isSent == mail.GetError().empty() && mail.GetReply().size() <= 1024);
  return 0;
}

// A mail of any texts, to a host that sends any replies: what is said is one dialogue in whole
// lines, into which no text puts a line of its own.

#include "tools/mail.h"

#include "fuzz.h"
#include "models/mailhost.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <iostream>
#include <utility>

namespace {

std::string TakeText(FuzzedDataProvider& input) { return input.ConsumeRandomLengthString(2000); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::cout.setstate(std::ios::failbit);  // where replies are echoed
  FuzzedDataProvider input(data, size);
  vask::CMail mail;
  mail.SetHost("127.0.0.1");
  mail.SetPort(input.ConsumeIntegral<int>());
  mail.SetHelo(TakeText(input));
  const std::string recipient = TakeText(input);
  mail.SetSender(TakeText(input), "me@here" + TakeText(input));
  mail.SetSubject(TakeText(input));
  mail.SetText(TakeText(input));
  if (input.ConsumeBool()) {
    mail.AddAttachment(TakeText(input), TakeText(input));
  }
  vask::fuzz::ourReplies = input.ConsumeRemainingBytesAsString();
  const bool isSent = mail.Send("you@" + recipient);
  if (vask::fuzz::ourHost >= 0) {
    vask::fuzz::CheckDialogue(vask::fuzz::TakeWhatWasSaid(), isSent);
    close(std::exchange(vask::fuzz::ourHost, -1));
  }
  vask::fuzz::Require(isSent == mail.GetError().empty() && mail.GetReply().size() <= 1024);
  return 0;
}

#include "tools/mail.h"

#include "support/files.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "tools/assertmail.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

namespace vask {
namespace {

using namespace std::chrono_literals;
using Answers = std::vector<std::string>;

const std::string kOk = "250 ok\r\n", kGo = "354 go\r\n", kBye = "221 bye\r\n";
const Answers kGoodHost = {"220 hello\r\n", kOk, kOk, kOk, kGo, kOk, kBye};

// Runs the mail server's script, which describes the answers, and the client; returns what the
// server got.
std::string Serve(const Answers& answers, const std::function<void(int port)>& client) {
  std::string text = test::SourcePath("tests/support/mailserver.py");
  for (const std::string& answer : answers) {
    text += " '" + answer + "'";
  }
  std::FILE* server = popen(text.c_str(), "r");
  int port = 0;
  EXPECT_EQ(std::fscanf(server, "%d%*c", &port), 1);
  client(port);
  text.resize(10'000'000);
  text.resize(std::fread(text.data(), 1, text.size(), server));
  pclose(server);
  return text;
}

TEST(Mail, ReportsAnAssertionAsTheConsolesVariablesSay) {
  const int count = 3;
  std::string name = "h\x7F\xA9";
  CAssertion assertion("count < 3", "a.cpp", 7, "Too many");
  assertion.Watch("count, name", count, name);
  CApplicationFactory::DeleteSingleton();
  EXPECT_EQ(MailAssertion(assertion, ""), "The email address  is not a valid email address");
  EXPECT_EQ(CApplicationFactory::GetSingleton().PeekConsole(), nullptr);
  const std::string type = typeid(name).name(), manyX(900, 'x');
  const auto mailed = [&](const std::string& settings) {
    return Serve(kGoodHost, [&](int port) {
      test::Execute("mail_port = " + std::to_string(port) + ";" + settings);
      EXPECT_EQ(MailAssertion(assertion, ".\n..two\rthree\r\n" + manyX + "x"), "");
    });
  };
  EXPECT_EQ(mailed("mail_recipient = dev@localhost; mail_sender = \"me@here\""),
            "HELO localhost\r\nMAIL FROM:me@here\r\nRCPT TO:dev@localhost\r\nDATA\r\n"
            "MIME-Version: 1.0\r\nFrom: Cassert test program <me@here>\r\n"
            "To: dev <dev@localhost>\r\nSubject: BUGBUG: Cassert test program\r\n"
            "Content-type: text/plain; charset=US-ASCII\r\n\r\nToo many\r\n\r\n"
            "count < 3 (a.cpp:7)\r\n\r\nconst i count = 3\r\n" +
                type + " name = h??\r\n\r\n..\r\n...two\r\nthree\r\n" + manyX +
                "\r\nx\r\n\r\n\r\n.\r\nQUIT\r\nclosed in order");
  testing::internal::CaptureStdout();
  EXPECT_TRUE(mailed("mail_recipient = a@b; mail_sender = ; mail_helo = c; mail_host = 127.0.0.1")
                  .starts_with("HELO c\r\nMAIL FROM:brumble@localhost\r\nRCPT TO:a@b\r\n"));
  EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("127.0.0.1\n220 "));
}

TEST(Mail, CarriesAttachmentsWholeAndLetsNoTextAddALine) {
  const std::string got = Serve(kGoodHost, [](int port) {
    CMail mail({.step = 60s, .whole = 60s});
    mail.SetHost("127.0.0.1");
    mail.SetPort(0x10000 + port);
    EXPECT_EQ(mail.GetPort(), 25);
    mail.SetPort(port);
    mail.SetHelo("here\r\nRCPT TO:all@b");
    mail.SetSender("Me\nBcc: all", "me@a");
    mail.SetSubject("Sub\r\n.\r\nject");
    mail.SetText("Text");
    mail.AddAttachment("f\x7F\r\n.txt", std::string(58, 'i'));
    EXPECT_TRUE(mail.Send("you@b"));
  });
  EXPECT_EQ(got,
            "HELO here  RCPT TO:all@b\r\nMAIL FROM:me@a\r\nRCPT TO:you@b\r\nDATA\r\n\r\n"
            "MIME-Version: 1.0\r\nFrom: Me Bcc: all <me@a>\r\nTo: you <you@b>\r\n"
            "Subject: Sub  .  ject\r\n"
            "Content-type: multipart/mixed; boundart=\"stringiboundi\"\r\n--stringiboundi\r\n"
            "Content-type: text/plain; charset=\"us-ascii\"\r\n"
            "Content-Transfer-Encoding: quoted-printable\r\nText\r\n\r\n--stringiboundi\r\n"
            "Content-Type: application/octet-stream; name=\"f   .txt\"\r\n"
            "Content-Transfer-Encoding: base64\r\n"
            "Content-Disposition: attachment; filename=\"f   .txt\"\r\n\r\n"
            "aWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlp\r\n"
            "aQ==\r\n--stringiboundi\r\n.\r\nQUIT\r\nclosed in order");
}

TEST(Mail, GetsAlongWithBadHosts) {
  constexpr SMailLimits kPatient = {.step = 60s, .whole = 60s}, kHasty = {.step = 2s, .whole = 60s};
  // The last reply and the error; a server that gets a whole mail sees a connection end in order.
  const auto send = [](const Answers& answers, const SMailLimits& limits) {
    const test::CLogCapture log;
    CMail mail(limits);
    mail.SetHost("localhost");
    const std::string got = Serve(answers, [&](int port) {
      mail.SetPort(port);
      const auto start = std::chrono::steady_clock::now();
      mail.SetSender("Test program", "test@example.com");
      mail.SetSubject("It broke");
      mail.SetText("This is how");
      mail.Send("developer@example.com");
      EXPECT_LT(std::chrono::steady_clock::now() - start, 50s);
    });
    EXPECT_TRUE(got.ends_with("QUIT\r\nclosed in order") || !log.Text().empty()) << got;
    return mail.GetReply() + log.Text();
  };
  const std::string lost = "Error on sending line: ";
  EXPECT_EQ(send({kOk, kOk, "close"}, kPatient), kOk + lost + "MAIL FROM:test@example.com\n");
  EXPECT_EQ(send({kOk, kOk, kOk, kOk, kGo + "close"}, kPatient), kGo + lost + ".\n");
  EXPECT_EQ(send({"", "hang"}, kHasty), lost + "HELO localhost\n");
  EXPECT_EQ(send({kOk, kOk, "drip"}, kHasty).substr(0, 1), "2");
  EXPECT_EQ(send({kOk, kOk, "drip"}, {.step = 60s, .whole = 2s}).substr(0, 1), "2");
  // The greeting, four lines up to DATA, ten of the mail and QUIT.
  EXPECT_EQ(send(Answers(16, "500 no\r\n"), kPatient), "500 no\r\n") << "to each line";
  EXPECT_EQ(send({kOk, "250-a\r\n2\r\n", "250-a\r\n250 c\r\n", kOk, kGo, kOk, kBye}, kPatient),
            kBye);
  EXPECT_EQ(send({"", kOk + kOk, kOk, kOk, kGo, kOk, kBye}, kHasty), kOk) << "greets late";
  EXPECT_EQ(send({kOk, kOk, kOk, kOk, kGo, kOk, kBye, "hang"}, kHasty), kBye);
  EXPECT_EQ(send({kOk, kOk, kOk, kOk, kGo, kOk, "hang"}, kHasty), kOk + lost + "QUIT\n");
}

TEST(Mail, SaysWhyItConnectsNowhere) {
  const auto complaint = [](const std::string& recipient, const std::string& sender) {
    const test::CLogCapture log;
    CMail mail;
    mail.SetPort(1);  // nobody listens there
    mail.SetSender("a", sender);
    EXPECT_FALSE(mail.Send(recipient));
    EXPECT_EQ(mail.GetError().find("DATA"), std::string::npos) << "after the first line";
    return log.Text();
  };
  const std::string good = "a@127.9.9.9", invalid = " is not a valid email address\n";
  for (const char* bad : {"nobody", "", "a b@c", "<a@b", "a@b>", "a@b\r\nDATA", "a@\x7F"}) {
    EXPECT_TRUE(complaint(bad, good).ends_with(invalid)) << bad;
    EXPECT_TRUE(complaint(good, bad).ends_with(invalid)) << bad;
  }
  EXPECT_EQ(complaint(good, good), "Error couldn't connect to host 127.9.9.9 \n");
  EXPECT_EQ(complaint("a@b@", good), "Error couldn't connect to host b@ \n");
}

}  // namespace
}  // namespace vask

#include "tools/mail.h"

#include "kernel/applicationfactory.h"
#include "support/logcapture.h"
#include "support/paths.h"
#include "tools/assertmail.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

namespace vask {
namespace {

using namespace std::chrono_literals;

// Runs the mail server's script, which describes the arguments, and the client; answers what the
// server got.
std::string Serve(const std::vector<std::string>& answers, const std::function<void(int)>& client) {
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
  CApplicationFactory* factory = CApplicationFactory::GetSingletonPtr();
  EXPECT_EQ(MailAssertion(assertion, ""), "The email address  is not a valid email address");
  EXPECT_EQ(factory->PeekConsole(), nullptr);
  CConsole* console = factory->GetConsole();
  const auto mailed = [&](const std::string& settings) {
    return Serve({}, [&](int port) {
      console->Execute("mail_port = " + std::to_string(port) + ";" + settings, false);
      EXPECT_EQ(MailAssertion(assertion, ".\n..two\rthree\r\n" + std::string(901, 'x')), "");
    });
  };
  // clang-format off
  EXPECT_EQ(mailed("mail_recipient = dev@localhost; mail_sender = \"me@here\""),
            "localhost me@here ['dev@localhost']\nMIME-Version: 1.0\r\nFrom: Cassert test program <me@here>\r\n"
            "To: dev <dev@localhost>\r\nSubject: BUGBUG: Cassert test program\r\n"
            "Content-type: text/plain; charset=US-ASCII\r\n\r\n"
            "Too many\r\n\r\ncount < 3 (a.cpp:7)\r\n\r\nconst i count = 3\r\n" +
            std::string(typeid(name).name()) + " name = h??\r\n\r\n"
            ".\r\n..two\r\nthree\r\n" + std::string(900, 'x') + "\r\nx\r\n\r\n\r\n");
  testing::internal::CaptureStdout();
  const std::string got = mailed("mail_recipient = a@b; mail_sender = ; mail_helo = c; mail_host = 127.0.0.1");
  EXPECT_TRUE(got.starts_with("c brumble@localhost ['a@b']\n")) << got;
  EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("127.0.0.1\n220 "));
  // clang-format on
}

TEST(Mail, CarriesAttachmentsWholeAndLetsNoTextAddALine) {
  const auto send = [](int port) {
    CMail mail({60s, 60s});
    mail.SetHost("127.0.0.1");
    mail.SetPort(0x10000 + port);
    EXPECT_EQ(mail.GetPort(), 25);
    mail.SetPort(port);
    mail.SetHelo("here\r\nRCPT TO:all@b");
    mail.SetSender("Me\nBcc: all", "me@a");
    mail.SetSubject("Sub\r\n.\r\nject");
    mail.SetText("Text");
    mail.AddAttachment("f\x7F\r\n.txt", std::string(5'700'001, 'i'));
    EXPECT_TRUE(mail.Send("you@b"));
  };
  // clang-format off
  std::string expected =
      "here  RCPT TO:all@b me@a ['you@b']\n\r\nMIME-Version: 1.0\r\nFrom: Me Bcc: all <me@a>\r\nTo: you <you@b>\r\n"
      "Subject: Sub  .  ject\r\nContent-type: multipart/mixed; boundart=\"stringiboundi\"\r\n--stringiboundi\r\n"
      "Content-type: text/plain; charset=\"us-ascii\"\r\nContent-Transfer-Encoding: quoted-printable\r\n"
      "Text\r\n\r\n--stringiboundi\r\nContent-Type: application/octet-stream; name=\"f   .txt\"\r\n"
      "Content-Transfer-Encoding: base64\r\nContent-Disposition: attachment; filename=\"f   .txt\"\r\n\r\n";
  // clang-format on
  for (int line = 0; line < 100'000; ++line) {
    expected += "aWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlpaWlp\r\n";
  }
  EXPECT_TRUE(Serve({}, send) == expected + "aQ==\r\n--stringiboundi\r\n");
}

TEST(Mail, RunsItsExample) {
  const std::string got = Serve({}, [](int port) {
    CMail mail;
    mail.SetHost("127.0.0.1");
    mail.SetPort(port);
    mail.SetSender("Test program", "test@example.com");
    mail.SetSubject("It broke");
    mail.SetText("This is how");
    mail.Send("developer@example.com");
  });
  EXPECT_TRUE(got.starts_with("localhost test@example.com ['developer@example.com']\n")) << got;
}

TEST(Mail, GetsAlongWithBadHosts) {
  const std::string ok = "250 ok\r\n", go = "354 go\r\n", bye = "221 bye\r\n";
  const std::string longLine = "250 " + std::string(5000, 'x') + "\r\n";
  // clang-format off
  const struct {
    std::vector<std::string> answers;
    std::string unanswered;  // the line of the error, empty for none
    std::string lastReply;
    SMailLimits limits = {60s, 60s};
  } kCases[] = {
      {{"", "close"}, "HELO localhost", "", {2s, 60s}},
      {{ok, ok, "close"}, "MAIL FROM:a@b", ok},
      {{ok, ok, ok, ok, go + "close"}, ".", go},
      {{"", "hang"}, "HELO localhost", "", {2s, 60s}},
      {{ok, ok, "drip"}, "MAIL FROM:a@b", "2", {2s, 60s}},
      {{ok, ok, "drip"}, "MAIL FROM:a@b", "2", {60s, 2s}},
      {std::vector<std::string>(4 + 9 + 2 + 1, "500 no\r\n"), "", "500 no\r\n"},  // also to each line of the mail
      {{ok, "250-a\r\n2\r\n", "250-a\r\n250-b\r\n250 c\r\n", ok, go, ok, bye}, "", bye},
      {{"", ok + ok, ok, ok, go, ok, bye}, "", ok, {2s, 60s}},  // greets late
      {{longLine, longLine, ok, ok, go, ok, longLine}, "", longLine.substr(0, 1024)},
      {{ok, ok, ok, ok, go, ok, bye, "hang"}, "", bye, {2s, 60s}},
      {{ok, ok, ok, ok, go, ok, "hang"}, "QUIT", ok, {2s, 60s}},
  };
  // clang-format on
  for (const auto& row : kCases) {
    SCOPED_TRACE(&row - kCases);
    const test::CLogCapture log;
    CMail mail(row.limits);
    mail.SetSender("a", "a@b");
    const bool isGood = row.unanswered.empty();
    const std::string got = Serve(row.answers, [&](int port) {
      mail.SetPort(port);
      const auto start = std::chrono::steady_clock::now();
      EXPECT_EQ(mail.Send("dev@localhost"), isGood);
      EXPECT_LT(std::chrono::steady_clock::now() - start, 50s);
    });
    EXPECT_TRUE(mail.GetReply().starts_with(row.lastReply)) << mail.GetReply();
    EXPECT_LE(mail.GetReply().size(), 1024U);
    if (isGood) {
      EXPECT_TRUE(got.ends_with("QUIT\r\nclosed in order")) << got;
    }
    EXPECT_EQ(log.Text(), isGood ? "" : "Error on sending line: " + row.unanswered + "\n");
  }
}

TEST(Mail, SaysWhyItConnectsNowhere) {
  const auto complaint = [](const std::string& recipient, const std::string& sender) {
    const test::CLogCapture log;
    CMail mail;
    mail.SetPort(1);  // nobody listens there
    mail.SetSender("a", sender);
    EXPECT_FALSE(mail.Send(recipient));
    EXPECT_TRUE(log.Text().starts_with(mail.GetError()));
    EXPECT_EQ(mail.GetError().find("DATA"), std::string::npos) << "behind the first line";
    EXPECT_EQ(log.Lines()[0].level, kLogError);
    return log.Text();
  };
  const std::string good = "a@127.9.9.9";
  for (const char* bad : {"nobody", "", "a b@c", "<a@b", "a@b>", "a@b\r\nDATA", "a@\x7F"}) {
    EXPECT_TRUE(complaint(bad, good).starts_with("The email address ")) << bad;
    EXPECT_TRUE(complaint(good, bad).ends_with(" is not a valid email address\n")) << bad;
  }
  EXPECT_EQ(complaint(good, good), "Error couldn't connect to host 127.9.9.9 \n");
  EXPECT_EQ(complaint("a@b@", good), "Error couldn't connect to host b@ \n");
}

}  // namespace
}  // namespace vask

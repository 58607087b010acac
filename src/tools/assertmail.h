#pragma once

#include "utils/assert.h"

#include <string>

namespace vask {

// Mails a report of the assertion, with the developer's own description behind it. Waits until it
// is sent, within the limits of CMail. Answers the first line of what went wrong, which also stands
// in the log; empty when nothing did. These variables of the application console are read, a pair
// of quotes around them taken off:
//
//   mail_recipient  to whom; empty is an error
//   mail_host       the mail host; empty: the recipient's domain
//   mail_port       outside 1 to 65535: 25
//   mail_sender     the sender's address; empty: "brumble@localhost"
//   mail_helo       the name by which this host introduces itself; empty: "localhost"
std::string MailAssertion(const CAssertion& assertion, const std::string& description);

}  // namespace vask

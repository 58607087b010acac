#pragma once

#include "utils/assert.h"

#include <string>

namespace vask {

// Mails a report of the assertion, followed by the developer's description. Waits until it is sent,
// within the limits of CMail. Returns the first line of the error, which is also logged; empty when
// there was none. It reads these variables of the application console, without quotes around them:
//
//   mail_recipient  to whom; empty is an error
//   mail_host       the mail host; empty: the recipient's domain
//   mail_port       outside 1 to 65535: 25
//   mail_sender     the sender's address; empty: "brumble@localhost"
//   mail_helo       the name by which this host introduces itself; empty: "localhost"
std::string MailAssertion(const CAssertion& assertion, const std::string& description);

}  // namespace vask

#include <gmock/gmock.h>

#include "toolkit/TransferMessages.h"

using enum toolkit::TransferFault;

TEST(TransferMessages, NameTheHostAndTheKindOfFailureWithoutBareNumbers) {
  const struct {
    toolkit::TransferFault fault;
    const char* text;  // a regular expression
  } rows[] = {
      {NameNotFound, "[^0-9]*“böx.example”[^0-9]* could not be found[.]"},
      {Refused, "[^0-9]*“böx.example” refused the connection on port 1701[.][^0-9]*"},
      {Unreachable, "[^0-9]*“böx.example” cannot be reached[^0-9]*: reason"},
      {TLSFailed, "No secure connection [(]TLS[)][^0-9]*“böx.example” on port 1701: reason"},
      {ConnectTimedOut, "[^0-9]*“böx.example” did not answer on port 1701: [^0-9]*not made within the time allowed[.]"},
      {ClosedEarly, "[^0-9]*“böx.example” closed the connection before its reply was complete[.]"},
      {NotHTTP, "[^0-9]*“böx.example” answered on port 1701 [^0-9]*not HTTP[.]"},
      {Proxy, "The proxy [^0-9]*“böx.example”[^0-9]*: reason"},
      {Other, "[^0-9]*“böx.example” failed: reason"},
      {BadURL, "The address of the server is not a valid one[.] Give a host name or an IP address, .*"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_THAT(toolkit::DescribeFailure({row.fault, "böx.example", 1701, "reason"}), testing::MatchesRegex(row.text));
    EXPECT_THAT(toolkit::DescribeFailure({row.fault, "böx.example", 1701, ""}), testing::MatchesRegex(".*[^ :,][.?]"));
  }
}

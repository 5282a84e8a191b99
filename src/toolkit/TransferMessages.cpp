#include "toolkit/TransferMessages.h"

namespace toolkit {
namespace {

std::string Quoted(const TransferFailure& failure) { return "“" + failure.Host + "”"; }

std::string AtPort(const TransferFailure& failure) { return " on port " + std::to_string(failure.Port); }

std::string Because(const TransferFailure& failure) { return failure.Detail.empty() ? "." : ": " + failure.Detail; }

}  // namespace

std::string DescribeFailure(const TransferFailure& failure) {
  const std::string host = Quoted(failure);
  switch (failure.Fault) {
    case TransferFault::BadURL:
      return "The address of the server is not a valid one. Give a host name or an IP address, such as "
             "“server.example.com” or “192.0.2.10”.";
    case TransferFault::NameNotFound:
      return "There is no server with the name " + host + ": the name could not be found.";
    case TransferFault::Refused:
      return "The server " + host + " refused the connection" + AtPort(failure) + ".";
    case TransferFault::Unreachable:
      return "The server " + host + " cannot be reached from here" + Because(failure);
    case TransferFault::TLSFailed:
      return "No secure connection (TLS) could be made to the server " + host + AtPort(failure) + Because(failure);
    case TransferFault::ConnectTimedOut:
      return "The server " + host + " did not answer" + AtPort(failure) +
             ": the connection was not made within the time allowed.";
    case TransferFault::Inactive:
      return "The server " + host + " stopped answering" + AtPort(failure) + ": nothing came within the time allowed.";
    case TransferFault::NoLongerAnswers:
      return "The server " + host + " no longer answers" + AtPort(failure) +
             ". Whether it received the request is not known.";
    case TransferFault::ClosedEarly:
      return "The connection to the server " + host + " was closed before its reply was complete.";
    case TransferFault::NotHTTP:
      return "The server " + host + " answered" + AtPort(failure) + " with something that is not HTTP.";
    case TransferFault::Proxy:
      return "The proxy on the way to the server " + host + " could not be used" + Because(failure);
    case TransferFault::TooLarge:
    case TransferFault::FileNotWritten:
    case TransferFault::DiskFull:
    case TransferFault::Other:
      break;
  }
  return "The exchange with the server " + host + " failed" + Because(failure);
}

}  // namespace toolkit

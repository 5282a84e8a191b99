#include "service/TessenServicesClient.h"

#include <optional>
#include <utility>

#include "toolkit/HTTPStatus.h"
#include "toolkit/JSON.h"
#include "toolkit/Text.h"

using toolkit::Dictionary;
using toolkit::RuntimeException;
using toolkit::Variant;

namespace {

std::string ReasonOf(const Dictionary& refusal) {
  const auto reason = refusal.find("_error");
  return reason == refusal.end() ? "The server refused the request and gave no reason." : reason->second.Text();
}

}  // namespace

TessenServicesClient::TessenServicesClient() { ValidateCertificates = false; }

const Variant& TessenServicesClient::Operator_Lookup(std::string_view key) const {
  static const Variant nil;
  const auto member = properties_.find(key);
  return member == properties_.end() ? nil : member->second;
}

void TessenServicesClient::Operator_Lookup(std::string_view key, toolkit::Date value) { Store(key, value); }

void TessenServicesClient::Operator_Lookup(std::string_view key, double value) {
  Store(key, boost::json::value(value));
}

void TessenServicesClient::Operator_Lookup(std::string_view key, std::int64_t value) {
  Store(key, boost::json::value(value));
}

void TessenServicesClient::Operator_Lookup(std::string_view key, std::string_view value) {
  Store(key, boost::json::value(value));
}

void TessenServicesClient::Operator_Lookup(std::string_view key, std::uint64_t value) {
  Store(key, boost::json::value(value));
}

void TessenServicesClient::Store(std::string_view key, Variant value) {
  properties_.insert_or_assign(std::string(key), std::move(value));
}

void TessenServicesClient::PressButton(std::string_view url, std::string_view buttonName) {
  if (url.empty()) {
    Error(RuntimeException("No Tessen Service URL was provided."));
    return;
  }
  if (buttonName.empty()) {
    Error(RuntimeException("No button name was provided."));
    return;
  }
  if (!IsConnected()) Begun();
  isAnswered_ = false;
  SetRequestContent(toolkit::GenerateJSON(properties_), "application/json");
  Send("POST", std::string(url) + "/" + toolkit::LowerCase(buttonName));
}

void TessenServicesClient::Event_PageReceived(const std::string& /*url*/, int status, std::string content) {
  Ended();
  if (const auto refusal = Accept(status, content)) {
    Error(RuntimeException(*refusal));
    return;
  }
  std::string().swap(content);  // may be large, and no handler needs it
  ButtonPressed();
}

std::optional<std::string> TessenServicesClient::Accept(int status, std::string_view content) {
  isAnswered_ = true;
  if (content.empty()) return "No data was returned from the Tessen Service.";
  try {
    if (status == toolkit::HTTPStatus::badRequest) return ReasonOf(toolkit::ParseJSON(content));
    properties_ = toolkit::ParseJSON(content);
    return std::nullopt;
  } catch (const RuntimeException& exception) {
    isAnswered_ = false;
    return "The server's reply cannot be read: " + exception.Message() + ".";
  }
}

void TessenServicesClient::Event_Error(const RuntimeException& error) {
  Ended();
  const bool isRefused = LastFault() == toolkit::TransferFault::Refused;
  Error(isRefused ? RuntimeException(error.Message() + " Is the panel service running there?") : error);
}

void TessenServicesClient::Event_FileReceived(const std::string&, int, const toolkit::FolderItem&) {}
void TessenServicesClient::Event_HeadersReceived(const std::string&, int) {}
void TessenServicesClient::Event_ReceiveProgress(std::uint64_t, std::optional<std::uint64_t>) {}
void TessenServicesClient::Event_SendProgress(std::uint64_t, std::uint64_t) {}

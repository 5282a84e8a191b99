#include "service/TessenServicesClient.h"

#include <optional>
#include <utility>

#include "toolkit/JSON.h"
#include "toolkit/Text.h"

using toolkit::Dictionary;
using toolkit::RuntimeException;
using toolkit::Variant;

namespace {

constexpr int statusOfRefusal = 400;

/// Why the reply is refused, for the user; nothing if it can be taken.
std::optional<std::string> Refusal(int status, std::string_view content) {
  if (content.empty()) return "No data was returned from the Tessen Service.";
  try {
    if (status != statusOfRefusal) {
      toolkit::CheckJSON(content);
      return std::nullopt;
    }
    const Dictionary reply = toolkit::ParseJSON(content);
    const auto reason = reply.find("_error");
    return reason == reply.end() ? "The server refused the request and gave no reason." : reason->second.Text();
  } catch (const RuntimeException& exception) {
    return "The server's reply cannot be read: " + exception.Message() + ".";
  }
}

}  // namespace

TessenServicesClient::TessenServicesClient() { ValidateCertificates = false; }

const Variant& TessenServicesClient::Operator_Lookup(std::string_view key) const {
  static const Variant nil;
  const auto member = pDictionary_Properties.find(key);
  return member == pDictionary_Properties.end() ? nil : member->second;
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
  pDictionary_Properties.insert_or_assign(std::string(key), std::move(value));
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
  SetRequestContent(toolkit::GenerateJSON(pDictionary_Properties), "application/json");
  Send("POST", std::string(url) + "/" + toolkit::LowerCase(buttonName));
}

// A reply may be large, so the values it replaces go before its own are built, and its text before the handler runs.
void TessenServicesClient::Event_PageReceived(const std::string& /*url*/, int status, std::string content) {
  if (const auto refusal = Refusal(status, content)) {
    Error(RuntimeException(*refusal));
    return;
  }
  pDictionary_Properties.clear();
  pDictionary_Properties = toolkit::ParseJSON(content);
  std::string().swap(content);
  ButtonPressed();
}

void TessenServicesClient::Event_Error(const RuntimeException& error) { Error(error); }

void TessenServicesClient::Event_FileReceived(const std::string&, int, const toolkit::FolderItem&) {}
void TessenServicesClient::Event_HeadersReceived(const std::string&, int) {}
void TessenServicesClient::Event_ReceiveProgress(std::uint64_t, std::optional<std::uint64_t>) {}
void TessenServicesClient::Event_SendProgress(std::uint64_t, std::uint64_t) {}

#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/Event.h"
#include "toolkit/HTTPSocket.h"
#include "toolkit/Listbox.h"
#include "toolkit/Variant.h"

/// One remote action of a panel service, modelled as a button: values are assigned by key, PressButton sends them, and
/// the reply's values are read by key from the same client.
///
/// Request and reply share one store. Sending does not clear it; an accepted reply replaces it; a failure leaves it
/// unchanged. So the values of a reply are sent with the next request, unless they are assigned again.
class TessenServicesClient final : public toolkit::HTTPSocket {
 public:
  /// Raised when a request starts and when it has ended, before the event that reports the outcome.
  toolkit::Event<> Begun;
  toolkit::Event<> Ended;
  /// A reply was accepted, and the store holds it.
  toolkit::Event<> ButtonPressed;
  /// The request was rejected before sending, or failed, or its reply was rejected. The message is for the user.
  toolkit::Event<const toolkit::RuntimeException&> Error;

  TessenServicesClient();

  /// Whether the last request was answered by a panel service, as far as can be told: with a JSON object, or nothing.
  [[nodiscard]] bool IsAnswered() const { return isAnswered_; }

  /// The value stored under `key`, nil if there is none. Valid until the next assignment or reply.
  [[nodiscard]] const toolkit::Variant& Operator_Lookup(std::string_view key) const;
  void Operator_Lookup(std::string_view key, std::same_as<bool> auto value) { Store(key, boost::json::value(value)); }
  void Operator_Lookup(std::string_view key, toolkit::Date value);
  void Operator_Lookup(std::string_view key, double value);
  void Operator_Lookup(std::string_view key, std::int64_t value);
  void Operator_Lookup(std::string_view key, std::string_view value);
  void Operator_Lookup(std::string_view key, std::uint64_t value);

  /// POSTs the store as a JSON object to `url` + "/" + `buttonName` in lower case and returns at once. Raises
  /// ButtonPressed or Error, exactly once; Error at once if one of the two texts is empty. A request that is still
  /// running is abandoned: its reply is never delivered.
  void PressButton(std::string_view url, std::string_view buttonName);

  /// Fills `list`, which must be empty, with the rows of a service table: an object whose keys are the row numbers from
  /// "0" without gaps, and whose values are arrays of cells. With headings, the member "0" holds these; without, the
  /// list's heading row is turned off. Cells are converted to text as by toolkit::ToText.
  ///
  /// Throws a RuntimeException that names the row that is missing or is not an array; nothing has been changed then.
  static void TessenListBox_FillDesktopListBox(toolkit::Listbox& list, const boost::json::object& table,
                                               bool hasHeadings);
  /// The data rows of a service table in their order, without the headings. The rows belong to `table`. Throws like
  /// TessenListBox_FillDesktopListBox.
  [[nodiscard]] static std::vector<const boost::json::array*> TessenListBox_FillArray(const boost::json::object& table,
                                                                                      bool hasHeadings);

 protected:
  void Event_Error(const toolkit::RuntimeException& error) override;
  void Event_FileReceived(const std::string& url, int status, const toolkit::FolderItem& file) override;
  void Event_HeadersReceived(const std::string& url, int status) override;
  void Event_PageReceived(const std::string& url, int status, std::string content) override;
  void Event_ReceiveProgress(std::uint64_t bytesReceived, std::optional<std::uint64_t> totalBytes) override;
  void Event_SendProgress(std::uint64_t bytesSent, std::uint64_t totalBytes) override;

 private:
  /// Replaces the store by the reply's values. Returns why the reply is rejected, for the user, or std::nullopt.
  std::optional<std::string> Accept(int status, std::string_view content);
  void Store(std::string_view key, toolkit::Variant value);

  toolkit::Dictionary properties_;
  bool isAnswered_ = false;
};

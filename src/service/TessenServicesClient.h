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

/// One remote action of a panel service, as a button that is pressed: values are assigned by key, PressButton sends
/// them, and the reply's values are read by key from the same client.
///
/// There is one store for both directions. Sending does not empty it; a reply that is accepted replaces it; every
/// failure leaves it as it was. So the values of a reply travel with the next request, unless they are assigned anew.
class TessenServicesClient final : public toolkit::HTTPSocket {
 public:
  /// There is a request under way from Begun to Ended, which comes before the event that tells how it ended.
  toolkit::Event<> Begun;
  toolkit::Event<> Ended;
  /// A reply was accepted, and the store holds it.
  toolkit::Event<> ButtonPressed;
  /// The request was refused before sending, or failed, or its reply was refused. The message is for the user.
  toolkit::Event<const toolkit::RuntimeException&> Error;

  TessenServicesClient();

  /// The value stored under `key`, nil if there is none. Valid until the next assignment or reply.
  [[nodiscard]] const toolkit::Variant& Operator_Lookup(std::string_view key) const;
  void Operator_Lookup(std::string_view key, std::same_as<bool> auto value) { Store(key, boost::json::value(value)); }
  void Operator_Lookup(std::string_view key, toolkit::Date value);
  void Operator_Lookup(std::string_view key, double value);
  void Operator_Lookup(std::string_view key, std::int64_t value);
  void Operator_Lookup(std::string_view key, std::string_view value);
  void Operator_Lookup(std::string_view key, std::uint64_t value);

  /// POSTs the store as a JSON object to `url`, a slash and `buttonName` in small letters, and returns at once; then
  /// raises ButtonPressed or Error, once. Raises Error at once if one of the two texts is empty. A request that is
  /// still under way is abandoned: its reply is never delivered.
  void PressButton(std::string_view url, std::string_view buttonName);

  /// Fills `list`, which must be empty, with the rows of a service table: an object whose keys are the row numbers from
  /// "0" without gaps, and whose values are arrays of cells. With headings, the member "0" holds these; without, the
  /// list's heading row is turned off. Cells convert to text by the rules of toolkit::ToText.
  ///
  /// Throws a RuntimeException that tells which row is missing or is no array, before anything was changed.
  static void TessenListBox_FillDesktopListBox(toolkit::Listbox& list, const boost::json::object& table,
                                               bool hasHeadings);
  /// The data rows of a service table in their order, without the headings. The rows belong to `table`. Throws as
  /// TessenListBox_FillDesktopListBox does.
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
  /// Makes the reply's values the store. Returns why it is refused, for the user; nothing if it was taken.
  std::optional<std::string> Accept(int status, std::string_view content);
  void Store(std::string_view key, toolkit::Variant value);

  toolkit::Dictionary properties_;
};

// A reply of a panel service: the first byte selects the status, the rest is the body, which may be a table.

#include "service/TessenServicesClient.h"
#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/JSON.h"
#include "toolkit/Listbox.h"

namespace {

void Fill(std::string_view body) {
  toolkit::Listbox list;
  list.ColumnCount(3);
  try {
    const auto item = toolkit::ParseJSONItem(body);
    const boost::json::object* table = item->if_object();
    if (table == nullptr) return;
    TessenServicesClient::TessenListBox_FillDesktopListBox(list, *table, false);
    Require(static_cast<std::size_t>(list.ListCount()) == table->size(), "each row is there");
  } catch (const toolkit::RuntimeException&) {
    Require(list.ListCount() == 0, "a table that is refused fills nothing");
  }
}

}  // namespace

void FuzzOne(std::string_view input) {
  static HandPlatform platform;
  platform.Requests.clear();
  TessenServicesClient client;
  int accepted = 0;
  int refused = 0;
  client.ButtonPressed = [&] { ++accepted; };
  client.Error = [&](const toolkit::RuntimeException&) { ++refused; };
  client.Operator_Lookup("kept", "value");
  client.PressButton("https://h:1701/api", "list");
  const bool isRefusal = !input.empty() && (input[0] & 1) != 0;
  platform.LastRequest().Reply(isRefusal ? 400 : 200, input.substr(input.empty() ? 0 : 1));
  Require(accepted + refused == 1, "one event comes of a reply");
  Require(accepted == 1 || client.Operator_Lookup("kept").Text() == "value", "a failure leaves the store as it was");
  Require(!isRefusal || accepted == 0, "a refusal is never accepted");
  client.PressButton("https://h:1701/api", "list");
  platform.LastRequest().Reply(200, platform.LastRequest().Request.Body);
  Require(accepted + refused == 2, "what is sent can be read");
  Fill(input.substr(input.empty() ? 0 : 1));
}

// A reply of a panel service: the first byte chooses the status, the rest is the body.

#include "service/TessenServicesClient.h"
#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"

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
}

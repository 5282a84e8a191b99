#include "tests/servercontrol/ServerFixture.h"

using namespace testing;
namespace json = boost::json;

using ServerWindow = ServerFixture;

TEST_F(ServerWindow, AsksForBothTabsAtTheAddressOfTheReportedName) {
  server->Network_Hostname = "HTTPS://reported";
  server->Network_IPv4 = "192.0.2.1";
  platform.Requests.clear();
  OpenAgain();
  for (const bool hasBrowser : {true, false}) {
    platform.HasBrowser = hasBrowser;
    Press(&wServer::btn_overview_webui);
  }
  EXPECT_THAT(platform.OpenedURLs, Each("HTTPS://reported:1701"));
  EXPECT_THAT(platform.Messages, ElementsAre(EndsWith("\nHTTPS://reported:1701"))) << "for want of a browser";
  Texts asked;
  for (const auto& sent : platform.Requests) asked.push_back(sent->Request.URL);
  const std::string base = "HTTPS://reported:1701/api/v1/";
  EXPECT_THAT(asked, ElementsAre(base + "system/information", base + "containers/list"));
}

TEST_F(ServerWindow, EveryCallSendsItsKeysAndWhatItsLastReplyLeft) {
  const json::object left =
      json::parse(R"({"status":"s","kept":[{},2.5,null,true],"username":"x","password":null,"log":[]})").as_object();
  for (const auto& [path, button] : calls) {
    SCOPED_TRACE(path);
    const auto send = [&, &path = path, &button = button]() -> SentRequest& {
      if (NamesContainer(path)) Fill({"other", "wéb \"1\" 🦊"}, 1);
      const std::size_t before = platform.Requests.size();
      Press(button);
      EXPECT_EQ(platform.Requests.size(), before + 1);
      return platform.LastRequest();
    };
    server->Username = "amy";
    OpenAgain();
    const bool isAskedAtFirst = path == "system/information" || path == "containers/list";
    SentRequest& first = isAskedAtFirst ? Sent(path) : send();
    json::object keys{{"username", "amy"}, {"password", "pw"}};
    if (NamesContainer(path)) keys["containerName"] = "wéb \"1\" 🦊";
    if (path == "containers/logs") keys["logCount"] = "20";
    EXPECT_EQ(Body(first), keys);
    EXPECT_EQ(first.Request.URL, "https://srv:1701/api/v1/" + path);
    EXPECT_EQ(first.Request.Certificates, toolkit::CertificateCheck::Skipped);
    first.Reply(200, json::serialize(left));
    server->Username = "ben";
    keys["username"] = "ben";
    keys.insert(left.begin(), left.end());
    EXPECT_EQ(Body(send()), keys);
  }
}

TEST_F(ServerWindow, WhatCanBeDoneFollowsTheSelectedContainer) {
  const Texts names{
      "web", "service_dunmere", "service_dunmere2", "my service_dunmere", "Service_Dunmere", " service_dunmere", ""};
  const int count = static_cast<int>(names.size());
  EXPECT_EQ(Usable(), "000000");
  for (int from = -1; from < count; ++from) {
    Fill(names);
    for (int step = 0; step < 2 * count + 3; ++step) {
      const int row = step % 2 == 0 ? from : step / 2 - 1;
      window->list_containers.Select(row);
      EXPECT_EQ(Usable(), row == -1 ? "000000" : row == 1 ? "100000" : "111111") << step << " from " << from;
    }
    Press(&wServer::btn_containers_refresh);
    EXPECT_EQ(Usable(), "000000") << "refreshed from " << from;
    EXPECT_EQ(window->list_containers.ListCount(), 0);
  }
  const std::size_t before = platform.Requests.size();
  for (const auto& [path, button] : calls) {
    if (NamesContainer(path)) ((*window).*button).Action();
  }
  EXPECT_EQ(platform.Requests.size(), before) << "no row was selected";
  EXPECT_FALSE(window->btn_containers_backup.Visible());
}

TEST_F(ServerWindow, TheOverviewShowsEveryFactAsItCame) {
  const std::string reply =
      R"({"networkIPv4":"192.0.2.1","systemName":"<b>edge</b>","systemDescription":"","cpuCount":8,
      "systemDataCenterLocation":"Linz\nEast","operatingSystemType":true,"operatingSystemKernelVersion":"6.1",
      "systemDockerVersion":-3,"dunmereVersion":{"a":[1,"b"]},"cpuArchitecture":[1,null],"cpuLoad":12.5,
      "memoryTotal":18446744073709551615,"memoryAvailable":null,"storageDiskSize":"40 GB","storageUsed":false,
      "storageUsedPercentage":0.1,"storageAvailable":"日本","networkIPv6":"::1","unknown":1})";
  // clang-format off
  const Texts expected{
      "System Name:\t<b>edge</b>", "System Description:\t", "Data Center Location:\tLinz\nEast",
      "Operating System:\ttrue", "Kernel Version:\t6.1", "Docker Version:\t-3", "Dunmere Version:\t{\"a\":[1,\"b\"]}",
      "CPU Architecture:\t[1,null]", "CPU Count:\t8", "CPU Load %:\t12.5", "Memory Total:\t18446744073709551615",
      "Memory Available:\t", "Storage Disk Size:\t40 GB", "Storage Used:\tfalse", "Storage Used %:\t0.1",
      "Storage Available:\t日本", "Network Hostname:\t", "Network IPv4 Address:\t192.0.2.1",
      "Network IPv6 Address:\t::1"};
  // clang-format on
  Sent("system/information").Reply(503, reply);
  EXPECT_EQ(RowsOf(window->list_overview), expected);
  Press(&wServer::btn_overview_refresh);
  EXPECT_THAT(RowsOf(window->list_overview), IsEmpty());
}

TEST_F(ServerWindow, ARebootIsAskedAboutFirst) {
  using Button = toolkit::DialogButton;
  for (const auto& [answer, closes, sent] : {std::tuple(Button::Cancel, false, 0U),
                                             {Button::Alternate, false, 0U},
                                             {Button::Action, false, 1U},
                                             {Button::Action, true, 0U}}) {
    platform.Requests.clear();
    platform.Answer = answer;
    platform.WhileMessageStands = [&, closes = closes] {
      EXPECT_THAT(platform.Requests, IsEmpty());
      if (closes) window->Close();
    };
    Press(&wServer::btn_overview_restart);
    EXPECT_THAT(platform.Requests, SizeIs(sent));
  }
  const toolkit::MessageDialog& dialog = platform.LastDialog;
  EXPECT_EQ(dialog.Icon, toolkit::DialogIcon::Caution);
  EXPECT_THAT(platform.Messages, Each("Are you sure you want to restart?"));
  EXPECT_EQ(dialog.Explanation, "All system services will be unavailable while the system restarts.");
  EXPECT_TRUE(dialog.ActionButton.Visible && dialog.CancelButton.Visible && !dialog.AlternateActionButton.Visible);
  EXPECT_EQ(dialog.ActionButton.Caption + "/" + dialog.CancelButton.Caption, "Restart/");
}

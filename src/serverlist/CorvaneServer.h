#pragma once

#include <string>

/// One server that the user has added: its name, its address and the credentials for it. Shared by the list of servers,
/// its row and every window that is open on it. Kept in memory only.
struct CorvaneServer {
  /// The host name that the server reported. All requests but the first are sent to it.
  std::string Network_Hostname;
  std::string Network_IPv4;
  std::string Password;
  std::string System_Name;
  std::string Username;
};

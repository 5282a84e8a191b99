#pragma once

#include <string>

/// One server that the user has added: what to call it, where to reach it, and the credentials to send. Shared between
/// the list of servers, its row and every window that is open on it. Lives in memory only.
struct CorvaneServer {
  /// What the server says its name is. Every request but the first goes there.
  std::string Network_Hostname;
  std::string Network_IPv4;
  std::string Password;
  std::string System_Name;
  std::string Username;
};

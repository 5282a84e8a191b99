#pragma once

#include <array>
#include <string_view>

/// The panel service's API as this program uses it: its calls, and the values of its replies.
namespace ControlAPI {

enum class Names { Nothing, Container };

/// One call: the service it belongs to, the button that is pressed, and whether the request names a container.
struct Call {
  std::string_view Path;
  std::string_view Button;
  Names Target;
};

inline constexpr std::string_view systemPath = "/api/v1/system";
inline constexpr std::string_view containersPath = "/api/v1/containers";

// clang-format off
inline constexpr Call information      {systemPath,     "information", Names::Nothing};
inline constexpr Call reboot           {systemPath,     "reboot",      Names::Nothing};
inline constexpr Call reload           {systemPath,     "reload",      Names::Nothing};
inline constexpr Call listContainers   {containersPath, "list",        Names::Nothing};
inline constexpr Call restartContainer {containersPath, "restart",     Names::Container};
inline constexpr Call startContainer   {containersPath, "start",       Names::Container};
inline constexpr Call stopContainer    {containersPath, "stop",        Names::Container};
inline constexpr Call backUpContainer  {containersPath, "backup",      Names::Container};
inline constexpr Call containerLogs    {containersPath, "logs",        Names::Container};

/// The container of the panel service itself, which answers all these calls.
inline constexpr std::string_view ownContainer = "service_dunmere";

/// One value of the reply to "information", with its label on the screen.
struct Fact {
  std::string_view Label;
  std::string_view Key;
};

inline constexpr std::array<Fact, 19> facts{{
    {"System Name:",          "systemName"},
    {"System Description:",   "systemDescription"},
    {"Data Center Location:", "systemDataCenterLocation"},
    {"Operating System:",     "operatingSystemType"},
    {"Kernel Version:",       "operatingSystemKernelVersion"},
    {"Docker Version:",       "systemDockerVersion"},
    {"Dunmere Version:",      "dunmereVersion"},
    {"CPU Architecture:",     "cpuArchitecture"},
    {"CPU Count:",            "cpuCount"},
    {"CPU Load %:",           "cpuLoad"},
    {"Memory Total:",         "memoryTotal"},
    {"Memory Available:",     "memoryAvailable"},
    {"Storage Disk Size:",    "storageDiskSize"},
    {"Storage Used:",         "storageUsed"},
    {"Storage Used %:",       "storageUsedPercentage"},
    {"Storage Available:",    "storageAvailable"},
    {"Network Hostname:",     "networkHostname"},
    {"Network IPv4 Address:", "networkIPv4"},
    {"Network IPv6 Address:", "networkIPv6"},
}};
// clang-format on

}  // namespace ControlAPI

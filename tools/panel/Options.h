#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

namespace panel {

/// The options of the command line, with their default values, which the help text shows.
struct Options {
  std::string Address = "127.0.0.1";
  std::uint64_t Port = 1701;  ///< 0: any free one.
  std::string Hostname;       ///< Empty: the address.
  std::string User = "admin";
  std::string Password = "corvane-demo";
  std::uint64_t Containers = 12;
  std::uint64_t LogLines = 500;  ///< Lines in the log of each container.
  std::chrono::milliseconds Delay{0};
  std::string Engine;  ///< "unix:" and the path of a container engine's socket; empty: invented containers.
  bool UntilStdinCloses = false;
  bool Help = false;
};

/// An invalid command line. The message is one line, without the program's name.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the arguments after the program's name, "--name value" or "--name=value". Throws UsageError.
[[nodiscard]] Options ParseOptions(std::span<const char* const> arguments);

/// The path in `engine`. Throws UsageError if there is none.
[[nodiscard]] std::string EngineSocketPath(const std::string& engine);

/// The address as a host in a URL: an IPv6 address in brackets.
[[nodiscard]] std::string HostInUrl(const std::string& address);

/// The text of --help.
[[nodiscard]] std::string HelpText();

}  // namespace panel

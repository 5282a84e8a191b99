#include "panel/Options.h"

#include <array>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <sys/un.h>
#include <variant>

#include "toolkit/Text.h"

namespace panel {
namespace {

using Text = std::string Options::*;
using Number = std::uint64_t Options::*;
using Milliseconds = std::chrono::milliseconds Options::*;
using Flag = bool Options::*;

struct Row {
  std::string_view Name;
  std::string_view Placeholder;  // Of the value; empty for a flag.
  std::string_view Help;
  std::variant<Text, Number, Milliseconds, Flag> Field;
  std::uint64_t Most = 0;  // The highest number.
};

// clang-format off
constexpr std::array rows{
  Row{"--address",            "ADDRESS", "listen on this address",                            &Options::Address},
  Row{"--port",               "PORT",    "listen on this port; 0 takes a free one",           &Options::Port, 65'535},
  Row{"--hostname",           "NAME",    "the host name to report; empty means the address",  &Options::Hostname},
  Row{"--user",               "NAME",    "the user name to ask for",                          &Options::User},
  Row{"--password",           "TEXT",    "the password to ask for",                           &Options::Password},
  Row{"--containers",         "COUNT",   "how many containers to invent",                     &Options::Containers, 1'000'000},
  Row{"--log-lines",          "COUNT",   "how many lines to invent for each container's log", &Options::LogLines, 100'000'000},
  Row{"--delay",              "MS",      "wait so many milliseconds before each reply",       &Options::Delay, 600'000},
  Row{"--engine",             "unix:PATH", "show this machine and the containers of its Docker-compatible engine,\n"
                                           "                        which listens on this socket, instead of invented ones",  &Options::Engine},
  Row{"--until-stdin-closes", "",        "end as soon as the standard input ends",            &Options::UntilStdinCloses},
  Row{"--help",               "",        "show this text",                                    &Options::Help},
};
// clang-format on

const Row& FindRow(std::string_view name) {
  for (const Row& row : rows) {
    if (row.Name == name) return row;
  }
  throw UsageError("there is no option '" + std::string(name) + "'; --help lists them");
}

std::uint64_t ParseNumber(const Row& row, std::string_view text) {
  const auto number = toolkit::ParseNumber<std::uint64_t>(text);
  if (!number || *number > row.Most) {
    throw UsageError(std::string(row.Name) + " takes a number from 0 to " + std::to_string(row.Most) + ", not '" +
                     std::string(text) + "'");
  }
  return *number;
}

void Set(Options& options, const Row& row, std::string_view value) {
  if (const auto* text = std::get_if<Text>(&row.Field)) options.*(*text) = value;
  if (const auto* number = std::get_if<Number>(&row.Field)) options.*(*number) = ParseNumber(row, value);
  if (const auto* time = std::get_if<Milliseconds>(&row.Field)) {
    options.*(*time) = std::chrono::milliseconds(ParseNumber(row, value));
  }
  if (const auto* flag = std::get_if<Flag>(&row.Field)) options.*(*flag) = true;
}

std::string DefaultOf(const Row& row) {
  const Options defaults;
  if (const auto* text = std::get_if<Text>(&row.Field)) return defaults.*(*text);
  if (const auto* number = std::get_if<Number>(&row.Field)) return std::to_string(defaults.*(*number));
  if (const auto* time = std::get_if<Milliseconds>(&row.Field)) return std::to_string((defaults.*(*time)).count());
  return {};
}

}  // namespace

std::string EngineSocketPath(const std::string& engine) {
  constexpr std::string_view scheme = "unix:";
  constexpr std::size_t longest = sizeof(sockaddr_un::sun_path) - 1;
  const bool isUnix = engine.compare(0, scheme.size(), scheme) == 0;
  if (!isUnix || engine.size() == scheme.size() || engine.size() - scheme.size() > longest) {
    throw UsageError("--engine takes 'unix:' and a path of at most " + std::to_string(longest) + " bytes, not '" +
                     engine + "'");
  }
  return engine.substr(scheme.size());
}

std::string HostInUrl(const std::string& address) {
  return address.find(':') == std::string::npos ? address : "[" + address + "]";
}

Options ParseOptions(std::span<const char* const> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    const std::size_t equals = argument.find('=');
    const Row& row = FindRow(argument.substr(0, equals));
    const bool isFlag = row.Placeholder.empty();
    if (equals != std::string_view::npos) {
      if (isFlag) throw UsageError(std::string(row.Name) + " takes no value");
      Set(options, row, argument.substr(equals + 1));
    } else if (isFlag) {
      Set(options, row, {});
    } else if (i + 1 < arguments.size()) {
      Set(options, row, arguments[++i]);
    } else {
      throw UsageError(std::string(row.Name) + " needs a value");
    }
  }
  return options;
}

std::string HelpText() {
  std::ostringstream text;
  text << "corvane-panel: a small panel service, for trying out and testing. It is not made for production:\n"
          "its certificate is made anew at each start and signed by itself, its password stands in the\n"
          "process list, and its containers are invented unless --engine names real ones.\n\n"
          "Usage: corvane-panel [OPTION]...\n\n";
  for (const Row& row : rows) {
    const std::string left = std::string(row.Name) + " " + std::string(row.Placeholder);
    text << "  " << std::left << std::setw(22) << left << row.Help;
    if (const std::string value = DefaultOf(row); !value.empty()) text << " [" << value << "]";
    text << "\n";
  }
  text << "\nThe first line of output is \"Listening on https://ADDRESS:PORT\". SIGTERM and SIGINT end the program.\n";
  return text.str();
}

}  // namespace panel

#include "support/PanelService.h"

#include <stdexcept>

#include "support/Measure.h"

namespace bench {
namespace {

std::vector<std::string> CommandOf(const std::vector<std::string>& options) {
  std::vector<std::string> command{BuiltProgram("corvane-panel"),
                                   "--address",
                                   "127.0.0.1",
                                   "--port",
                                   "0",
                                   "--user",
                                   std::string(PanelService::user),
                                   "--password",
                                   std::string(PanelService::password)};
  command.insert(command.end(), options.begin(), options.end());
  return command;
}

}  // namespace

PanelService::PanelService(const std::vector<std::string>& options) : program_(CommandOf(options)) {
  constexpr std::string_view greeting = "Listening on ";
  const std::string line = program_.ReadLine();
  if (!line.starts_with(greeting)) throw std::runtime_error("the panel service did not start: " + line);
  baseURL_ = line.substr(greeting.size());
}

PanelService ServiceElsewhere(const std::vector<std::string>& options) {
  const OnProcessor elsewhere(1);
  return PanelService(options);
}

std::string RequestBody(std::string_view members) {
  std::string body = R"({"username":")";
  body.append(PanelService::user).append(R"(","password":")").append(PanelService::password).append("\"");
  if (!members.empty()) body.append(",").append(members);
  return body.append("}");
}

std::string LogRequestBody(int count) {
  return RequestBody(R"("containerName":"web","logCount":")" + std::to_string(count) + "\"");
}

}  // namespace bench

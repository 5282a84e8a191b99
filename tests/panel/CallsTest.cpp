#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

#include "panel/DemoFleet.h"
#include "panel/Service.h"

namespace panel {
namespace {

namespace json = boost::json;

/// The calls in front of an invented server.
class Calls : public testing::Test {
 protected:
  Reply Answer(const std::string& call, json::object members = {}) {
    members.insert({{"username", "ann"}, {"password", "s3cret"}});
    return service.Answer("/api/v1/" + call, json::serialize(members));
  }
  json::object Body(const std::string& call, json::object members = {}) {
    return json::parse(Answer(call, std::move(members)).Body).as_object();
  }
  DemoFleet fleet{{.Containers = 15, .LogLines = 1200, .Hostname = "here"}};
  Service service{{.User = "ann", .Password = "s3cret"}, fleet};
};

TEST_F(Calls, RefusalsSayWhyAndChangeNothing) {
  const std::string wrong = "The username or the password is wrong.";
  const std::vector<std::tuple<std::string, json::object, std::string>> rows{
      {"containers/stop", {{"password", "S3cret"}, {"containerName", "web"}}, wrong},
      {"containers/stop", {{"username", nullptr}, {"containerName", "web"}}, wrong},
      {"containers/stop", {{"containerName", "Web"}}, "There is no container named \"Web\"."},
      {"system/stop", {{"containerName", "web"}}, "There is no such call."},
  };
  for (const auto& [call, members, error] : rows) {
    const Reply reply = Answer(call, members);
    EXPECT_EQ(json::parse(reply.Body), (json::value{{"_error", error}}));
    EXPECT_EQ(reply.Status, call == "system/stop" ? 404 : 400) << error;
  }
  for (const char* body : {"", "[{}]", "{", "{\"containerName\":\"web\xff\"}"}) {
    EXPECT_EQ(service.Answer("/api/v1/containers/stop", body).Body, R"({"_error":"The request is no JSON object."})");
  }
  EXPECT_EQ(Body("containers/stop", {{"containerName", "web"}}).at("status"), "web has been stopped.");
}

}  // namespace
}  // namespace panel

#include <gmock/gmock.h>

#include "serverlist/CorvaneClient.h"

TEST(CorvaneClient, SanitizesHostnames) {
  const std::pair<const char*, const char*> rows[] = {
      // clang-format off
      {"srv", "https://srv:1701"},                   {"https://srv", "https://srv:1701"},
      {"srv:1701", "https://srv:1701"},              {"https://srv:1701", "https://srv:1701"},
      {"HTTPS://srv", "HTTPS://srv:1701"},           {"[::1]:1701", "https://[::1]:1701"},
      {"http://srv", "https://http://srv:1701"},     {"srv:8080", "https://srv:8080:1701"},
      {"srv:17010", "https://srv:17010:1701"},       {"srv/", "https://srv/:1701"},
      {"https://srv:1701/", "https://srv:1701/:1701"}, {" https://srv ", "https:// https://srv :1701"},
      {"1701", "https://1701:1701"},                 {"", "https://:1701"},
      // clang-format on
  };
  for (const auto& [host, base] : rows) EXPECT_EQ(CorvaneClient::Sanitize_Hostname(host), base) << host;
}

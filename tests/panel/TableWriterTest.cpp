#include <boost/json.hpp>
#include <gtest/gtest.h>

#include "panel/TableWriter.h"

namespace panel {
namespace {

namespace json = boost::json;

TEST(TableWriter, WhatItWritesReadsBackAsItWas) {
  const std::string quoted = R"(a "quoted" C:\path)";
  const std::string longOne(5000, '"');
  TableWriter table("log");
  table.AddRow({quoted, "Zoë\t\x01\x7f"});
  table.AddRow({});
  table.AddRow({"", longOne, std::string_view("\0", 1)});
  const json::object expected{
      {"log",
       {{"0", {quoted, "Zoë\t\x01\x7f"}}, {"1", json::array()}, {"2", {"", longOne, json::string_view("\0", 1)}}}}};
  EXPECT_EQ(json::parse(table.Finish()), expected);

  EXPECT_EQ(TableWriter("containers").Finish(), R"({"containers":{}})");
}

}  // namespace
}  // namespace panel

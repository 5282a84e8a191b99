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
  table.AddRow({"", longOne});
  const json::object rows{{"0", {quoted, "Zoë\t\x01\x7f"}}, {"1", json::array()}, {"2", {"", longOne}}};
  EXPECT_EQ(json::parse(table.Finish()), (json::object{{"log", rows}}));
  EXPECT_EQ(TableWriter("containers").Finish(), R"({"containers":{}})");
}

}  // namespace
}  // namespace panel

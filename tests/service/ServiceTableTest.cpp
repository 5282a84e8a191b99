#include <string>
#include <vector>

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include "service/TessenServicesClient.h"

using Rows = std::vector<std::string>;

TEST(ServiceTable, IsReadByTheNumbersOfItsRowsWholeOrNotAtAll) {
  const std::tuple<const char*, bool, std::string, Rows, std::string> tables[] = {
      // clang-format off
      {"{}", false, "as/were", {}, ""},
      {R"({"0":[null]})", true, "/were", {}, ""},
      {R"({"1":["c","d"],"0":["a","b"]})", false, "as/were", {"a\tb", "c\td"}, ""},
      {R"({"2":["c"],"1":["a"],"0":[1,2,"beyond"]})", true, "1/2", {"a\t", "c\t"}, ""},
      {R"({"0":[1.50,true],"1":[null,-7],"2":[{"k":1},[2]]})", false, "as/were", {"1.5\ttrue", "\t-7", "{\"k\":1}\t[2]"}, ""},
      {R"({"10":[10],"9":[9],"8":[8],"7":[7],"6":[6],"5":[5],"4":[4],"3":[3],"2":[2],"1":[1],"0":[0]})", true, "0/were",
       {"1\t", "2\t", "3\t", "4\t", "5\t", "6\t", "7\t", "8\t", "9\t", "10\t"}, ""},
      {"{}", true, "", {}, "it has no row 0"},
      {R"({"0":["a"],"2":["b"]})", false, "", {}, "it has no row 1"},
      {R"({"0":["a"],"01":["b"]})", false, "", {}, "it has no row 1"},
      {R"({"0":"H","1":["a"]})", true, "", {}, "its row 0 is no row"},
      {R"({"0":["a"],"1":{"0":"b"}})", false, "", {}, "its row 1 is no row"},
      // clang-format on
  };
  for (const auto& [text, hasHeadings, headings, expected, complaint] : tables) {
    SCOPED_TRACE(text);
    const boost::json::object table = boost::json::parse(text).as_object();
    toolkit::Listbox list;
    list.ColumnCount(2).HasHeading(!hasHeadings);
    list.Heading(0, "as");
    list.Heading(1, "were");
    std::string fault;
    try {
      TessenServicesClient::TessenListBox_FillDesktopListBox(list, table, hasHeadings);
      const auto rows = TessenServicesClient::TessenListBox_FillArray(table, hasHeadings);
      ASSERT_EQ(rows.size(), expected.size());
      EXPECT_TRUE(rows.empty() || rows[0] == &table.at(hasHeadings ? "1" : "0").as_array());
    } catch (const toolkit::RuntimeException& exception) {
      fault = exception.Message();
    }
    const bool isTaken = complaint.empty();
    EXPECT_EQ(fault, isTaken ? "" : "The server's table cannot be shown: " + complaint + ".");
    Rows shown;
    for (int row = 0; row < list.ListCount(); ++row) shown.push_back(list.RowText(row));
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(list.Heading(0) + "/" + list.Heading(1), isTaken ? headings : "as/were");
    EXPECT_EQ(list.HasHeading(), hasHeadings == isTaken);
  }
}

#include <string>
#include <vector>

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include "service/TessenServicesClient.h"

using Rows = std::vector<std::string>;

TEST(ServiceTable, IsReadByTheNumbersOfItsRowsWholeOrNotAtAll) {
  const struct {
    const char* table;
    bool hasHeadings;
    std::string headings;
    Rows rows;
    std::string fault;
  } tables[] = {
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
  for (const auto& wanted : tables) {
    SCOPED_TRACE(wanted.table);
    const boost::json::object table = boost::json::parse(wanted.table).as_object();
    toolkit::Listbox list;
    list.ColumnCount(2).HasHeading(!wanted.hasHeadings);
    list.Heading(0, "as");
    list.Heading(1, "were");
    std::string fault;
    try {
      TessenServicesClient::TessenListBox_FillDesktopListBox(list, table, wanted.hasHeadings);
      const auto rows = TessenServicesClient::TessenListBox_FillArray(table, wanted.hasHeadings);
      ASSERT_EQ(rows.size(), wanted.rows.size());
      EXPECT_TRUE(rows.empty() || rows[0] == &table.at(wanted.hasHeadings ? "1" : "0").as_array());
    } catch (const toolkit::RuntimeException& exception) {
      fault = exception.Message();
    }
    const bool isTaken = wanted.fault.empty();
    EXPECT_EQ(fault, isTaken ? "" : "The server's table cannot be shown: " + wanted.fault + ".");
    Rows shown;
    for (int row = 0; row < list.ListCount(); ++row) shown.push_back(list.RowText(row));
    EXPECT_EQ(shown, wanted.rows);
    EXPECT_EQ(list.Heading(0) + "/" + list.Heading(1), isTaken ? wanted.headings : "as/were");
    EXPECT_EQ(list.HasHeading(), wanted.hasHeadings == isTaken);
  }
}

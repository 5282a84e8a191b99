#include <string>
#include <vector>

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>

#include "service/TessenServicesClient.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace json = boost::json;

TEST(ServiceTable, IsReadByTheNumbersOfItsRows) {
  const struct {
    const char* table;
    bool hasHeadings;
    std::vector<std::string> rows;
    const char* headings;
  } rows[] = {
      {"{}", false, {}, "as/were"},
      {R"({"0":["H","I"]})", true, {}, "H/I"},
      {R"({"0":[null]})", true, {}, "/were"},
      {R"({"1":["c","d"],"0":["a","b"]})", false, {"a\tb", "c\td"}, "as/were"},
      {R"({"2":["c"],"1":["a"],"0":[1,2,"beyond"]})", true, {"a\t", "c\t"}, "1/2"},
      {R"({"0":[],"1":["a","b","beyond",4],"2":["c"]})", false, {"\t", "a\tb", "c\t"}, "as/were"},
      {R"({"0":[1.50,true],"1":[null,-7],"2":[{"k":[1]},[2]]})",
       false,
       {"1.5\ttrue", "\t-7", "{\"k\":[1]}\t[2]"},
       "as/were"},
      {R"({"10":[10],"11":[11],"9":[9],"8":[8],"7":[7],"6":[6],"5":[5],"4":[4],"3":[3],"2":[2],"1":[1],"0":[0]})",
       false,
       {"0\t", "1\t", "2\t", "3\t", "4\t", "5\t", "6\t", "7\t", "8\t", "9\t", "10\t", "11\t"},
       "as/were"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.table);
    const json::object table = json::parse(row.table).as_object();
    toolkit::Listbox list;
    list.ColumnCount(2).HasHeading(!row.hasHeadings);
    list.Heading(0, "as");
    list.Heading(1, "were");
    TessenServicesClient::TessenListBox_FillDesktopListBox(list, table, row.hasHeadings);
    ASSERT_EQ(list.ListCount(), static_cast<int>(row.rows.size()));
    for (int index = 0; index < list.ListCount(); ++index) {
      EXPECT_EQ(list.RowText(index), row.rows[static_cast<std::size_t>(index)]);
    }
    EXPECT_EQ(list.Heading(0) + "/" + list.Heading(1), row.headings);
    EXPECT_EQ(list.HasHeading(), row.hasHeadings);
    EXPECT_EQ(list.ColumnCount(), 2);
    const auto array = TessenServicesClient::TessenListBox_FillArray(table, row.hasHeadings);
    ASSERT_EQ(array.size(), row.rows.size());
    for (std::size_t index = 0; index < array.size(); ++index) {
      EXPECT_EQ(array[index], table.at(std::to_string(index + (row.hasHeadings ? 1 : 0))).if_array());
    }
  }
}

TEST(ServiceTable, ThatIsNoneLeavesTheListAsItWas) {
  const struct {
    const char* table;
    bool hasHeadings;
    const char* reason;
  } rows[] = {
      {"{}", true, "no row 0"},
      {R"({"1":["a"]})", false, "no row 0"},
      {R"({"0":["a"],"2":["b"]})", false, "no row 1"},
      {R"({"1":["a"],"2":["b"]})", true, "row"},
      {R"({"0":["a"],"01":["b"]})", false, "no row 1"},
      {R"({"0":["a"],"count":1})", false, "no row 1"},
      {R"({"0":"H","1":["a"]})", true, "row 0 is no row"},
      {R"({"0":["a"],"1":{"0":"b"}})", false, "row 1 is no row"},
      {R"({"0":["H"],"1":null})", true, "row 1 is no row"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.table);
    const json::object table = json::parse(row.table).as_object();
    toolkit::Listbox list;
    list.HasHeading(!row.hasHeadings);
    list.Heading(0, "was");
    const auto reasonOf = [](const auto& read) -> std::string {
      try {
        read();
      } catch (const toolkit::RuntimeException& exception) {
        return exception.Message();
      }
      return "it was taken";
    };
    EXPECT_THAT(reasonOf([&] { TessenServicesClient::TessenListBox_FillDesktopListBox(list, table, row.hasHeadings); }),
                HasSubstr(row.reason));
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.HasHeading(), !row.hasHeadings);
    EXPECT_EQ(list.Heading(0), "was");
  }
}

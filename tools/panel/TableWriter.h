#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include <boost/json/serializer.hpp>

namespace panel {

/// Writes a reply with a table: {"KEY":{"0":["cell","cell"],"1":["cell"]}}. Directly as text, because a log may have a
/// million rows. Cells must be UTF-8.
class TableWriter {
 public:
  explicit TableWriter(std::string_view key);

  void AddRow(std::initializer_list<std::string_view> cells);
  /// Returns the finished reply; the writer must not be used afterwards.
  [[nodiscard]] std::string Finish();

 private:
  void AppendString(std::string_view text);

  std::string text_;
  std::uint64_t rows_ = 0;
  boost::json::serializer serializer_;
};

}  // namespace panel

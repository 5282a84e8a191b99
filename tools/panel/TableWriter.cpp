#include "panel/TableWriter.h"

#include <array>
#include <utility>

namespace panel {

TableWriter::TableWriter(std::string_view key) : text_("{") {
  AppendString(key);
  text_ += ":{";
}

void TableWriter::AddRow(std::initializer_list<std::string_view> cells) {
  if (rows_ > 0) text_ += ',';
  text_ += '"';
  text_ += std::to_string(rows_++);
  text_ += "\":[";
  bool isFirst = true;
  for (const std::string_view cell : cells) {
    if (!std::exchange(isFirst, false)) text_ += ',';
    AppendString(cell);
  }
  text_ += ']';
}

std::string TableWriter::Finish() {
  text_ += "}}";
  return std::move(text_);
}

void TableWriter::AppendString(std::string_view text) {
  std::array<char, 512> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled before it is read
  serializer_.reset(text);
  while (!serializer_.done()) text_ += std::string_view(serializer_.read(buffer.data(), buffer.size()));
}

}  // namespace panel

#include "panel/DemoLog.h"

#include <array>
#include <functional>

namespace panel {
namespace {

constexpr std::chrono::milliseconds betweenLines(730);

// Each # is replaced by a number. Quotes, backslashes and non-ASCII letters test clients.
constexpr std::array<std::string_view, 8> messages{
    "INFO  GET /products/# answered with 200 in # ms",
    "INFO  POST /orders answered with 201 in # ms, # items",
    "DEBUG cache: # entries, # bytes, 0 evictions since the start",
    "INFO  worker #: job \"resize picture\" # done in # ms",
    "WARN  query # took # ms; an index on orders(date) would help",
    R"(INFO  imported "C:\export\list.csv", # rows in # ms)",
    "INFO  mail # handed over to Zoë Grünwald, # bytes in all",
    "DEBUG health: database # ms, queue # waiting, all checks passed",
};

// Mixes all bits of a number (the finishing steps of the generator SplitMix64).
std::uint64_t Mix(std::uint64_t number) {
  number = (number ^ (number >> 30U)) * 0xbf58476d1ce4e5b9U;
  number = (number ^ (number >> 27U)) * 0x94d049bb133111ebU;
  return number ^ (number >> 31U);
}

}  // namespace

DemoLog::DemoLog(std::string_view name, std::uint64_t length, Time end)
    : seed_(std::hash<std::string_view>()(name)), length_(length), end_(end) {}

void DemoLog::WriteLine(std::uint64_t number, std::string& line) const {
  std::uint64_t chance = Mix(seed_ + number);
  line.clear();
  AppendTimestamp(line, end_ - betweenLines * static_cast<std::int64_t>(length_ - 1 - number));
  line += ' ';
  std::string_view rest = messages[chance % messages.size()];
  for (std::size_t gap = rest.find('#'); gap != std::string_view::npos; gap = rest.find('#')) {
    line += rest.substr(0, gap);
    rest.remove_prefix(gap + 1);
    chance = Mix(chance);
    line += std::to_string(chance % 10'000);
  }
  line += rest;
}

}  // namespace panel

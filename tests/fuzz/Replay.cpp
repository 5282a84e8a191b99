// A short fixed run without libFuzzer: every file of the seed corpus, then mutations of them, the same ones each time.
// Arguments: the folder of the corpus, and the number of mutations.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/fuzz/Target.h"

namespace {

using namespace std::string_view_literals;

std::vector<std::string> ReadCorpus(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.push_back(entry.path());
  std::ranges::sort(paths);
  std::vector<std::string> seeds;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return seeds;
}

std::string Change(std::string text, const std::vector<std::string>& seeds, std::mt19937& random) {
  constexpr std::string_view odd = "\0\xFF\xC3\n\r \"\\{}[]:,<>%/@.&0189-eEdab()"sv;
  for (std::size_t changes = 1 + random() % 8; changes > 0; --changes) {
    const std::string& source = random() % 2 == 0 ? text : seeds[random() % seeds.size()];
    const std::string parts[] = {std::string(1, odd[random() % odd.size()]),
                                 std::string(1, static_cast<char>(random())), "",
                                 source.substr(random() % (source.size() + 1), random() % 64)};
    text.replace(random() % (text.size() + 1), random() % 2 * (random() % 16), parts[random() % 4]);
  }
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> seeds = argc == 3 ? ReadCorpus(argv[1]) : std::vector<std::string>();
  if (seeds.empty()) {
    std::cerr << "Usage: " << argv[0] << " CORPUS COUNT, with a file in the corpus\n";
    return 2;
  }
  for (const std::string& seed : seeds) FuzzOne(seed);
  std::mt19937 random{1};
  const int count = std::atoi(argv[2]);
  for (int made = 0; made < count; ++made) FuzzOne(Change(seeds[random() % seeds.size()], seeds, random));
  std::cout << seeds.size() << " seeds and " << count << " inputs made from them: all rules held.\n";
  return 0;
}

// A short fixed run without libFuzzer: every file of the seed corpus, and then a number of inputs made from them, the
// same ones each time. Arguments: the folder of the corpus and how many inputs to make.

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

class Mutator {
 public:
  explicit Mutator(std::vector<std::string> seeds) : seeds_(std::move(seeds)) {}

  std::string Next() {
    std::string text = Seed();
    for (std::size_t changes = 1 + Below(8); changes > 0; --changes) Change(text);
    return text;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  const std::string& Seed() { return seeds_[Below(seeds_.size())]; }
  std::string PartOf(const std::string& text) { return text.substr(Below(text.size() + 1), Below(64)); }

  void Change(std::string& text) {
    constexpr std::string_view odd = "\0\xFF\xC3\n\r \"\\{}[]:,<>%/@.&0189-eEdab()"sv;
    const std::size_t place = Below(text.size() + 1);
    switch (Below(5)) {
      case 0:
        text.insert(place, 1, odd[Below(odd.size())]);
        break;
      case 1:
        text.erase(place, 1 + Below(16));
        break;
      case 2:
        if (place < text.size()) text[place] = static_cast<char>(random_());
        break;
      case 3:
        text.insert(place, PartOf(text));
        break;
      default:
        text.insert(place, PartOf(Seed()));
    }
  }

  std::vector<std::string> seeds_;
  std::mt19937 random_{1};
};

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> seeds = argc == 3 ? ReadCorpus(argv[1]) : std::vector<std::string>();
  if (seeds.empty()) {
    std::cerr << "Usage: " << argv[0] << " CORPUS COUNT, with a file in the corpus\n";
    return 2;
  }
  for (const std::string& seed : seeds) FuzzOne(seed);
  Mutator mutator(seeds);
  const int count = std::atoi(argv[2]);
  for (int made = 0; made < count; ++made) FuzzOne(mutator.Next());
  std::cout << seeds.size() << " seeds and " << count << " inputs made from them: all rules held.\n";
  return 0;
}

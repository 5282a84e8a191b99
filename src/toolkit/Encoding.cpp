#include "toolkit/Encoding.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <iconv.h>

#include "toolkit/Text.h"

namespace toolkit {
namespace {

/// A name for iconv may have options after a slash, which would drop or transliterate what cannot be converted.
bool IsPlainName(std::string_view name) {
  return !name.empty() && name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

class Converter {
 public:
  explicit Converter(const std::string& characterSet) : handle_(iconv_open("UTF-8", characterSet.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (IsKnown()) iconv_close(handle_);
  }

  [[nodiscard]] bool IsKnown() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  std::string Convert(std::string_view bytes) {
    std::string text;
    std::string input(bytes);
    char* place = input.data();
    std::size_t left = input.size();
    while (left > 0) {
      if (Step(&place, &left, text) || errno == E2BIG) continue;
      text += replacementCharacter;
      const bool isCutOff = errno == EINVAL;
      if (isCutOff) break;
      ++place;
      --left;
    }
    Step(nullptr, nullptr, text);  // flushes the conversion state
    return text;
  }

 private:
  bool Step(char** place, std::size_t* left, std::string& text) {
    std::array<char, 4096> buffer{};
    char* out = buffer.data();
    std::size_t room = buffer.size();
    const std::size_t result = iconv(handle_, place, left, &out, &room);
    const int error = errno;
    text.append(buffer.data(), buffer.size() - room);
    errno = error;
    return result != static_cast<std::size_t>(-1);
  }

  iconv_t handle_;
};

}  // namespace

std::optional<std::string> ConvertToUTF8(std::string_view bytes, std::string_view characterSet) {
  if (!IsPlainName(characterSet)) return std::nullopt;
  Converter converter{std::string(characterSet)};
  if (!converter.IsKnown()) return std::nullopt;
  return RepairUTF8(converter.Convert(bytes));  // iconv accepts values beyond Unicode
}

}  // namespace toolkit

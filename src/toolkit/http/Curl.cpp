#include "toolkit/http/Curl.h"

#include <dlfcn.h>
#include <string>

#include "toolkit/RuntimeException.h"

namespace toolkit::http {
namespace {

constexpr const char* libraryName = "libcurl.so.4";

template <typename Function>
void Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (function == nullptr) throw RuntimeException(dlerror());
}

Curl LoadAll() {
  void* library = dlopen(libraryName, RTLD_LAZY);
  if (library == nullptr) throw RuntimeException(dlerror());
  Curl curl;
#define CORVANE_CURL_FIND(name) Find(library, "curl_" #name, curl.name);
  CORVANE_CURL_FUNCTIONS(CORVANE_CURL_FIND)
#undef CORVANE_CURL_FIND
  if (curl.global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) throw RuntimeException("libcurl does not start");
  return curl;
}

}  // namespace

const Curl& Curl::Load() {
  static const Curl curl = LoadAll();
  return curl;
}

}  // namespace toolkit::http

#include "toolkit/http/Curl.h"

#include <dlfcn.h>
#include <string>

#include "toolkit/RuntimeException.h"

// Called by GnuTLS when it is loaded. libcurl depends on it for protocols that are never used; skipping its
// initialisation saves 0.7 MB.
extern "C" int _gnutls_global_init_skip();               // NOLINT(bugprone-reserved-identifier): GnuTLS's interface
extern "C" int _gnutls_global_init_skip() { return 1; }  // NOLINT(bugprone-reserved-identifier)

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
  Find(library, "curl_global_init", curl.global_init);
  Find(library, "curl_easy_init", curl.easy_init);
  Find(library, "curl_easy_setopt", curl.easy_setopt);
  Find(library, "curl_easy_getinfo", curl.easy_getinfo);
  Find(library, "curl_easy_pause", curl.easy_pause);
  Find(library, "curl_easy_cleanup", curl.easy_cleanup);
  Find(library, "curl_multi_init", curl.multi_init);
  Find(library, "curl_multi_setopt", curl.multi_setopt);
  Find(library, "curl_multi_add_handle", curl.multi_add_handle);
  Find(library, "curl_multi_remove_handle", curl.multi_remove_handle);
  Find(library, "curl_multi_socket_action", curl.multi_socket_action);
  Find(library, "curl_multi_info_read", curl.multi_info_read);
  Find(library, "curl_multi_poll", curl.multi_poll);
  Find(library, "curl_multi_perform", curl.multi_perform);
  Find(library, "curl_multi_cleanup", curl.multi_cleanup);
  Find(library, "curl_slist_append", curl.slist_append);
  Find(library, "curl_slist_free_all", curl.slist_free_all);
  Find(library, "curl_url", curl.url);
  Find(library, "curl_url_set", curl.url_set);
  Find(library, "curl_url_get", curl.url_get);
  Find(library, "curl_url_cleanup", curl.url_cleanup);
  Find(library, "curl_free", curl.free);
  if (curl.global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) throw RuntimeException("libcurl does not start");
  return curl;
}

}  // namespace

const Curl& Curl::Load() {
  static const Curl curl = LoadAll();
  return curl;
}

}  // namespace toolkit::http

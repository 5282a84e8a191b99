#pragma once

#include <curl/curl.h>

// clang-format off
#define CORVANE_CURL_FUNCTIONS(FUNCTION) \
  FUNCTION(global_init)                  \
  FUNCTION(easy_init)                    \
  FUNCTION(easy_setopt)                  \
  FUNCTION(easy_getinfo)                 \
  FUNCTION(easy_pause)                   \
  FUNCTION(easy_cleanup)                 \
  FUNCTION(multi_init)                   \
  FUNCTION(multi_setopt)                 \
  FUNCTION(multi_add_handle)             \
  FUNCTION(multi_remove_handle)          \
  FUNCTION(multi_socket_action)          \
  FUNCTION(multi_info_read)              \
  FUNCTION(multi_poll)                   \
  FUNCTION(multi_perform)                \
  FUNCTION(multi_cleanup)                \
  FUNCTION(slist_append)                 \
  FUNCTION(slist_free_all)               \
  FUNCTION(url)                          \
  FUNCTION(url_set)                      \
  FUNCTION(url_get)                      \
  FUNCTION(url_cleanup)                  \
  FUNCTION(free)
// clang-format on

namespace toolkit::http {

/// The functions of libcurl that are used, by their names without "curl_".
///
/// The library is loaded with the first request: it brings some twenty others, whose loading would be a tenth of the
/// program's start.
struct Curl {
#define CORVANE_CURL_MEMBER(name) decltype(&::curl_##name) name = nullptr;
  CORVANE_CURL_FUNCTIONS(CORVANE_CURL_MEMBER)
#undef CORVANE_CURL_MEMBER

  /// Loads the library, the first time. Throws a RuntimeException that tells why, if it cannot.
  static const Curl& Load();
};

}  // namespace toolkit::http

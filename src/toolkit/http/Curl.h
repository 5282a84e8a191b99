#pragma once

#include <curl/curl.h>

namespace toolkit::http {

/// The functions of libcurl that are used, by their names without "curl_".
///
/// The library is loaded with the first request: it depends on some twenty others, whose loading would take a tenth of
/// the program's start.
struct Curl {
  decltype(&curl_global_init) global_init = nullptr;
  decltype(&curl_easy_init) easy_init = nullptr;
  decltype(&curl_easy_setopt) easy_setopt = nullptr;
  decltype(&curl_easy_getinfo) easy_getinfo = nullptr;
  decltype(&curl_easy_pause) easy_pause = nullptr;
  decltype(&curl_easy_cleanup) easy_cleanup = nullptr;
  decltype(&curl_multi_init) multi_init = nullptr;
  decltype(&curl_multi_setopt) multi_setopt = nullptr;
  decltype(&curl_multi_add_handle) multi_add_handle = nullptr;
  decltype(&curl_multi_remove_handle) multi_remove_handle = nullptr;
  decltype(&curl_multi_socket_action) multi_socket_action = nullptr;
  decltype(&curl_multi_info_read) multi_info_read = nullptr;
  decltype(&curl_multi_poll) multi_poll = nullptr;
  decltype(&curl_multi_perform) multi_perform = nullptr;
  decltype(&curl_multi_cleanup) multi_cleanup = nullptr;
  decltype(&curl_slist_append) slist_append = nullptr;
  decltype(&curl_slist_free_all) slist_free_all = nullptr;
  decltype(&curl_url) url = nullptr;
  decltype(&curl_url_set) url_set = nullptr;
  decltype(&curl_url_get) url_get = nullptr;
  decltype(&curl_url_cleanup) url_cleanup = nullptr;
  decltype(&curl_free) free = nullptr;

  /// Loads the library on the first call. Throws a RuntimeException with the reason if that fails.
  static const Curl& Load();
};

}  // namespace toolkit::http

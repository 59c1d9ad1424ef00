#pragma once
// The network library, loaded when it is first used. It brings thirty libraries with it, which take
// longer to load than the rest of the program, and most runs of the program ask nothing of the
// network.
#include <curl/curl.h>

namespace clb {

/// The functions of libcurl that the program calls, each named as there without "curl_".
struct CurlLibrary {
    decltype(&curl_easy_cleanup) easy_cleanup;
    decltype(&curl_easy_getinfo) easy_getinfo;
    decltype(&curl_easy_init) easy_init;
    decltype(&curl_easy_setopt) easy_setopt;
    decltype(&curl_easy_strerror) easy_strerror;
    decltype(&curl_free) free;
    decltype(&curl_multi_add_handle) multi_add_handle;
    decltype(&curl_multi_cleanup) multi_cleanup;
    decltype(&curl_multi_info_read) multi_info_read;
    decltype(&curl_multi_init) multi_init;
    decltype(&curl_multi_perform) multi_perform;
    decltype(&curl_multi_poll) multi_poll;
    decltype(&curl_multi_remove_handle) multi_remove_handle;
    decltype(&curl_slist_append) slist_append;
    decltype(&curl_slist_free_all) slist_free_all;
    decltype(&curl_url) url;
    decltype(&curl_url_cleanup) url_cleanup;
    decltype(&curl_url_get) url_get;
    decltype(&curl_url_set) url_set;
    decltype(&curl_url_strerror) url_strerror;
};

/// The library, loaded and set up by the first call and kept until the program ends. Throws
/// PortError (NetworkFailure) when it cannot be loaded; the next call tries again.
const CurlLibrary& Curl();

}  // namespace clb

#include "platform/CurlLibrary.h"

#include <dlfcn.h>

#include <string>

#include "base/RuntimeError.h"

namespace clb {
namespace {

// The number is that of the interface that the header declares.
constexpr const char* kFile = "libcurl.so.4";

[[noreturn]] void ThrowLoadingError()
{
    const char* reason = dlerror();
    throw PortError(errors::NetworkFailure,
                    std::string("Cannot load the network library: ") + (reason ? reason : kFile));
}

template <class Function>
void Find(void* library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(dlsym(library, name));
    if (!function)
        ThrowLoadingError();
}

CurlLibrary Load()
{
    void* const library = dlopen(kFile, RTLD_NOW | RTLD_LOCAL);
    if (!library)
        ThrowLoadingError();
    CurlLibrary curl{};
    Find(library, "curl_easy_cleanup", curl.easy_cleanup);
    Find(library, "curl_easy_getinfo", curl.easy_getinfo);
    Find(library, "curl_easy_init", curl.easy_init);
    Find(library, "curl_easy_setopt", curl.easy_setopt);
    Find(library, "curl_easy_strerror", curl.easy_strerror);
    Find(library, "curl_free", curl.free);
    Find(library, "curl_multi_add_handle", curl.multi_add_handle);
    Find(library, "curl_multi_cleanup", curl.multi_cleanup);
    Find(library, "curl_multi_info_read", curl.multi_info_read);
    Find(library, "curl_multi_init", curl.multi_init);
    Find(library, "curl_multi_perform", curl.multi_perform);
    Find(library, "curl_multi_poll", curl.multi_poll);
    Find(library, "curl_multi_remove_handle", curl.multi_remove_handle);
    Find(library, "curl_slist_append", curl.slist_append);
    Find(library, "curl_slist_free_all", curl.slist_free_all);
    Find(library, "curl_url", curl.url);
    Find(library, "curl_url_cleanup", curl.url_cleanup);
    Find(library, "curl_url_get", curl.url_get);
    Find(library, "curl_url_set", curl.url_set);
    Find(library, "curl_url_strerror", curl.url_strerror);
    decltype(&curl_global_init) setUp = nullptr;
    Find(library, "curl_global_init", setUp);
    if (setUp(CURL_GLOBAL_DEFAULT) != CURLE_OK)
        throw PortError(errors::NetworkFailure, "Cannot set up the network library.");
    return curl;
}

}  // namespace

const CurlLibrary& Curl()
{
    static const CurlLibrary loaded = Load();
    return loaded;
}

}  // namespace clb

#include "platform/CurlHttpClient.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

#include "base/Interruption.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/CurlLibrary.h"

namespace clb {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t kLongest = std::size_t{1024} * 1024;     // bytes of a body
constexpr std::size_t kLongestHead = std::size_t{256} * 1024;  // libcurl itself gives up later
constexpr int kMostRedirects = 10;
constexpr int kStep = 100;  // milliseconds between two calls of the caller's function

struct Release {
    void operator()(CURL* request) const { Curl().easy_cleanup(request); }
    void operator()(CURLU* address) const { Curl().url_cleanup(address); }
    void operator()(curl_slist* list) const { Curl().slist_free_all(list); }
    void operator()(char* text) const { Curl().free(text); }
};
template <class Thing>
using Owned = std::unique_ptr<Thing, Release>;

PortError Failure(const std::string& url, const std::string& reason)
{
    return {errors::NetworkFailure, "Cannot reach " + url + ": " + reason};
}

/// The address up to its path: scheme, host and port.
std::string BeforePath(const std::string& url)
{
    const auto scheme = url.find("://");
    const auto host = scheme == std::string::npos ? 0 : scheme + 3;
    return url.substr(0, url.find_first_of("/?#", host));
}

std::string SchemeOf(const std::string& url)
{
    return ToUpperAscii(url.substr(0, url.find("://")));
}

/// The address's host. Throws PortError if scheme, host or port are not valid.
std::string HostOf(const std::string& url)
{
    const std::string place = BeforePath(url);
    const Owned<CURLU> parsed(Curl().url());
    CURLUcode failed = Curl().url_set(parsed.get(), CURLUPART_URL, place.c_str(), 0);
    char* host = nullptr;
    if (failed == CURLUE_OK)
        failed = Curl().url_get(parsed.get(), CURLUPART_HOST, &host, 0);
    const Owned<char> owned(host);
    const std::string scheme = SchemeOf(url);
    if (failed == CURLUE_OK && scheme != "HTTP" && scheme != "HTTPS")
        failed = CURLUE_UNSUPPORTED_SCHEME;
    if (failed != CURLUE_OK)
        throw Failure(place, Curl().url_strerror(failed));
    return host;
}

bool IsThisMachine(const std::string& host)
{
    return host.starts_with("127.") || host == "[::1]" || EqualsIgnoringCase(host, "localhost");
}

/// A space would end the request line's address early, and a line break would add a header.
bool FitsRequestLine(const std::string& url)
{
    return std::none_of(url.begin(), url.end(), [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code <= 0x20 || code == 0x7F;
    });
}

/// The result of one request.
struct Answer {
    std::string body;
    std::size_t headSize = 0;
    bool tooLong = false;
    std::string elsewhere;  ///< where it redirects to; empty if it does not
};

// libcurl calls these with each piece. Returning less than count ends the request.

std::size_t TakeBody(char* bytes, std::size_t, std::size_t count, void* taken)
{
    Answer& answer = *static_cast<Answer*>(taken);
    answer.tooLong = answer.body.size() + count > kLongest;
    if (answer.tooLong)
        return 0;
    answer.body.append(bytes, count);
    return count;
}

std::size_t TakeHead(char*, std::size_t, std::size_t count, void* taken)
{
    Answer& answer = *static_cast<Answer*>(taken);
    answer.headSize += count;
    answer.tooLong = answer.headSize > kLongestHead;
    return answer.tooLong ? 0 : count;
}

void Limit(CURL* request, const HttpLimits& limits, milliseconds left)
{
    // 0 would mean no limit.
    left = std::max(left, milliseconds(1));
    Curl().easy_setopt(request, CURLOPT_NOSIGNAL, 1L);
    Curl().easy_setopt(request, CURLOPT_CONNECTTIMEOUT_MS,
                       static_cast<long>(std::min(limits.connect, left).count()));
    Curl().easy_setopt(request, CURLOPT_TIMEOUT_MS, static_cast<long>(left.count()));
}

void Take(CURL* request, Answer& answer)
{
    Curl().easy_setopt(request, CURLOPT_WRITEFUNCTION, &TakeBody);
    Curl().easy_setopt(request, CURLOPT_WRITEDATA, &answer);
    Curl().easy_setopt(request, CURLOPT_HEADERFUNCTION, &TakeHead);
    Curl().easy_setopt(request, CURLOPT_HEADERDATA, &answer);
}

/// Runs a request step by step.
class Steps {
public:
    explicit Steps(CURL* request) : request_(request), all_(Curl().multi_init())
    {
        good_ = all_ != nullptr && Curl().multi_add_handle(all_, request_) == CURLM_OK;
    }
    ~Steps()
    {
        if (good_)
            Curl().multi_remove_handle(all_, request_);
        Curl().multi_cleanup(all_);
    }
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;

    [[nodiscard]] bool Good() const { return good_; }
    /// Waits for the next step. Returns false once the request is over.
    [[nodiscard]] bool Next() const
    {
        int running = 0;
        if (Curl().multi_perform(all_, &running) != CURLM_OK || running == 0)
            return false;
        Curl().multi_poll(all_, nullptr, 0, kStep, nullptr);
        return true;
    }
    [[nodiscard]] CURLcode Result() const
    {
        int left = 0;
        const CURLMsg* message = Curl().multi_info_read(all_, &left);
        return message ? message->data.result : CURLE_OK;
    }

private:
    CURL* request_;
    CURLM* all_;
    bool good_ = false;
};

/// Ends the command when the program is asked to end.
void CheckInterruption(CURL* request)
{
    // A lookup of a host name cannot be cancelled. Do not wait for it.
    if (Interruption::Asked())
        Curl().easy_setopt(request, CURLOPT_QUICK_EXIT, 1L);
    Interruption::Check();
}

/// Runs the request in steps, so that the caller can do something else between them.
CURLcode PerformWaiting(CURL* request, const std::function<void()>& waiting)
{
    const Steps steps(request);
    if (!steps.Good())
        return CURLE_OUT_OF_MEMORY;
    while (steps.Next()) {
        CheckInterruption(request);
        if (waiting)
            waiting();
    }
    return steps.Result();
}

/// Makes the request. Throws PortError if no answer arrives, not even a part of one.
void Perform(CURL* request, const std::string& url, Answer& answer,
             const std::function<void()>& waiting)
{
    std::array<char, CURL_ERROR_SIZE> reason{};
    Curl().easy_setopt(request, CURLOPT_ERRORBUFFER, reason.data());
    const CURLcode result = PerformWaiting(request, waiting);
    Curl().easy_setopt(request, CURLOPT_ERRORBUFFER, nullptr);
    // The connection ended before the answer was complete.
    const bool cutOff =
        result == CURLE_PARTIAL_FILE || (result == CURLE_RECV_ERROR && !answer.body.empty());
    if (result != CURLE_OK && !answer.tooLong && !cutOff)
        throw Failure(url, reason[0] != 0 ? reason.data() : Curl().easy_strerror(result));
    char* elsewhere = nullptr;
    if (Curl().easy_getinfo(request, CURLINFO_REDIRECT_URL, &elsewhere) == CURLE_OK && elsewhere)
        answer.elsewhere = elsewhere;
}

Answer Ask(const HttpSettings& settings, const std::string& url, milliseconds left)
{
    const Owned<CURL> request(Curl().easy_init());
    const Owned<curl_slist> fresh(Curl().slist_append(
        Curl().slist_append(nullptr, "Cache-Control: no-cache"), "Pragma: no-cache"));
    if (!request || !fresh)
        throw Failure(url, Curl().easy_strerror(CURLE_OUT_OF_MEMORY));
    CURL* const r = request.get();
    Curl().easy_setopt(r, CURLOPT_URL, url.c_str());
    Curl().easy_setopt(r, CURLOPT_PATH_AS_IS, 1L);
    Curl().easy_setopt(r, CURLOPT_PROTOCOLS_STR, "http,https");
    Curl().easy_setopt(r, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    Curl().easy_setopt(r, CURLOPT_USERAGENT, settings.agent.c_str());
    Curl().easy_setopt(r, CURLOPT_HTTPHEADER, fresh.get());
    if (settings.direct || IsThisMachine(HostOf(url)))
        Curl().easy_setopt(r, CURLOPT_PROXY, "");
    Limit(r, settings.limits, left);
    Answer answer;
    Take(r, answer);
    Perform(r, url, answer, settings.waiting);
    return answer;
}

}  // namespace

CurlHttpClient::CurlHttpClient(HttpSettings settings) : settings_(std::move(settings)) {}

std::optional<std::string> CurlHttpClient::Get(const std::string& url)
{
    HostOf(url);
    if (!FitsRequestLine(url))
        return std::nullopt;
    if (settings_.sending)
        settings_.sending(url);
    const Clock::time_point end = Clock::now() + settings_.limits.whole;
    std::string at = url;
    for (int redirects = 0;; ++redirects) {
        Answer answer = Ask(settings_, at, std::chrono::ceil<milliseconds>(end - Clock::now()));
        if (answer.tooLong)
            return std::nullopt;
        const bool follows = !answer.elsewhere.empty() && redirects < kMostRedirects &&
                             SchemeOf(answer.elsewhere) == SchemeOf(url);
        if (!follows)
            return std::move(answer.body);
        at = answer.elsewhere;
    }
}

}  // namespace clb

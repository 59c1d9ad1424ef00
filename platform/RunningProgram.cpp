#include "platform/RunningProgram.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <thread>

// A request is the word below, the token and the files, each closed by a zero byte; the first start
// answers with the same word.

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kWord = "ledgerbook 1";
constexpr std::size_t kLongestRequest = 1024 * 1024;
constexpr int kTries = 30;
constexpr std::chrono::milliseconds kBetweenTries{100};
constexpr timeval kPatience{3, 0};

/// A descriptor that is closed when it goes.
class OwnedSocket {
public:
    explicit OwnedSocket(int number) : number_(number) {}
    ~OwnedSocket()
    {
        if (number_ >= 0)
            close(number_);
    }
    OwnedSocket(const OwnedSocket&) = delete;
    OwnedSocket& operator=(const OwnedSocket&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

private:
    int number_;
};

/// The folder where the starts of a user meet; empty when there is none that is the user's alone.
std::string MeetingFolder()
{
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    const std::string parent = runtime && *runtime == '/' ? runtime : "/tmp";
    std::string folder = parent + "/corvane-ledgerbook";
    if (parent == "/tmp")
        folder += "-" + std::to_string(geteuid());
    mkdir(folder.c_str(), 0700);
    struct stat found {};
    const bool own = lstat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
                     found.st_uid == geteuid() && (found.st_mode & 077) == 0;
    return own ? folder : std::string();
}

/// The same number for every way to name a folder (FNV-1a).
std::string NameOf(const std::string& folder)
{
    std::error_code ignored;
    fs::path whole = fs::weakly_canonical(folder, ignored);
    if (whole.empty())
        whole = folder;
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : whole.string())
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return std::to_string(hash);
}

/// False when the path is too long for a socket's.
bool MakeAddress(const std::string& path, sockaddr_un& address)
{
    address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    return true;
}

const sockaddr* Generic(const sockaddr_un& address)
{
    return reinterpret_cast<const sockaddr*>(&address);
}

void LimitWaiting(int socket)
{
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof kPatience);
}

bool SendAll(int socket, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

/// Everything up to the other side's end; what is too long, or late, is cut off.
std::string ReceiveAll(int socket)
{
    std::string bytes;
    std::array<char, 4096> piece{};
    while (bytes.size() < kLongestRequest) {
        const ssize_t count = recv(socket, piece.data(), piece.size(), 0);
        if (count <= 0)
            break;
        bytes.append(piece.data(), static_cast<std::size_t>(count));
    }
    return bytes;
}

std::string Written(const StartRequest& request)
{
    std::string bytes(kWord);
    bytes += '\0';
    bytes.append(request.activation) += '\0';
    for (const std::string& file : request.files)
        bytes.append(file) += '\0';
    return bytes;
}

/// False when the bytes are no request.
bool Read(std::string_view bytes, StartRequest& request)
{
    std::vector<std::string> texts;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\0');
        if (end == std::string_view::npos)
            return false;
        texts.emplace_back(bytes.substr(0, end));
        bytes.remove_prefix(end + 1);
    }
    if (texts.size() < 2 || texts[0] != kWord)
        return false;
    request.activation = texts[1];
    request.files.assign(texts.begin() + 2, texts.end());
    return true;
}

bool IsOfThisUser(int socket)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

}  // namespace

RunningProgram::RunningProgram(const std::string& folder)
{
    const std::string meeting = MeetingFolder();
    if (!meeting.empty())
        socket_ = meeting + "/" + NameOf(folder);
}

RunningProgram::~RunningProgram()
{
    if (listening_ >= 0) {
        close(listening_);
        unlink(socket_.c_str());
    }
    if (lock_ >= 0)
        close(lock_);
}

bool RunningProgram::BecomeFirst()
{
    sockaddr_un address{};
    if (!MakeAddress(socket_, address))
        return true;
    lock_ = open((socket_ + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (lock_ < 0)
        return true;
    if (flock(lock_, LOCK_EX | LOCK_NB) != 0)
        return false;
    unlink(socket_.c_str());  // of a start that was killed
    listening_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (listening_ >= 0 &&
        (bind(listening_, Generic(address), sizeof address) != 0 || listen(listening_, 16) != 0)) {
        close(listening_);
        listening_ = -1;
    }
    return true;
}

bool RunningProgram::HandOver(const StartRequest& request) const
{
    sockaddr_un address{};
    if (!MakeAddress(socket_, address))
        return false;
    const OwnedSocket connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!connection.IsOpen())
        return false;
    LimitWaiting(connection.Number());
    // The first start may not listen yet.
    for (int left = kTries; connect(connection.Number(), Generic(address), sizeof address) != 0;
         --left) {
        if (left == 0)
            return false;
        std::this_thread::sleep_for(kBetweenTries);
    }
    return SendAll(connection.Number(), Written(request)) &&
           shutdown(connection.Number(), SHUT_WR) == 0 && ReceiveAll(connection.Number()) == kWord;
}

std::vector<StartRequest> RunningProgram::Requests()
{
    std::vector<StartRequest> requests;
    for (;;) {
        const OwnedSocket connection(accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC));
        if (!connection.IsOpen())
            return requests;
        if (!IsOfThisUser(connection.Number()))
            continue;
        LimitWaiting(connection.Number());
        StartRequest request;
        if (Read(ReceiveAll(connection.Number()), request) && SendAll(connection.Number(), kWord))
            requests.push_back(std::move(request));
    }
}

}  // namespace clb

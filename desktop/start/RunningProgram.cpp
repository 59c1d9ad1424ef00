#include "desktop/start/RunningProgram.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QSysInfo>
#include <QThread>
#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "desktop/look/TextConvert.h"

// A request is one line of JSON. The first start answers with the line below.

namespace clb {

namespace {

constexpr const char* kDone = "done\n";
constexpr qint64 kLongestRequest = qint64{16} * 1024 * 1024;
constexpr unsigned long kBetweenTries = 50;  // milliseconds

/// The name is the same for each path of a folder, and differs for each user.
QString SocketName(const QString& folder)
{
    const QString whole = QFileInfo(folder).canonicalFilePath();
    const QByteArray hash = QCryptographicHash::hash((whole.isEmpty() ? folder : whole).toUtf8(),
                                                     QCryptographicHash::Sha256);
    return QStringLiteral("corvane-ledgerbook-%1-%2")
        .arg(geteuid())
        .arg(QString::fromLatin1(hash.toHex()));
}

/// Any user's program can use a name of the abstract namespace.
bool IsOfThisUser(const QLocalSocket& other)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(static_cast<int>(other.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer,
                      &size) == 0 &&
           peer.uid == geteuid();
}

QByteArray Written(const StartRequest& request)
{
    const QJsonObject line{{QStringLiteral("files"), QJsonArray::fromStringList(request.files)},
                           {QStringLiteral("activation"), QString::fromUtf8(request.activation)}};
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

/// Returns nothing if the line is not a request.
std::optional<StartRequest> ReadRequest(const QByteArray& line)
{
    const QJsonObject read = QJsonDocument::fromJson(line).object();
    if (!read.value(QStringLiteral("files")).isArray())
        return std::nullopt;
    StartRequest request;
    for (const QJsonValue file : read.value(QStringLiteral("files")).toArray())
        request.files << file.toString();
    request.activation = read.value(QStringLiteral("activation")).toString().toUtf8();
    return request;
}

}  // namespace

RunningProgram::RunningProgram(const std::string& folder, std::chrono::milliseconds patience)
    : folder_(ToQString(folder)),
      lockFile_(folder_ + QStringLiteral("/db/clb.lock")),
      name_(SocketName(folder_)),
      patience_(patience),
      lock_(lockFile_)
{
    // A lock is stale if its program is gone, never because of its age.
    lock_.setStaleLockTime(0);
    server_.setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(&server_, &QLocalServer::newConnection, this, &RunningProgram::Greet);
}

bool RunningProgram::BecomeFirst(const StartRequest& request)
{
    QDeadlineTimer late(patience_);
    for (;;) {
        if (Lock())
            return true;
        if (HandOver(request, late))
            return false;
        if (late.hasExpired())
            Refuse(
                "in a window that does not answer. Wait until it is done, or end that program, "
                "then start again.");
        if (lock_.error() != QLockFile::LockFailedError) {
            Listen();
            return true;
        }
        if (const std::string others = HeldByOthers(); !others.empty())
            Refuse(others);
        // Removes the lock only if it belongs to a program that is gone. A running program keeps
        // it.
        lock_.removeStaleLockFile();
        QThread::msleep(kBetweenTries);
    }
}

bool RunningProgram::Lock()
{
    if (!lock_.tryLock())
        return false;
    // Lets another user of the book remove the lock after a crash.
    QFile::setPermissions(lockFile_, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                         QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther);
    Listen();
    return true;
}

void RunningProgram::Listen()
{
    server_.listen(name_);
}

void RunningProgram::Greet()
{
    while (QLocalSocket* later = server_.nextPendingConnection()) {
        connect(later, &QLocalSocket::disconnected, later, &QObject::deleteLater);
        if (!IsOfThisUser(*later)) {
            later->abort();
            continue;
        }
        later->setReadBufferSize(kLongestRequest);
        connect(later, &QLocalSocket::readyRead, this, [this, later] { Read(*later); });
        Read(*later);
    }
}

void RunningProgram::Read(QLocalSocket& later)
{
    if (!later.canReadLine())
        return;
    const std::optional<StartRequest> request = ReadRequest(later.readLine());
    if (request) {
        later.write(kDone);
        later.flush();
        waiting_.push_back(*request);
    }
    later.disconnectFromServer();
    HandOn();
}

void RunningProgram::Serve(std::function<void(const StartRequest&)> taken)
{
    taken_ = std::move(taken);
    HandOn();
}

void RunningProgram::HandOn()
{
    while (taken_ && !waiting_.empty()) {
        const StartRequest request = waiting_.front();
        waiting_.erase(waiting_.begin());
        taken_(request);
    }
}

bool RunningProgram::HandOver(const StartRequest& request, const QDeadlineTimer& late) const
{
    const auto left = [&late] { return static_cast<int>(late.remainingTime()); };
    QLocalSocket first;
    first.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    first.connectToServer(name_);
    if (!first.waitForConnected(left()) || !IsOfThisUser(first))
        return false;
    first.write(Written(request));
    while (!first.canReadLine())
        if (!first.waitForReadyRead(left()))
            return false;
    return first.readLine() == kDone;
}

std::string RunningProgram::HeldByOthers() const
{
    qint64 process = 0;
    QString computer;
    QString program;
    if (!lock_.getLockInfo(&process, &computer, &program))
        return {};
    if (!computer.isEmpty() && computer != QSysInfo::machineHostName())
        return "on the computer " + ToUtf8(computer) +
               ". Close it there first. If no program has it open there, delete " +
               ToUtf8(lockFile_) + ".";
    const QFileInfo file(lockFile_);
    if (file.ownerId() != geteuid())
        return "in a window of the user " + ToUtf8(file.owner()) + ". Close that window first.";
    return {};
}

void RunningProgram::Refuse(const std::string& why) const
{
    throw RuntimeError(errors::PathAccess, "The book in " + ToUtf8(folder_) + " is open " + why);
}

}  // namespace clb

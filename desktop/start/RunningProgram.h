// Keeps a book to one window; a later start hands its request to the first.
#pragma once
#include <QByteArray>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QStringList>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

class QDeadlineTimer;
class QLocalSocket;

namespace clb {

/// What a start asks of the program that has the book open already.
struct StartRequest {
    QStringList files;      ///< statements to import, absolute paths
    QByteArray activation;  ///< the desktop's token that lets a window come to the front
};

/// Keeps a book to one window. A lock beside the database says who has the book open; it holds for
/// all users and, on a shared disk, for other computers, and ends with its program, also after a
/// crash. Starts of one user meet at a local socket that no other user can listen in on.
class RunningProgram : public QObject {
public:
    static constexpr std::chrono::milliseconds kPatience{5000};

    /// folder is the program folder. Nothing happens yet.
    explicit RunningProgram(const std::string& folder,
                            std::chrono::milliseconds patience = kPatience);

    /// Returns true if this is the first start; it holds the book and answers later starts for as
    /// long as this lives. Returns false if the first start has taken the request. Waits for an
    /// answer no longer than its patience. Throws RuntimeError, which says who has the book open,
    /// if that window does not answer or belongs to another user or another computer. If no lock
    /// can be made, any start that gets no answer from another counts as a first one.
    bool BecomeFirst(const StartRequest& request);

    /// Hands on each request of a later start from now on, beginning with those that came before.
    /// An empty function makes them wait.
    void Serve(std::function<void(const StartRequest&)> taken);

private:
    bool Lock();
    void Listen();
    void Greet();
    void Read(QLocalSocket& later);
    void HandOn();
    /// Returns false if nobody answers, or not in time.
    [[nodiscard]] bool HandOver(const StartRequest& request, const QDeadlineTimer& late) const;
    /// Who else has the book open; empty if the lock belongs to this user on this computer.
    [[nodiscard]] std::string HeldByOthers() const;
    [[noreturn]] void Refuse(const std::string& why) const;

    QString folder_;
    QString lockFile_;
    QString name_;  ///< name of the socket
    std::chrono::milliseconds patience_;
    QLockFile lock_;
    QLocalServer server_;
    std::function<void(const StartRequest&)> taken_;
    std::vector<StartRequest> waiting_;
};

}  // namespace clb

#include "ThreadedHttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace skelda {

namespace {
// Waits until the descriptor can be read or the server is asked to end; false for the end.
bool WaitReadable(int descriptor, int wake) {
    pollfd waits[2] = {{descriptor, POLLIN, 0}, {wake, POLLIN, 0}};
    while (true) {
        const int ready = ::poll(waits, 2, -1);
        if (ready < 0) continue;  // interrupted
        if (waits[1].revents) return false;
        if (waits[0].revents) return true;
    }
}

void SendAll(int connection, const std::string& bytes) {
    size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t n = ::send(connection, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (n <= 0) return;
        sent += size_t(n);
    }
}
}  // namespace

ThreadedHttpServer::ThreadedHttpServer(Handler handler) : handler_(std::move(handler)) {
    // Not handed on to the programs a test starts (a server of its own, say): they would hold it too.
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = 0;
    socklen_t length = sizeof address;
    if (listener_ < 0 || ::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener_, 16) != 0 || ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length) != 0 ||
        ::pipe(wake_) != 0) {
        if (listener_ >= 0) ::close(listener_);
        throw std::runtime_error("the test HTTP server can't listen");
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { Serve(); });
}

ThreadedHttpServer::~ThreadedHttpServer() {
    const char byte = 0;
    (void)!::write(wake_[1], &byte, 1);
    thread_.join();
    ::close(listener_);
    ::close(wake_[0]);
    ::close(wake_[1]);
}

QString ThreadedHttpServer::Url(const QString& path) const {
    return QStringLiteral("http://127.0.0.1:%1%2").arg(port_).arg(path);
}

std::vector<std::string> ThreadedHttpServer::Requests() const {
    std::lock_guard lock(mutex_);
    return requests_;
}

std::string ThreadedHttpServer::Reply(int status, const std::string& body, const std::string& contentType) {
    return "HTTP/1.0 " + std::to_string(status) + (status == 200 ? " OK" : " Status") +
           "\r\nContent-Type: " + contentType + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" +
           body;
}

bool ThreadedHttpServer::ReadHead(int connection, std::string& head) const {
    char buffer[4096];
    while (head.find("\r\n\r\n") == std::string::npos) {
        if (!WaitReadable(connection, wake_[0])) return false;
        const ssize_t n = ::recv(connection, buffer, sizeof buffer, 0);
        if (n <= 0) return !head.empty();
        head.append(buffer, size_t(n));
    }
    head.resize(head.find("\r\n\r\n") + 4);
    return true;
}

void ThreadedHttpServer::Serve() {
    std::vector<int> held;  // connections left open without an answer
    while (WaitReadable(listener_, wake_[0])) {
        const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        std::string head;
        if (!ReadHead(connection, head)) {
            ::close(connection);
            break;
        }
        {
            std::lock_guard lock(mutex_);
            requests_.push_back(head);
        }
        const std::optional<std::string> answer = handler_(head);
        if (!answer) {
            held.push_back(connection);
            continue;
        }
        SendAll(connection, *answer);
        ::shutdown(connection, SHUT_WR);
        ::close(connection);
    }
    for (int connection : held) ::close(connection);
}

}  // namespace skelda

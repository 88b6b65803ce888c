// A small HTTP server on the loopback address that answers from a thread of its own, for tests
// of code that blocks the Qt thread while it waits for a page (the page-fetch control).
#pragma once

#include <QString>
#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace skelda {

class ThreadedHttpServer {
public:
    // Gets the head of a request (request line and headers, up to the empty line) and gives the
    // bytes to answer, after which the connection is closed; or nothing, to keep the connection
    // open without a word until the server ends.
    using Handler = std::function<std::optional<std::string>(const std::string& head)>;

    // Listens on 127.0.0.1 at a port the system gives; throws std::runtime_error if it can't.
    explicit ThreadedHttpServer(Handler handler);
    ~ThreadedHttpServer();
    ThreadedHttpServer(const ThreadedHttpServer&) = delete;
    ThreadedHttpServer& operator=(const ThreadedHttpServer&) = delete;

    int Port() const { return port_; }
    // "http://127.0.0.1:<port>" followed by the path.
    QString Url(const QString& path) const;
    // The heads received so far, in order.
    std::vector<std::string> Requests() const;

    // An HTTP/1.0 answer with the status, a Content-Type and Content-Length, and the body.
    static std::string Reply(int status, const std::string& body, const std::string& contentType = "text/html");

private:
    void Serve();
    bool ReadHead(int connection, std::string& head) const;

    Handler handler_;
    int listener_ = -1;
    int wake_[2] = {-1, -1};  // written to at the end, to wake the thread from its waits
    int port_ = 0;
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

}  // namespace skelda

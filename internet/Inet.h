// The page-fetch control: OpenURL fetches one page over HTTP and gives its text. It blocks until
// the page has come, as the program expects: nothing else runs meanwhile.
#pragma once

#include <QString>

namespace skelda {

// Failure numbers of the control, carried by the RuntimeError that OpenURL throws.
enum InetError : int {
    icUrlOpenFailed = 35751,  // "Unable to open URL": any other failure of the transfer
    icBadUrl = 35752,         // "URL is malformed"
    icProtMismatch = 35753,   // "Protocol not supported for this method"
    icConnectFailed = 35754,  // "Unable to connect to remote host": name unknown, refused, unreachable
    icRequestFailed = 35756,  // "Request to remote computer failed": the exchange broke off
    icTimeout = 35761,        // "Request timed out"
};

class Inet {
public:
    Inet();

    // Fetches the URL (http://, https:// or ftp://; with no scheme, http) and gives the body as
    // text, following redirections. Whatever the server answers counts: an error page or an
    // empty body is returned like any other. The body is read as UTF-8 when it is valid UTF-8
    // (a leading byte-order mark dropped), and as Latin-1 otherwise, so no byte is ever lost.
    // Fails with a RuntimeError of InetError when no answer comes, when no connection is made
    // within ConnectTimeout seconds, or when the page hasn't come whole within RequestTimeout.
    QString OpenURL(const QString& url);

    // The time allowed to a whole fetch, in seconds; 60 at first. 0 or less means no limit.
    int RequestTimeout() const { return requestTimeout_; }
    void SetRequestTimeout(int seconds) { requestTimeout_ = seconds; }

    // The time allowed to find the host and connect to it, in seconds; 5 at first, so that an
    // absent server holds the blocked window only a few seconds. 0 or less leaves it to the
    // whole fetch's time-out.
    int ConnectTimeout() const { return connectTimeout_; }
    void SetConnectTimeout(int seconds) { connectTimeout_ = seconds; }

private:
    int requestTimeout_ = 60;
    int connectTimeout_ = 5;
};

}  // namespace skelda

#include "Inet.h"

#include <curl/curl.h>

#include <QStringDecoder>
#include <memory>
#include <mutex>
#include <string>

#include "Failure.h"

namespace skelda {

namespace {

int NumberOf(CURLcode code) {
    switch (code) {
        case CURLE_URL_MALFORMAT:
            return icBadUrl;
        case CURLE_UNSUPPORTED_PROTOCOL:
            return icProtMismatch;
        case CURLE_COULDNT_RESOLVE_HOST:
        case CURLE_COULDNT_RESOLVE_PROXY:
        case CURLE_COULDNT_CONNECT:
            return icConnectFailed;
        case CURLE_OPERATION_TIMEDOUT:
            return icTimeout;
        case CURLE_GOT_NOTHING:
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
        case CURLE_PARTIAL_FILE:
        case CURLE_WEIRD_SERVER_REPLY:
            return icRequestFailed;
        default:
            return icUrlOpenFailed;
    }
}

[[noreturn]] void Fail(int number) { throw RuntimeError(number, ErrorDescription(number)); }

// Keeps what arrives. Nothing may be thrown through libcurl: a body too big to keep ends the
// transfer as a failed write instead.
size_t Collect(char* data, size_t size, size_t count, void* body) noexcept {
    try {
        static_cast<std::string*>(body)->append(data, size * count);
        return size * count;
    } catch (...) {
        return 0;
    }
}

QString TextOf(const std::string& body) {
    QByteArrayView bytes(body.data(), qsizetype(body.size()));
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (utf8.hasError()) return QString::fromLatin1(bytes);
    if (text.startsWith(QChar(0xFEFF))) text.remove(0, 1);
    return text;
}

struct EasyDeleter {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};

}  // namespace

Inet::Inet() {
    // libcurl's global set-up isn't thread-safe and is done once for the process.
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

QString Inet::OpenURL(const QString& url) {
    const QByteArray address = url.trimmed().toUtf8();
    if (address.isEmpty()) Fail(icBadUrl);
    std::unique_ptr<CURL, EasyDeleter> easy(curl_easy_init());
    if (!easy) Fail(icUrlOpenFailed);
    CURL* handle = easy.get();
    std::string body;
    curl_easy_setopt(handle, CURLOPT_URL, address.constData());
    curl_easy_setopt(handle, CURLOPT_DEFAULT_PROTOCOL, "http");
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https,ftp");
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https,ftp");
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, 10L);
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "Skelda");
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "");  // whatever compression libcurl can undo
    // A page on this machine (Skelda's gateway among them, on 127.0.0.1) is never fetched
    // through a proxy, whatever the environment names.
    curl_easy_setopt(handle, CURLOPT_NOPROXY, "localhost,127.0.0.0/8,::1");
    // No signals: a name lookup that hangs is ended by the time-out, not by an alarm.
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT, long(requestTimeout_ > 0 ? requestTimeout_ : 0));
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, long(connectTimeout_ > 0 ? connectTimeout_ : 0));
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &Collect);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
    const CURLcode result = curl_easy_perform(handle);
    if (result != CURLE_OK) Fail(NumberOf(result));
    return TextOf(body);
}

}  // namespace skelda

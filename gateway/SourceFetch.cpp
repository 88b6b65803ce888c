#include "SourceFetch.h"

#include <curl/curl.h>

#include <memory>

namespace skelda {

namespace {

constexpr qsizetype LargestReply = qsizetype{8} * 1024 * 1024;

size_t Collect(char* data, size_t size, size_t count, void* target) {
    auto* body = static_cast<QByteArray*>(target);
    const size_t length = size * count;
    if (body->size() + qsizetype(length) > LargestReply) return 0;  // ends the transfer as a failure
    body->append(data, qsizetype(length));
    return length;
}

}  // namespace

std::optional<QByteArray> FetchFromSource(const QString& address, const Place& place) {
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
    if (!curl) return std::nullopt;
    const QByteArray url = "http://" + address.toLatin1() + SourcePath(place);
    QByteArray body;
    CURL* h = curl.get();
    curl_easy_setopt(h, CURLOPT_URL, url.constData());
    // No proxy from the environment: the address is the gateway's own.
    curl_easy_setopt(h, CURLOPT_PROXY, "");
    curl_easy_setopt(h, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(h, CURLOPT_TIMEOUT_MS, 5000L);
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(h, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(h, CURLOPT_WRITEFUNCTION, Collect);
    curl_easy_setopt(h, CURLOPT_WRITEDATA, &body);
    if (curl_easy_perform(h) != CURLE_OK) return std::nullopt;
    long status = 0;
    curl_easy_getinfo(h, CURLINFO_RESPONSE_CODE, &status);
    // 203 is the source's "this product is going away", still a forecast.
    if (status != 200 && status != 203) return std::nullopt;
    return body;
}

}  // namespace skelda

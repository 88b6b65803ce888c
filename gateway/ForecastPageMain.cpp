// skelda-forecast-page: the CGI program that the gateway runs (through fcgiwrap) for
// "GET /forecast/<code>.html". It reads the code from SKELDA_CODE as it came in the path, and the
// address of the gateway's caching proxy of the source from SKELDA_SOURCE ("127.0.0.1:857"; absent
// or empty when the package was configured without a contact address: then nothing is asked and
// the page says the forecast isn't available), and writes the CGI reply on standard output.
#include "PageMaker.h"
#include "SourceFetch.h"

#include <QDateTime>

#include <curl/curl.h>

#include <cstdio>

int main() {
    using namespace skelda;
    curl_global_init(CURL_GLOBAL_DEFAULT);
    const QString code = qEnvironmentVariable("SKELDA_CODE");
    const QString source = qEnvironmentVariable("SKELDA_SOURCE");
    SourceFetch fetch;
    if (!source.isEmpty()) fetch = [&source](const Place& place) { return FetchFromSource(source, place); };
    const QByteArray reply = CgiReply(PageForCode(code, QDateTime::currentDateTimeUtc(), fetch));
    const bool written = std::fwrite(reply.constData(), 1, size_t(reply.size()), stdout) == size_t(reply.size());
    curl_global_cleanup();
    return written && std::fflush(stdout) == 0 ? 0 : 1;
}

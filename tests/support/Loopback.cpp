#include "Loopback.h"

#include <QTcpServer>

namespace skelda::test {

quint16 ClosedPort() {
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    const quint16 port = probe.serverPort();
    probe.close();
    return port;
}

}  // namespace skelda::test

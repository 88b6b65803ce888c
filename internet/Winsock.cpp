#include "Winsock.h"

#include <QHostInfo>
#include <QTcpSocket>
#include <QTimer>

#include "Failure.h"

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

#include <utility>

namespace skelda {

namespace {

int NumberOf(QAbstractSocket::SocketError error) {
    switch (error) {
        case QAbstractSocket::ConnectionRefusedError:
            return sckConnectionRefused;
        case QAbstractSocket::HostNotFoundError:
            return sckHostNotFound;
        case QAbstractSocket::SocketTimeoutError:
            return sckTimedout;
        case QAbstractSocket::NetworkError:
            return sckNetworkUnreachable;
        case QAbstractSocket::AddressInUseError:
            return sckAddressInUse;
        case QAbstractSocket::SocketAddressNotAvailableError:
            return sckAddressNotAvailable;
        default:
            return sckConnectAborted;
    }
}

// The errors by which the system refuses the local port we asked for, at bind or at connect.
bool RefusesLocalPort(QAbstractSocket::SocketError error) {
    return error == QAbstractSocket::AddressInUseError || error == QAbstractSocket::SocketAddressNotAvailableError ||
           error == QAbstractSocket::SocketAccessError;
}

// Makes a close of the socket a reset: the system then keeps nothing of the connection (no
// TIME_WAIT), and the next poll may use the same local port at once.
void ResetOnClose(QTcpSocket& socket) {
    const auto descriptor = socket.socketDescriptor();
    if (descriptor == -1) return;
    linger option{};
    option.l_onoff = 1;
    option.l_linger = 0;
    ::setsockopt(descriptor, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&option), sizeof option);
}

}  // namespace

Winsock::Winsock(QObject* parent) : QObject(parent) {}

Winsock::~Winsock() { Close(); }

int Winsock::BoundPort() const { return socket_ ? socket_->localPort() : 0; }

void Winsock::Connect() {
    if (state_ != sckClosed) throw RuntimeError(sckInvalidOp, ErrorDescription(sckInvalidOp));
    const quint64 attempt = ++attempt_;
    state_ = sckResolvingHost;
    // The work starts from the event loop, so that even a failure found at once reaches the
    // program as an event after Connect has returned, as it would from the network.
    QTimer::singleShot(0, this, [this, attempt] {
        if (attempt != attempt_) return;
        QHostAddress literal;
        if (literal.setAddress(remoteHost_)) {
            Resolved(attempt, {literal});
            return;
        }
        lookupId_ = QHostInfo::lookupHost(remoteHost_, this, [this, attempt](const QHostInfo& info) {
            if (attempt != attempt_) return;
            lookupId_ = -1;
            Resolved(attempt, info.error() == QHostInfo::NoError ? info.addresses() : QList<QHostAddress>{});
        });
    });
}

void Winsock::Resolved(quint64 attempt, const QList<QHostAddress>& addresses) {
    // The control speaks IPv4 only.
    for (const QHostAddress& address : addresses) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol) {
            address_ = address;
            state_ = sckHostResolved;
            StartSocket(attempt, true);
            return;
        }
    }
    RaiseError(sckHostNotFound, ErrorDescription(sckHostNotFound));
}

void Winsock::StartSocket(quint64 attempt, bool fromRequestedPort) {
    // The program asks for a local port from 91 to 100. An ordinary user may not bind a port
    // below 1024, and a port may still be held by another program or connection; the poll
    // doesn't depend on which local port it uses, so any port the system gives will do then.
    // A socket whose bind failed is not used again.
    constexpr auto mode = QAbstractSocket::ShareAddress | QAbstractSocket::ReuseAddressHint;
    auto* socket = new QTcpSocket(this);
    triedRequestedPort_ = fromRequestedPort && localPort_ > 0;
    if (triedRequestedPort_ && !socket->bind(QHostAddress::AnyIPv4, quint16(localPort_), mode)) {
        delete socket;
        socket = new QTcpSocket(this);
        triedRequestedPort_ = false;
    }
    if (!triedRequestedPort_ && !socket->bind(QHostAddress::AnyIPv4, 0, mode)) {
        delete socket;
        RaiseError(sckAddressInUse, ErrorDescription(sckAddressInUse));
        return;
    }
    ResetOnClose(*socket);

    // Connected only now, so that a refused bind above raises no event.
    socket_ = socket;
    connect(socket, &QTcpSocket::connected, this, [this, attempt] {
        if (attempt != attempt_) return;
        state_ = sckConnected;
        emit connected();
    });
    connect(socket, &QTcpSocket::readyRead, this, [this, attempt, socket] {
        if (attempt != attempt_) return;
        received_ += socket->readAll();
        emit DataArrival(received_.size());
    });
    connect(socket, &QTcpSocket::errorOccurred, this,
            [this, attempt](QAbstractSocket::SocketError error) { SocketFailed(attempt, error); });
    state_ = sckConnecting;
    socket->connectToHost(address_, quint16(remotePort_));
}

void Winsock::SocketFailed(quint64 attempt, int socketError) {
    if (attempt != attempt_) return;
    const auto error = QAbstractSocket::SocketError(socketError);
    if (error == QAbstractSocket::RemoteHostClosedError && state_ == sckConnected) {
        // The other side ended the exchange. What it sent stays readable; the program ignores
        // the control's Close event, so there is none.
        state_ = sckClosing;
        return;
    }
    if (state_ == sckConnecting && triedRequestedPort_ && RefusesLocalPort(error)) {
        // The requested port was bound, but the system won't connect from it (the same pair of
        // addresses is still remembered from an earlier connection): once more from any port.
        DropSocket();
        StartSocket(attempt, false);
        return;
    }
    const int number = NumberOf(error);
    RaiseError(number, ErrorDescription(number));
}

void Winsock::RaiseError(int number, const QString& description) {
    DropSocket();
    state_ = sckError;
    emit Error(number, description);
}

void Winsock::DropSocket() {
    QTcpSocket* socket = std::exchange(socket_, nullptr);
    if (!socket) return;
    disconnect(socket, nullptr, this, nullptr);
    socket->abort();
    // It may be the sender of the signal being handled right now.
    socket->deleteLater();
}

void Winsock::SendData(const QByteArray& data) {
    if (state_ != sckConnected || !socket_) throw RuntimeError(sckBadState, ErrorDescription(sckBadState));
    socket_->write(data);
}

void Winsock::SendData(const QString& text) { SendData(text.toLatin1()); }

QString Winsock::GetData() {
    if (socket_) received_ += socket_->readAll();
    return QString::fromLatin1(std::exchange(received_, QByteArray()));
}

void Winsock::Close() {
    ++attempt_;
    if (lookupId_ != -1) QHostInfo::abortHostLookup(lookupId_);
    lookupId_ = -1;
    DropSocket();
    received_.clear();
    state_ = sckClosed;
}

}  // namespace skelda

// The TCP socket control of the main window: one outgoing connection at a time, with the members
// and events that the poll cycle uses.
//
// Events come from the event loop only, never from inside a method: a failed connection raises
// Error later, not from Connect. Close abandons the connection and everything still on its way:
// no event of it comes after Close.
#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QObject>
#include <QString>

class QTcpSocket;

namespace skelda {

// The states of the control, with its own numbers.
enum WinsockState : int {
    sckClosed = 0,
    sckOpen = 1,
    sckListening = 2,
    sckConnectionPending = 3,
    sckResolvingHost = 4,
    sckHostResolved = 5,
    sckConnecting = 6,
    sckConnected = 7,
    sckClosing = 8,  // the other side has closed; what it sent can still be read
    sckError = 9,
};

// Failure numbers of the control, raised by its methods or carried by the Error event.
enum WinsockError : int {
    sckAddressInUse = 10048,
    sckAddressNotAvailable = 10049,
    sckNetworkUnreachable = 10051,
    sckConnectAborted = 10053,
    sckTimedout = 10060,
    sckConnectionRefused = 10061,
    sckHostNotFound = 11001,
    sckBadState = 40006,
    sckInvalidOp = 40020,
};

class Winsock : public QObject {
    Q_OBJECT
public:
    explicit Winsock(QObject* parent = nullptr);
    ~Winsock() override;

    // ---- Properties, read by Connect. LocalPort 0 lets the system choose.
    int LocalPort() const { return localPort_; }
    void SetLocalPort(int port) { localPort_ = port; }
    QString RemoteHost() const { return remoteHost_; }
    void SetRemoteHost(const QString& host) { remoteHost_ = host; }
    int RemotePort() const { return remotePort_; }
    void SetRemotePort(int port) { remotePort_ = port; }
    // One of WinsockState.
    int State() const { return state_; }
    // The local port of the present connection, which may differ from LocalPort (see Connect);
    // 0 when there is none.
    int BoundPort() const;

    // Starts connecting from LocalPort to RemoteHost:RemotePort (IPv4). Raises connected() when
    // the connection is made, Error when it can't be. When the system refuses LocalPort (a port
    // below 1024 for an ordinary user, or one still held), the connection is made from a port
    // that the system gives instead. Called in any state but Closed: RuntimeError sckInvalidOp.
    void Connect();
    // Sends the bytes; a text is sent as Latin-1 (the requests are ASCII). Without a connection:
    // RuntimeError sckBadState.
    void SendData(const QByteArray& data);
    void SendData(const QString& text);
    // What has arrived and wasn't read yet, as Latin-1 text; "" when nothing has.
    QString GetData();
    // Ends the connection at once, or abandons one being made, and forgets what wasn't read.
    // Harmless on a closed control.
    void Close();

signals:
    // The connection is made (the control's Connect event).
    void connected();
    // Bytes have arrived; bytesTotal is all that waits to be read.
    void DataArrival(qint64 bytesTotal);
    // The connection failed or broke; number is one of WinsockError. The control is left in
    // sckError until Close.
    void Error(int number, const QString& description);

private:
    void Resolved(quint64 attempt, const QList<QHostAddress>& addresses);
    void StartSocket(quint64 attempt, bool fromRequestedPort);
    void SocketFailed(quint64 attempt, int socketError);
    void RaiseError(int number, const QString& description);
    void DropSocket();

    int localPort_ = 0;
    QString remoteHost_;
    int remotePort_ = 0;
    int state_ = sckClosed;
    QTcpSocket* socket_ = nullptr;
    QHostAddress address_;
    bool triedRequestedPort_ = false;
    int lookupId_ = -1;
    QByteArray received_;
    // Counts the connections begun; a late event of an abandoned one carries an older count and
    // is ignored.
    quint64 attempt_ = 0;
};

}  // namespace skelda

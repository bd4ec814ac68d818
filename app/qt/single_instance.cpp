#include "app/qt/single_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>

namespace zol {
namespace {

constexpr int kConnectTimeoutMs = 500;
constexpr int kWriteTimeoutMs = 2000;
constexpr int kReadTimeoutMs = 2000;
// The first instance acknowledges with this byte once it has the list.
constexpr char kAck = '\x06';

}  // namespace

QString instanceServerName(const std::string& home) {
    const QByteArray digest =
        QCryptographicHash::hash(QByteArray::fromStdString(home), QCryptographicHash::Sha1).toHex().left(16);
    return QStringLiteral("zolder-") + QString::fromLatin1(digest);
}

bool handOverFiles(const std::string& home, const std::vector<std::string>& files) {
    QLocalSocket socket;
    socket.connectToServer(instanceServerName(home));
    if (!socket.waitForConnected(kConnectTimeoutMs)) return false;
    QByteArray message;
    for (const std::string& f : files) {
        message += QDir::current().absoluteFilePath(QString::fromLocal8Bit(f.c_str())).toLocal8Bit();
        message += '\n';
    }
    message += '\n';  // an empty line ends the list
    socket.write(message);
    if (!socket.waitForBytesWritten(kWriteTimeoutMs)) return false;
    if (!socket.waitForReadyRead(kReadTimeoutMs)) return false;
    return socket.read(1) == QByteArray(1, kAck);
}

bool TInstanceServer::listen(const std::string& home) {
    const QString name = instanceServerName(home);
    if (!server_.listen(name)) {
        // A socket left by a crashed instance: nobody answers on it any more.
        QLocalServer::removeServer(name);
        if (!server_.listen(name)) return false;
    }
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* s = server_.nextPendingConnection()) {
            auto buffer = std::make_shared<QByteArray>();
            connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
            connect(s, &QLocalSocket::readyRead, this, [this, s, buffer] {
                *buffer += s->readAll();
                if (!buffer->endsWith("\n\n") && *buffer != "\n") return;
                QStringList files;
                for (const QByteArray& line : buffer->split('\n'))
                    if (!line.isEmpty()) files << QString::fromLocal8Bit(line);
                buffer->clear();
                s->write(QByteArray(1, kAck));
                s->flush();
                Q_EMIT filesReceived(files);
            });
        }
    });
    return true;
}

}  // namespace zol

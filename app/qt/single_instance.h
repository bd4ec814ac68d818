// One running editor per home folder: a second start hands its files to the first
// over a local socket and ends.
#pragma once
#include <QLocalServer>
#include <QObject>
#include <QStringList>
#include <string>
#include <vector>

namespace zol {

// The socket name of a home folder's instance.
QString instanceServerName(const std::string& home);

// Sends the files (made absolute) to the running instance of home. False when none
// answers; the caller then starts as the first instance.
bool handOverFiles(const std::string& home, const std::vector<std::string>& files);

class TInstanceServer : public QObject {
    Q_OBJECT

public:
    explicit TInstanceServer(QObject* parent = nullptr) : QObject(parent) {}
    // Starts listening for later instances; false when the name cannot be taken.
    bool listen(const std::string& home);

Q_SIGNALS:
    void filesReceived(const QStringList& files);

private:
    QLocalServer server_;
};

}  // namespace zol

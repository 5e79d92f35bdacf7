#include "app/first_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QThread>
#include <utility>

namespace zentaline {

namespace {

// Milliseconds.
constexpr int kPatience = 3000;
constexpr int kRetry = 100;

constexpr char kTaken = '+';
constexpr qint64 kMostBytes = 1 << 20;  // of a message: an activation token and paths, each ended by a zero byte

// The folder of this login is nobody else's; where there is none, the name tells the user.
QString SocketName(const struct stat& directory) {
  const QString name = QStringLiteral("zentaline-%1-%2-%3")
                           .arg(geteuid())
                           .arg(static_cast<qulonglong>(directory.st_dev), 0, 16)
                           .arg(static_cast<qulonglong>(directory.st_ino), 0, 16);
  const QString own = QString::fromLocal8Bit(qgetenv("XDG_RUNTIME_DIR"));
  const QFileInfo folder(own);
  return own.isEmpty() || !folder.isDir() || !folder.isWritable() ? name : own + u'/' + name;
}

// A name can be taken by anybody.
bool IsOurs(const QLocalSocket& socket) {
  ucred other{};
  socklen_t length = sizeof other;
  const int descriptor = static_cast<int>(socket.socketDescriptor());
  return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &other, &length) == 0 && other.uid == geteuid();
}

QByteArray Message(const std::vector<std::string>& files) {
  QByteArray message = qgetenv("XDG_ACTIVATION_TOKEN");
  message.append('\0');
  for (const std::string& file : files) message.append(file.data(), static_cast<qsizetype>(file.size())).append('\0');
  return message.append('\0');
}

// Only whole messages: they end with an empty path.
bool IsWhole(const QByteArray& message) {
  return message.endsWith(QByteArray("\0\0", 2));
}

}  // namespace

FirstInstance::FirstInstance() : directory_(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  struct stat info {};
  if (!directory_.Valid() || fstat(directory_.Number(), &info) != 0) return;
  name_ = SocketName(info);
  first_ = flock(directory_.Number(), LOCK_EX | LOCK_NB) == 0;
}

bool FirstInstance::HandOver(const std::vector<std::string>& files) {
  if (first_ || name_.isEmpty()) return false;
  QElapsedTimer since;
  since.start();
  // The first may be about to listen, or to end.
  while (since.elapsed() < kPatience) {
    QLocalSocket socket;
    socket.connectToServer(name_);
    if (socket.waitForConnected(kPatience) && IsOurs(socket)) {
      socket.write(Message(files));
      socket.flush();
      return socket.waitForReadyRead(kPatience) && socket.read(1) == QByteArray(1, kTaken);
    }
    if (flock(directory_.Number(), LOCK_EX | LOCK_NB) == 0) {
      first_ = true;
      return false;
    }
    QThread::msleep(kRetry);
  }
  return false;
}

void FirstInstance::Listen(std::function<void(const std::vector<std::string>&)> take) {
  if (!first_) return;
  take_ = std::move(take);
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  // Nobody else listens: what has the name is left by one that was killed.
  QLocalServer::removeServer(name_);
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { Connected(); });
  server_.listen(name_);
}

void FirstInstance::Connected() {
  QLocalSocket* socket = server_.nextPendingConnection();
  if (socket == nullptr) return;
  QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  if (!IsOurs(*socket)) return socket->abort();
  const auto read = [this, socket] {
    if (socket->bytesAvailable() > kMostBytes) return socket->abort();
    if (!IsWhole(socket->peek(kMostBytes))) return;
    QList<QByteArray> words = socket->readAll().split('\0');
    qputenv("XDG_ACTIVATION_TOKEN", words.takeFirst());
    std::vector<std::string> files;
    for (const QByteArray& word : words) {
      if (!word.isEmpty()) files.push_back(word.toStdString());
    }
    socket->write(&kTaken, 1);
    socket->flush();
    socket->disconnectFromServer();
    take_(files);
  };
  QObject::connect(socket, &QLocalSocket::readyRead, socket, read);
  if (socket->bytesAvailable() > 0) read();
}

}  // namespace zentaline

#include "kits/desktop/SystemLocale.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <cstring>
#include <string>
#include <utility>

namespace BPrivate {

namespace {

constexpr char kConnection[] = "lorivane_system_locale";
constexpr char kService[] = "org.freedesktop.locale1";
constexpr char kObject[] = "/org/freedesktop/locale1";
constexpr char kInterface[] = "org.freedesktop.locale1";
constexpr char kProperties[] = "org.freedesktop.DBus.Properties";
constexpr char kLocale[] = "Locale";

QString Text(const char* text) {
    return QString::fromLatin1(text);
}

// The socket of the system's bus, empty when its address is of another kind.
std::string SocketPath() {
    const QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    if (address.isEmpty())
        return "/run/dbus/system_bus_socket";
    const QByteArray prefix("unix:path=");
    if (!address.startsWith(prefix))
        return {};
    return address.mid(prefix.size()).split(';').front().split(',').front().toStdString();
}

// Qt waits without end for a bus that accepts connections and says nothing, in the one thread it
// has for all buses, and the program could not even end.
bool BusAnswers() {
    constexpr int kPatienceMilliseconds = 1000;
    // The nul byte that each connection begins with, and a question that any bus answers.
    constexpr char kQuestion[] = "\0AUTH\r\n";

    const std::string path = SocketPath();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof(address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);

    const int bus = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (bus < 0)
        return false;
    pollfd answer{bus, POLLIN, 0};
    const bool answers =
        connect(bus, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
        send(bus, kQuestion, sizeof(kQuestion) - 1, MSG_NOSIGNAL) > 0 &&
        poll(&answer, 1, kPatienceMilliseconds) == 1;
    close(bus);
    return answers;
}

}  // namespace

// Connecting waits for the bus's answers, which the display's thread must not.
SystemLocale::SystemLocale(Listener listener)
    : fListener(std::move(listener)), fConnecting([this] { Connect(); }) {}

SystemLocale::~SystemLocale() {
    fConnecting.join();
    QDBusConnection::disconnectFromBus(Text(kConnection));
}

void SystemLocale::Connect() {
    if (!BusAnswers())
        return;
    QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SystemBus, Text(kConnection));
    if (bus.isConnected()) {
        (void)bus.connect(Text(kService), Text(kObject), Text(kProperties),
            Text("PropertiesChanged"), this,
            SLOT(PropertiesChanged(QString, QVariantMap, QStringList)));
    }
}

void SystemLocale::PropertiesChanged(
    const QString& interface, const QVariantMap& changed, const QStringList& invalidated) {
    if (interface != Text(kInterface))
        return;
    if (const auto found = changed.find(Text(kLocale)); found != changed.end()) {
        fListener(found->toStringList());
    } else if (invalidated.contains(Text(kLocale))) {
        QDBusMessage read = QDBusMessage::createMethodCall(
            Text(kService), Text(kObject), Text(kProperties), Text("Get"));
        read << Text(kInterface) << Text(kLocale);
        QDBusConnection(Text(kConnection))
            .callWithCallback(read, this, SLOT(LocaleRead(QDBusVariant)));
    }
}

void SystemLocale::LocaleRead(const QDBusVariant& value) {
    fListener(value.variant().toStringList());
}

}  // namespace BPrivate

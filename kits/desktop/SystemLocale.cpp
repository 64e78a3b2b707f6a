#include "kits/desktop/SystemLocale.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
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

}  // namespace

// Connecting waits for the bus's answers, which the display's thread must not.
SystemLocale::SystemLocale(Listener listener)
    : fListener(std::move(listener)), fConnecting([this] { Connect(); }) {}

SystemLocale::~SystemLocale() {
    fConnecting.join();
    QDBusConnection::disconnectFromBus(Text(kConnection));
}

void SystemLocale::Connect() {
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

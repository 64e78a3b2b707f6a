#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <thread>

class QDBusMessage;
class QDBusVariant;

namespace BPrivate {

/// Hears the system's locale setting change, on the system's bus. Where there is no such bus it
/// stays silent.
///
/// The setting itself is not asked for at the start: that would start the service behind it for
/// every viewer, and a session may well have a language of its own.
class SystemLocale : public QObject {
    Q_OBJECT

public:
    using Listener = std::function<void(const QStringList& assignments)>;

    /// The listener is called in the thread that makes this object, with lines such as
    /// "LANG=de_DE.UTF-8". Returns without having waited for the bus.
    explicit SystemLocale(Listener listener);
    ~SystemLocale() override;

public Q_SLOTS:
    void PropertiesChanged(
        const QString& interface, const QVariantMap& changed, const QStringList& invalidated);
    void LocaleRead(const QDBusVariant& value);

private:
    void Connect();

    const Listener fListener;
    std::thread fConnecting;
};

}  // namespace BPrivate

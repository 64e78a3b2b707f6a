#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "kits/desktop/ScreenTable.h"

namespace BPrivate {

/// Keeps the table of screens as the desktop has them. Main thread only.
class ScreenWatch : public QObject {
public:
    ScreenWatch();
    ~ScreenWatch() override;

    const std::shared_ptr<ScreenTable>& Table() const { return fTable; }

    /// Calls back some time after a screen came, went or changed, as long as the listener lives.
    void WhenChanged(QObject& listener, std::function<void()> call);

private:
    void Follow();

    const std::shared_ptr<ScreenTable> fTable;
    std::vector<QMetaObject::Connection> fScreenConnections;
    QTimer fChanged;  // one change of the desktop's is many of Qt's
};

}  // namespace BPrivate

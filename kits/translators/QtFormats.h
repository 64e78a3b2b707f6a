#pragma once

#include "kits/translation/AddOn.h"
#include <QByteArray>
#include <QIODevice>

namespace BPrivate::AddOn {

/// A file as Qt reads it, always from the beginning.
class SourceDevice final : public QIODevice {
public:
    explicit SourceDevice(Source& source) : fSource(source) { open(QIODevice::ReadOnly); }

    qint64 size() const override { return std::max<int64>(fSource.Size(), 0); }

protected:
    qint64 readData(char* buffer, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    Source& fSource;
};

/// Qt's name for the source's format by its contents, empty if it is none that this add-on reads.
/// The formats of other add-ons are not.
QByteArray FindFormat(Source& source);

/// What is told of the format.
Format DescribeFormat(const QByteArray& qtName);

}  // namespace BPrivate::AddOn

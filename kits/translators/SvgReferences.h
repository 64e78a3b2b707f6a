#pragma once

#include <QString>

namespace BPrivate::AddOn {

/// The style without what it names outside of the drawing: a `url()` of anything but "#id" is left
/// out, or "none" where nothing else is given; an `@import` is left out.
QString StyleWithinDrawing(QString style);

/// The bytes of a "data:" reference, which are Base64 or written with percent signs; null if it is
/// none or has no bytes.
QByteArray DataOfReference(QStringView reference);

/// A "data:" reference of an image of the given type, which Qt reads, or takes for the name of a
/// file that cannot exist.
QString ReferenceOfData(const QByteArray& data, const QString& mime);

}  // namespace BPrivate::AddOn

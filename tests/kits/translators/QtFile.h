#pragma once

#include "tests/kits/translators/CodecHarness.h"
#include <QByteArray>
#include <QImage>
#include <QImageIOHandler>

Bytes FromText(const std::string& text);
/// As gzip does it.
std::string Compressed(const std::string& text);

QImage ToQImage(const Picture& picture);
Picture FromQImage(const QImage& image);

/// Encodes with Qt.
Bytes MakeQtFile(const QImage& image, const QByteArray& format, const QByteArray& subType = {},
    QImageIOHandler::Transformations transformation = QImageIOHandler::TransformationNone);

/// An uncompressed GIF of one frame, or two, whose pixels are their column's number times 16.
Bytes MakeGif(uint8 width, uint8 height, int frames = 1);
/// What it shows.
Picture GifPicture(uint8 width, uint8 height);

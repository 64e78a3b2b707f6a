// render_icon DRAWING SIZE FILE: writes the drawing as rows of B, G, R, A (alpha not
// premultiplied), SIZE by SIZE pixels.

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: render_icon DRAWING SIZE FILE\n", stderr);
        return 2;
    }
    // For the plug-in that reads drawings.
    const QCoreApplication application(argc, argv);

    QImageReader reader(QString::fromLocal8Bit(argv[1]), "svg");
    const int size = QByteArray(argv[2]).toInt();
    reader.setScaledSize(QSize(size, size));
    // The kits' pixels in memory, B first, on the little-endian machines they run on.
    const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
    if (size <= 0 || image.size() != QSize(size, size)) {
        std::fprintf(stderr, "%s: %s (is Qt's SVG plug-in installed?)\n", argv[1],
            qPrintable(reader.errorString()));
        return 1;
    }

    QFile file(QString::fromLocal8Bit(argv[3]));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 1;
    // A row of 32-bit pixels has no padding.
    const auto length = qint64(image.sizeInBytes());
    return file.write(reinterpret_cast<const char*>(image.constBits()), length) == length &&
            file.flush()
        ? 0
        : 1;
}

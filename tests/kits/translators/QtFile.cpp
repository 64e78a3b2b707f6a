#include "tests/kits/translators/QtFile.h"
#include <QBuffer>
#include <QImageWriter>
#include <cstring>
#include <zlib.h>

Bytes FromText(const std::string& text) {
    return {text.begin(), text.end()};
}

std::string Compressed(const std::string& text) {
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    std::string file(text.size() + 100, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = uInt(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(file.data());
    stream.avail_out = uInt(file.size());
    deflate(&stream, Z_FINISH);
    file.resize(stream.total_out);
    deflateEnd(&stream);
    return file;
}

QImage ToQImage(const Picture& picture) {
    QImage image(int(picture.width), int(picture.height), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); y++) {
        for (int x = 0; x < image.width(); x++)
            image.setPixel(x, y, picture.At(uint32(x), uint32(y)));
    }
    return image;
}

Picture FromQImage(const QImage& image) {
    Picture picture{uint32(image.width()), uint32(image.height()), {}};
    for (int y = 0; y < image.height(); y++) {
        for (int x = 0; x < image.width(); x++)
            picture.pixels.push_back(image.pixel(x, y));
    }
    return picture;
}

Bytes MakeQtFile(const QImage& image, const QByteArray& format, const QByteArray& subType,
    QImageIOHandler::Transformations transformation) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(100);
    if (!subType.isEmpty())
        writer.setSubType(subType);
    if (transformation != QImageIOHandler::TransformationNone)
        writer.setTransformation(transformation);
    writer.write(image);
    const QByteArray& data = buffer.data();
    return {data.begin(), data.end()};
}

Bytes MakeGif(uint8 width, uint8 height, int frames) {
    Bytes file = {'G', 'I', 'F', '8', '9', 'a', width, 0, height, 0, 0xf3, 0, 0};
    for (int i = 0; i < 16; i++)
        file.insert(file.end(), {uint8(i * 16), uint8(i * 16), uint8(i * 16)});
    for (int frame = 0; frame < frames; frame++) {
        file.insert(file.end(), {0x2c, 0, 0, 0, 0, width, 0, height, 0, 0, 4});
        // Five bits a code; after every 14 pixels the table is cleared, so that it never grows to
        // six.
        Bytes data;
        uint32 bits = 0;
        int count = 0;
        const auto put = [&](uint32 code) {
            bits |= code << count;
            for (count += 5; count >= 8; count -= 8, bits >>= 8)
                data.push_back(uint8(bits));
        };
        constexpr uint32 kClear = 16;
        constexpr uint32 kEnd = 17;
        for (int i = 0; i < width * height; i++) {
            if (i % 14 == 0)
                put(kClear);
            put(uint32(i % width + frame) % 16);
        }
        put(kEnd);
        if (count > 0)
            data.push_back(uint8(bits));
        for (size_t at = 0; at < data.size(); at += 255) {
            const size_t size = std::min<size_t>(255, data.size() - at);
            file.push_back(uint8(size));
            file.insert(
                file.end(), data.begin() + ptrdiff_t(at), data.begin() + ptrdiff_t(at + size));
        }
        file.push_back(0);
    }
    file.push_back(0x3b);
    return file;
}

Picture GifPicture(uint8 width, uint8 height) {
    Picture picture{width, height, {}};
    for (int i = 0; i < width * height; i++) {
        const auto gray = uint8(i % width % 16 * 16);
        picture.pixels.push_back(Bgra(gray, gray, gray));
    }
    return picture;
}

#include "kits/translators/QtFormats.h"

#include "kits/translators/Completeness.h"
#include "kits/translators/QtSvg.h"
#include <QImageReader>
#include <algorithm>
#include <map>
#include <mutex>
#include <string>

namespace BPrivate::AddOn {

qint64 SourceDevice::readData(char* buffer, qint64 size) {
    const int64 bytes = fSource.ReadAt(pos(), buffer, size_t(std::max<qint64>(size, 0)));
    return bytes < 0 ? -1 : bytes;
}

// A few formats have next to no mark, so that Qt sees them in films, archives and texts.
static bool IsReally(const QByteArray& format, Source& source) {
    if (format == "jpeg" || format == "jpg" || format == "png")
        return false;
    // A film that may repeat its pictures 2^31 times, which the plug-in does.
    if (format == "mng")
        return false;
    if (format == "wbmp")
        return IsSoundWbmp(source);
    if (format == "tga")
        return IsSoundTga(source);
    if (format == "ico" || format == "cur")
        return IsSoundIcon(source);
    if (format == "svg" || format == "svgz")
        return IsSvg(source);
    return true;
}

QByteArray FindFormat(Source& source) {
    SourceDevice device(source);
    const QByteArray format = QImageReader::imageFormat(&device);
    if (!format.isEmpty() && IsReally(format, source))
        return format;
    // A TGA file begins like a cursor.
    if (IsSoundTga(source) && QImageReader::supportedImageFormats().contains("tga"))
        return "tga";
    return {};
}

Format DescribeFormat(const QByteArray& qtName) {
    static constexpr struct {
        const char* qtName;
        type_code type;
        const char* name;
        const char* mime;
    } kKnown[] = {
        {"avif", 'AVIF', "AVIF image", "image/avif"},
        {"bmp", 'BMP ', "BMP image", "image/bmp"},
        {"cur", 'CUR ', "Cursor", "image/x-win-bitmap"},
        {"gif", 'GIF ', "GIF image", "image/gif"},
        {"heic", 'HEIC', "HEIC image", "image/heic"},
        {"heif", 'HEIF', "HEIF image", "image/heif"},
        {"icns", 'ICNS', "ICNS icon", "image/x-icns"},
        {"ico", 'ICO ', "Icon", "image/vnd.microsoft.icon"},
        {"jp2", 'JP2 ', "JP2 image", "image/jp2"},
        {"jxl", 'JXL ', "JXL image", "image/jxl"},
        {"pbm", 'PBM ', "PBM image", "image/x-portable-bitmap"},
        {"pgm", 'PGM ', "PGM image", "image/x-portable-graymap"},
        {"ppm", 'PPM ', "PPM image", "image/x-portable-pixmap"},
        {"svg", 'SVG ', "SVG image", "image/svg+xml"},
        {"svgz", 'SVG ', "SVG image", "image/svg+xml"},
        {"tga", 'TGA ', "TGA image", "image/x-tga"},
        {"tif", 'TIFF', "TIFF image", "image/tiff"},
        {"tiff", 'TIFF', "TIFF image", "image/tiff"},
        {"wbmp", 'WBMP', "WBMP image", "image/vnd.wap.wbmp"},
        {"webp", 'WEBP', "WebP image", "image/webp"},
        {"xbm", 'XBM ', "XBM image", "image/x-xbitmap"},
        {"xpm", 'XPM ', "XPM image", "image/x-xpixmap"},
    };
    constexpr float kQuality = 0.5f;
    constexpr float kCapability = 0.5f;
    for (const auto& known : kKnown) {
        if (qtName == known.qtName)
            return {known.type, known.name, known.mime, kQuality, kCapability};
    }
    // A plug-in somebody installed. Its strings live as long as the add-on; there are few.
    static std::mutex mutex;
    static auto& names = *new std::map<QByteArray, std::pair<std::string, std::string>>;
    const std::lock_guard lock(mutex);
    auto& [name, mime] = names[qtName];
    name = qtName.toUpper().toStdString() + " image";
    mime = "image/x-" + qtName.toLower().toStdString();
    type_code type = 0;
    for (qsizetype i = 0; i < 4; i++)
        type = type << 8 | (i < qtName.size() ? uint8(toupper(qtName[i])) : ' ');
    return {type, name.c_str(), mime.c_str(), kQuality, kCapability};
}

}  // namespace BPrivate::AddOn

#include "kits/translators/QtSvg.h"

#include "kits/translators/Problem.h"
#include "kits/translators/SvgCopy.h"
#include <QGuiApplication>
#include <QXmlStreamReader>
#include <algorithm>
#include <zlib.h>

namespace BPrivate::AddOn {

// Drawings of maps have some tens of megabytes; and every element is an object in memory.
static constexpr qsizetype kMaxText = 128 * 1024 * 1024;

static bool IsCompressed(Source& source) {
    uint8 magic[2];
    return source.ReadAt(0, magic, 2) == 2 && magic[0] == 0x1f && magic[1] == 0x8b;
}

// Up to `limit` bytes of the file's text. `whole` tells whether that is all there is.
static bool ReadText(Source& source, qsizetype limit, QByteArray* text, bool* whole) {
    const bool compressed = IsCompressed(source);
    constexpr int kGzipFormat = 16;
    z_stream stream{};
    if (compressed && inflateInit2(&stream, kGzipFormat + MAX_WBITS) != Z_OK)
        return false;
    text->clear();
    *whole = false;
    bool sound = true;
    QByteArray in(64 * 1024, Qt::Uninitialized);
    QByteArray out(256 * 1024, Qt::Uninitialized);
    for (int64 offset = 0; text->size() < limit && !*whole;) {
        const int64 got = source.ReadAt(offset, in.data(),
            size_t(compressed ? in.size() : std::min(in.size(), limit - text->size())));
        if (got <= 0) {
            *whole = got == 0 && !compressed;
            sound = *whole;
            break;
        }
        offset += got;
        if (!compressed) {
            text->append(in.constData(), got);
            continue;
        }
        stream.next_in = reinterpret_cast<Bytef*>(in.data());
        stream.avail_in = uInt(got);
        do {
            stream.next_out = reinterpret_cast<Bytef*>(out.data());
            stream.avail_out = uInt(std::min(out.size(), limit - text->size()));
            const int result = inflate(&stream, Z_NO_FLUSH);
            text->append(out.constData(), reinterpret_cast<char*>(stream.next_out) - out.data());
            *whole = result == Z_STREAM_END;
            sound = result == Z_OK || result == Z_STREAM_END || result == Z_BUF_ERROR;
        } while (sound && !*whole && stream.avail_out == 0 && text->size() < limit);
        if (!sound)
            break;
    }
    if (compressed)
        inflateEnd(&stream);
    return sound;
}

bool IsSvg(Source& source) {
    QByteArray begin;
    bool whole;
    // Comments and a document type may precede the first element.
    constexpr qsizetype kBegin = 16 * 1024;
    if (!ReadText(source, kBegin, &begin, &whole))
        return false;
    QXmlStreamReader xml(begin);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement)
            return xml.name() == u"svg";
    }
    return false;
}

status_t ReadSvgText(Source& source, qsizetype limit, QByteArray* text, Problem* problem) {
    bool whole;
    if (!ReadText(source, limit, text, &whole))
        return Fail(problem, B_BAD_DATA, "the drawing's text cannot be read");
    if (!whole)
        return Fail(
            problem, B_NO_MEMORY, "the drawing has more than %lld bytes of text", (long long)limit);
    return B_OK;
}

status_t ReadSvg(Source& source, uint64 memoryBudget, QByteArray* text, Problem* problem) {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        return Fail(problem, B_NOT_SUPPORTED, "drawings need a running display");
    QByteArray original;
    if (status_t status = ReadSvgText(source, kMaxText, &original, problem); status != B_OK)
        return status;
    // Each is decoded, and may be converted; and the picture itself needs as much.
    constexpr uint64 kBytesPerPixel = 16;
    SvgBudget budget{kMaxText - original.size(), memoryBudget / kBytesPerPixel};
    return SvgCopy(&budget).Make(original, text, problem);
}

}  // namespace BPrivate::AddOn

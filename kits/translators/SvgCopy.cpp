#include "kits/translators/SvgCopy.h"

#include "kits/translators/Problem.h"
#include "kits/translators/QtSvg.h"
#include "kits/translators/SvgReferences.h"
#include "kits/translators/SvgUses.h"
#include <QBuffer>
#include <QImageReader>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <cstring>

namespace BPrivate::AddOn {

namespace {

// The reader of the drawing calls itself for every level.
constexpr int kMaxDepth = 200;
// A drawing within a drawing within the drawing; who has more, means harm.
constexpr int kMaxLevel = 2;

class BytesSource final : public Source {
public:
    explicit BytesSource(const QByteArray& bytes) : fBytes(bytes) {}

    int64 ReadAt(int64 offset, void* buffer, size_t size) override {
        const size_t left = size_t(std::max<int64>(fBytes.size() - offset, 0));
        const size_t count = std::min(size, left);
        if (count > 0)
            memcpy(buffer, fBytes.constData() + offset, count);
        return int64(count);
    }
    int64 Size() override { return fBytes.size(); }

private:
    const QByteArray& fBytes;
};

bool IsReference(QStringView attribute) {
    return attribute == u"href" || attribute == u"src" || attribute == u"base";
}

}  // namespace

status_t SvgCopy::Make(const QByteArray& text, QByteArray* copy, Problem* problem) {
    QXmlStreamReader xml(text);
    QXmlStreamWriter out(copy);
    SvgUses uses;
    QString style;  // of a `style` element, gathered: parts of a word may be marked as characters
    int depth = 0;
    bool isStyle = false;
    out.writeStartDocument();
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        uses.Add(xml);
        if (token == QXmlStreamReader::StartElement || token == QXmlStreamReader::EndElement) {
            out.writeCharacters(StyleWithinDrawing(style));
            style.clear();
            isStyle = token == QXmlStreamReader::StartElement && xml.name() == u"style";
        }
        if (token == QXmlStreamReader::StartElement) {
            if (++depth > kMaxDepth)
                return Fail(
                    problem, B_BAD_DATA, "the drawing is nested more than %d deep", kMaxDepth);
            CopyElement(xml, out);
        } else if (token == QXmlStreamReader::EndElement) {
            depth--;
            out.writeEndElement();
        } else if (token == QXmlStreamReader::Characters && isStyle) {
            style += xml.text();
        } else if (token == QXmlStreamReader::Characters) {
            out.writeCharacters(xml.text().toString());
        }
    }
    if (xml.hasError())
        return Fail(problem, B_BAD_DATA, "%s", xml.errorString().toUtf8().constData());
    if (!uses.AreFew())
        return Fail(problem, B_BAD_DATA, "the drawing repeats itself without end");
    out.writeEndDocument();
    return B_OK;
}

// Names are copied as they are written, prefix and all: that is what Qt's reader looks at.
void SvgCopy::CopyElement(const QXmlStreamReader& xml, QXmlStreamWriter& out) {
    out.writeStartElement(xml.qualifiedName().toString());
    for (const QXmlStreamNamespaceDeclaration& space : xml.namespaceDeclarations()) {
        const QString name =
            space.prefix().isEmpty() ? QString("xmlns") : "xmlns:" + space.prefix().toString();
        out.writeAttribute(name, space.namespaceUri().toString());
    }
    for (const QXmlStreamAttribute& attribute : xml.attributes())
        CopyAttribute(xml.name(), attribute, out);
}

void SvgCopy::CopyAttribute(
    QStringView element, const QXmlStreamAttribute& attribute, QXmlStreamWriter& out) {
    QString value;
    if (IsReference(attribute.name())) {
        value = CopyReference(element, attribute.value().trimmed());
        if (value.isEmpty())
            return;
    } else {
        value = attribute.value().toString();
        if (attribute.name() == u"style" || value.contains(u"url(", Qt::CaseInsensitive))
            value = StyleWithinDrawing(value);
    }
    out.writeAttribute(attribute.qualifiedName().toString(), value);
}

// Empty for what is left out.
QString SvgCopy::CopyReference(QStringView element, QStringView reference) {
    if (reference.startsWith(u'#'))
        return reference.toString();
    if (element != u"image" && element != u"feImage")
        return {};
    const QByteArray data = DataOfReference(reference);
    return data.isEmpty() ? QString() : CopyImage(data);
}

QString SvgCopy::CopyImage(const QByteArray& data) {
    static constexpr struct {
        const char* format;
        const char* mime;
    } kImages[] = {{"png", "image/png"}, {"jpeg", "image/jpeg"}, {"jpg", "image/jpeg"},
        {"gif", "image/gif"}, {"webp", "image/webp"}, {"bmp", "image/bmp"}, {"avif", "image/avif"}};
    BytesSource source(data);
    if (IsSvg(source))
        return CopyDrawing(data);
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    for (const auto& image : kImages) {
        if (format == image.format)
            return HasPixelsFor(data, format) ? ReferenceOfData(data, image.mime) : QString();
    }
    return {};
}

QString SvgCopy::CopyDrawing(const QByteArray& data) {
    QByteArray text;
    QByteArray copy;
    Problem problem;
    BytesSource source(data);
    if (fLevel >= kMaxLevel || ReadSvgText(source, fBudget.text, &text, &problem) != B_OK)
        return {};
    fBudget.text -= text.size();
    if (SvgCopy(&fBudget, fLevel + 1).Make(text, &copy, &problem) != B_OK ||
        !HasPixelsFor(copy, "svg"))
        return {};
    return ReferenceOfData(copy, "image/svg+xml");
}

// Qt keeps every image of a drawing in memory at once.
bool SvgCopy::HasPixelsFor(QByteArray data, const QByteArray& format) {
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    const QSize size = QImageReader(&buffer, format).size();
    if (size.isEmpty())
        return false;
    const uint64 pixels = uint64(size.width()) * uint64(size.height());
    if (pixels > fBudget.pixels)
        return false;
    fBudget.pixels -= pixels;
    return true;
}

}  // namespace BPrivate::AddOn

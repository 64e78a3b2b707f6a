#pragma once

#include "kits/translation/AddOn.h"
#include <QByteArray>

class QXmlStreamAttribute;
class QXmlStreamReader;
class QXmlStreamWriter;

namespace BPrivate::AddOn {

/// What the drawings within a drawing may have in all, and it with them.
struct SvgBudget {
    qsizetype text;  ///< bytes, not compressed
    uint64 pixels;   ///< of the images within it
};

/// Makes a copy of a drawing that names nothing but its own parts. Qt's reader opens every file
/// that a drawing names: the drawing itself, a pipe, whatever this process has open.
///
/// Images in "data:" references are kept where they are of a format for that, and so are drawings
/// there, copied in the same way, a few levels deep. All other references are left out; so are
/// style sheets of other files, and the document type, whose entities are resolved.
class SvgCopy {
public:
    explicit SvgCopy(SvgBudget* budget, int level = 0) : fBudget(*budget), fLevel(level) {}

    /// Fails with B_BAD_DATA for a text that is not well-formed, too deeply nested, or repeats
    /// itself without end.
    [[nodiscard]] status_t Make(const QByteArray& text, QByteArray* copy, Problem* problem);

private:
    void CopyElement(const QXmlStreamReader& xml, QXmlStreamWriter& out);
    void CopyAttribute(
        QStringView element, const QXmlStreamAttribute& attribute, QXmlStreamWriter& out);
    QString CopyReference(QStringView element, QStringView reference);
    QString CopyImage(const QByteArray& data);
    QString CopyDrawing(const QByteArray& data);
    bool HasPixelsFor(QByteArray data, const QByteArray& format);

    SvgBudget& fBudget;
    int fLevel;
};

}  // namespace BPrivate::AddOn

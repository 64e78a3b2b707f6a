#include "kits/translators/SvgReferences.h"

#include <QByteArray>
#include <algorithm>
#include <climits>

namespace BPrivate::AddOn {

// The end of what follows `begin`: the index after the ')' that closes it.
static qsizetype EndOfUrl(QStringView style, qsizetype begin) {
    qsizetype end = begin;
    while (end < style.size() && style[end].isSpace())
        end++;
    if (end < style.size() && (style[end] == u'"' || style[end] == u'\'')) {
        const qsizetype quote = style.indexOf(style[end], end + 1);
        end = quote < 0 ? style.size() : quote;
    }
    const qsizetype close = style.indexOf(u')', end);
    return close < 0 ? style.size() : close + 1;
}

static bool IsInDrawing(QStringView url) {
    for (const QChar c : url) {
        if (!c.isSpace() && c != u'"' && c != u'\'')
            return c == u'#';
    }
    return false;
}

// Whether another value is given after the position.
static bool HasFallback(QStringView style, qsizetype position) {
    while (position < style.size() && style[position].isSpace())
        position++;
    return position < style.size() && !QStringView(u";}!,/").contains(style[position]);
}

static QString WithoutUrls(const QString& style) {
    QString result;
    qsizetype done = 0;
    for (;;) {
        const qsizetype begin = style.indexOf(u"url(", done, Qt::CaseInsensitive);
        if (begin < 0)
            break;
        const qsizetype end = EndOfUrl(style, begin + 4);
        result += QStringView(style).sliced(done, begin - done);
        if (IsInDrawing(QStringView(style).sliced(begin + 4, end - begin - 4)))
            result += QStringView(style).sliced(begin, end - begin);
        else
            result += HasFallback(style, end) ? u" " : u"none";
        done = end;
    }
    result += QStringView(style).sliced(done);
    return result;
}

static QString WithoutImports(const QString& style) {
    QString result;
    qsizetype done = 0;
    for (;;) {
        const qsizetype begin = style.indexOf(u"@import", done, Qt::CaseInsensitive);
        if (begin < 0)
            break;
        result += QStringView(style).sliced(done, begin - done);
        result += u' ';
        const qsizetype end = style.indexOf(u';', begin);
        done = end < 0 ? style.size() : end + 1;
    }
    result += QStringView(style).sliced(done);
    return result;
}

// What is left out leaves a space or a word, so that what is around it cannot become a new name.
QString StyleWithinDrawing(QString style) {
    // Letters of a name may be written as numbers after a backslash. No drawing needs that.
    style.remove(u'\\');
    return WithoutImports(WithoutUrls(style));
}

QByteArray DataOfReference(QStringView reference) {
    const qsizetype comma = reference.indexOf(u',');
    if (!reference.startsWith(u"data:", Qt::CaseInsensitive) || comma < 0)
        return {};
    const bool base64 = reference.first(comma).trimmed().endsWith(u";base64", Qt::CaseInsensitive);
    QByteArray data = reference.sliced(comma + 1).toUtf8();
    if (data.contains('%'))
        data = QByteArray::fromPercentEncoding(data);
    return base64 ? QByteArray::fromBase64(data) : data;
}

QString ReferenceOfData(const QByteArray& data, const QString& mime) {
    QByteArray base64 = data.toBase64();
    // What Qt cannot decode it opens as a file of that name. The characters added here mean
    // nothing, and no path is that long.
    base64.append(std::max<qsizetype>(PATH_MAX - base64.size(), 0), '~');
    return "data:" + mime + ";base64," + QLatin1StringView(base64);
}

}  // namespace BPrivate::AddOn

#include "kits/desktop/MenuText.h"

#include <interface/InterfaceDefs.h>
#include <utility>

#include "kits/desktop/Keys.h"

namespace BPrivate {

namespace {

constexpr std::pair<char, Qt::Key> kNamedKeys[] = {
    {B_HOME, Qt::Key_Home},
    {B_END, Qt::Key_End},
    {B_INSERT, Qt::Key_Insert},
    {B_BACKSPACE, Qt::Key_Backspace},
    {B_TAB, Qt::Key_Tab},
    {B_ENTER, Qt::Key_Return},
    {B_PAGE_UP, Qt::Key_PageUp},
    {B_PAGE_DOWN, Qt::Key_PageDown},
    {B_ESCAPE, Qt::Key_Escape},
    {B_LEFT_ARROW, Qt::Key_Left},
    {B_RIGHT_ARROW, Qt::Key_Right},
    {B_UP_ARROW, Qt::Key_Up},
    {B_DOWN_ARROW, Qt::Key_Down},
    {B_DELETE, Qt::Key_Delete},
};

Qt::Key KeyOf(char shortcut) {
    for (const auto& [kit, key] : kNamedKeys) {
        if (kit == shortcut)
            return key;
    }
    // Qt numbers the keys by the ASCII characters on them, letters by their capitals.
    if (shortcut >= 'a' && shortcut <= 'z')
        return static_cast<Qt::Key>(shortcut - 'a' + 'A');
    return shortcut >= B_SPACE ? static_cast<Qt::Key>(shortcut) : Qt::Key_unknown;
}

QString Quoted(const std::string& utf8) {
    return OneLine(utf8).replace(u'&', QStringLiteral("&&"));
}

/// Whether the byte starts a character that can be underlined.
bool IsLetter(char byte) {
    const bool continues = (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
    return !continues && byte != '&' && static_cast<unsigned char>(byte) > ' ' && byte != '\x7f';
}

}  // namespace

QString OneLine(const std::string& utf8) {
    QString text = QString::fromStdString(utf8);
    for (QChar& character : text) {
        // A tab would start the column of the shortcuts.
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = u' ';
    }
    return text;
}

QString MenuLabel(const MenuItemState& item) {
    const std::string& label = item.label;
    const auto trigger = static_cast<size_t>(item.trigger);
    if (item.trigger < 0 || trigger >= label.size() || !IsLetter(label[trigger]))
        return Quoted(label);
    return Quoted(label.substr(0, trigger)) + u'&' + Quoted(label.substr(trigger));
}

QString WithoutMarks(const QString& label) {
    QString text;
    text.reserve(label.size());
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] == u'&' && ++i == label.size())
            break;
        text.append(label[i]);
    }
    return text;
}

QString ShortLabel(const QString& label, const QFontMetrics& font) {
    constexpr int kWidest = 64;  // in the widths of an ordinary character
    // Measuring takes its time, and of such a label neither end is lost.
    constexpr qsizetype kMostMeasured = 4000;
    const QString measured = label.size() <= kMostMeasured
        ? label
        : label.first(kMostMeasured / 2) + u'\u2026' + label.last(kMostMeasured / 2);
    return font.elidedText(
        measured, Qt::ElideMiddle, font.averageCharWidth() * kWidest, Qt::TextShowMnemonic);
}

QKeySequence MenuShortcut(const MenuItemState& item) {
    const Qt::Key key = item.shortcut == 0 ? Qt::Key_unknown : KeyOf(item.shortcut);
    if (key == Qt::Key_unknown)
        return {};
    Qt::KeyboardModifiers modifiers;
    for (const auto modifier :
        {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        if (item.modifiers & KitModifiers(modifier))
            modifiers |= modifier;
    }
    return QKeySequence(QKeyCombination(modifiers, key));
}

}  // namespace BPrivate

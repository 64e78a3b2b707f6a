#include "resources/compiler/LayoutValues.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <app/Message.h>
#include <cmath>
#include <functional>
#include <interface/View.h>
#include <limits>
#include <map>
#include <utility>
#include <vector>

#include "resources/compiler/LayoutCompiler.h"

namespace {

double number_from(const QJsonValue& value) {
    if (!value.isDouble())
        throw LayoutError("must be a number");
    return value.toDouble();
}

int64 integer_from(const QJsonValue& value, int64 min, int64 max) {
    const double number = number_from(value);
    if (number != std::floor(number))
        throw LayoutError("must be a whole number");
    if (number < static_cast<double>(min) || number > static_cast<double>(max))
        throw LayoutError(
            "must lie between " + std::to_string(min) + " and " + std::to_string(max));
    return static_cast<int64>(number);
}

template <typename Integer>
Integer small_integer_from(const QJsonValue& value) {
    return static_cast<Integer>(integer_from(
        value, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()));
}

QJsonArray array_from(const QJsonValue& value, const char* wanted, qsizetype min, qsizetype max) {
    const QJsonArray array = value.toArray();
    if (!value.isArray() || array.size() < min || array.size() > max)
        throw LayoutError(std::string("must be ") + wanted);
    return array;
}

BMessage message_from(const QJsonValue& value) {
    if (!value.isObject())
        throw LayoutError("must be an object with \"what\" and \"fields\"");
    const QJsonObject object = value.toObject();
    BMessage message;
    for (auto it = object.begin(); it != object.end(); ++it) {
        const std::string key = it.key().toStdString();
        if (key == "what") {
            message.what = code_from(it.value());
        } else if (key == "fields" && it.value().isObject()) {
            const QJsonObject fields = it.value().toObject();
            for (auto field = fields.begin(); field != fields.end(); ++field)
                add_typed_field(message, field.key().toStdString(), field.value());
        } else {
            throw LayoutError("must be an object with \"what\" and \"fields\"");
        }
    }
    return message;
}

using AddItem = std::function<status_t(BMessage&, const char*, const QJsonValue&)>;

const std::map<std::string, AddItem>& TheTypes() {
    static const std::map<std::string, AddItem> types = {
        {"bool",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddBool(n, bool_from(v));
            }},
        {"int8",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddInt8(n, small_integer_from<int8>(v));
            }},
        {"int16",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddInt16(n, small_integer_from<int16>(v));
            }},
        {"int32",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddInt32(n, int32_from(v));
            }},
        {"float",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddFloat(n, float_from(v));
            }},
        {"double",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddDouble(n, number_from(v));
            }},
        {"string",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddString(n, string_from(v).c_str());
            }},
        {"point",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                const QJsonArray array = array_from(v, "two numbers: x, y", 2, 2);
                return m.AddPoint(n, BPoint(float_from(array[0]), float_from(array[1])));
            }},
        {"rect",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddRect(n, rect_from(v));
            }},
        {"color",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                return m.AddColor(n, color_from(v));
            }},
        {"message",
            [](BMessage& m, const char* n, const QJsonValue& v) {
                const BMessage message = message_from(v);
                return m.AddMessage(n, &message);
            }},
    };
    return types;
}

}  // namespace

std::string string_from(const QJsonValue& value) {
    if (!value.isString())
        throw LayoutError("must be a text");
    const std::string text = value.toString().toStdString();
    if (text.find('\0') != std::string::npos)
        throw LayoutError("must hold no NUL");
    return text;
}

bool bool_from(const QJsonValue& value) {
    if (!value.isBool())
        throw LayoutError("must be true or false");
    return value.toBool();
}

int32 int32_from(const QJsonValue& value) {
    return small_integer_from<int32>(value);
}

float float_from(const QJsonValue& value) {
    const double number = number_from(value);
    if (std::abs(number) > std::numeric_limits<float>::max())
        throw LayoutError("must be a smaller number");
    return static_cast<float>(number);
}

BRect rect_from(const QJsonValue& value) {
    const QJsonArray array = array_from(value, "four numbers: left, top, right, bottom", 4, 4);
    const BRect rect(
        float_from(array[0]), float_from(array[1]), float_from(array[2]), float_from(array[3]));
    if (rect.right < rect.left || rect.bottom < rect.top)
        throw LayoutError("must not end before it starts");
    return rect;
}

rgb_color color_from(const QJsonValue& value) {
    const QJsonArray array =
        array_from(value, "three or four numbers: red, green, blue, alpha", 3, 4);
    rgb_color color{0, 0, 0, 255};
    uint8* const parts[] = {&color.red, &color.green, &color.blue, &color.alpha};
    for (qsizetype i = 0; i < array.size(); ++i)
        *parts[i] = small_integer_from<uint8>(array[i]);
    return color;
}

uint32 code_from(const QJsonValue& value) {
    const std::string text = string_from(value);
    uint32 code = 0;
    for (const char c : text) {
        if (c < ' ' || c > '~')
            throw LayoutError("must be four ASCII characters");
        code = (code << 8) | static_cast<uint8>(c);
    }
    if (text.size() != 4)
        throw LayoutError("must be four ASCII characters");
    return code;
}

uint32 follow_from(const QJsonValue& value) {
    QStringList words = QString::fromStdString(string_from(value)).split(' ', Qt::SkipEmptyParts);
    const auto has = [&](const char* word) { return words.contains(QLatin1String(word)); };
    for (const QString& word : std::as_const(words)) {
        static const QStringList known = {
            "none", "all", "left", "right", "h-center", "top", "bottom", "v-center"};
        if (!known.contains(word))
            throw LayoutError(
                "must be of the words none, all, left, right, h-center, top, bottom "
                "and v-center");
    }
    if (words.isEmpty() || words.removeDuplicates() > 0)
        throw LayoutError("must name every edge once");
    if (has("none") || has("all")) {
        if (words.size() > 1)
            throw LayoutError("must name no edge beside \"none\" or \"all\"");
        return has("all") ? B_FOLLOW_ALL : B_FOLLOW_NONE;
    }
    if ((has("h-center") && (has("left") || has("right"))) ||
        (has("v-center") && (has("top") || has("bottom"))))
        throw LayoutError("must not name a centre and an edge of the same direction");

    uint32 mode = 0;
    if (has("left"))
        mode |= has("right") ? B_FOLLOW_LEFT_RIGHT : B_FOLLOW_LEFT;
    else if (has("right"))
        mode |= B_FOLLOW_RIGHT;
    else if (has("h-center"))
        mode |= B_FOLLOW_H_CENTER;
    if (has("top"))
        mode |= has("bottom") ? B_FOLLOW_TOP_BOTTOM : B_FOLLOW_TOP;
    else if (has("bottom"))
        mode |= B_FOLLOW_BOTTOM;
    else if (has("v-center"))
        mode |= B_FOLLOW_V_CENTER;
    return mode;
}

uint32 flags_from(const QJsonValue& value) {
    static const std::map<std::string, uint32> known = {{"will draw", B_WILL_DRAW},
        {"navigable", B_NAVIGABLE}, {"navigable jump", B_NAVIGABLE_JUMP},
        {"frame events", B_FRAME_EVENTS}, {"pulse needed", B_PULSE_NEEDED},
        {"full update on resize", B_FULL_UPDATE_ON_RESIZE},
        {"subpixel precise", B_SUBPIXEL_PRECISE}, {"draw on children", B_DRAW_ON_CHILDREN}};
    uint32 flags = 0;
    for (const QJsonValue& item :
        array_from(value, "an array of words", 0, std::numeric_limits<int32>::max())) {
        const auto found = known.find(string_from(item));
        if (found == known.end()) {
            std::string words;
            for (const auto& [word, flag] : known)
                words += (words.empty() ? "" : ", ") + word;
            throw LayoutError("must be of the words " + words);
        }
        flags |= found->second;
    }
    return flags;
}

void add_typed_field(BMessage& archive, const std::string& name, const QJsonValue& value) {
    const QJsonObject object = value.toObject();
    const bool isOne = object.contains(QLatin1String("value"));
    if (object.size() != 2 || !object.contains(QLatin1String("type")) ||
        (!isOne && !object[QLatin1String("values")].isArray()))
        throw LayoutError('"' + name + "\": must have a \"type\" and a \"value\" or \"values\"");
    if (archive.GetInfo(name.c_str(), nullptr, static_cast<int32*>(nullptr)) == B_OK)
        throw LayoutError('"' + name + "\": is there already");
    try {
        const auto type = TheTypes().find(string_from(object[QLatin1String("type")]));
        if (type == TheTypes().end()) {
            std::string types;
            for (const auto& [known, add] : TheTypes())
                types += (types.empty() ? "" : ", ") + known;
            throw LayoutError("its type must be one of " + types);
        }
        if (isOne) {
            expect_added(type->second(archive, name.c_str(), object[QLatin1String("value")]));
            return;
        }
        for (const QJsonValue& item : object[QLatin1String("values")].toArray())
            expect_added(type->second(archive, name.c_str(), item));
    } catch (const LayoutError& error) {
        throw LayoutError('"' + name + "\": " + error.what());
    }
}

void expect_added(status_t status) {
    if (status != B_OK)
        throw LayoutError("cannot be archived: too long a name, or nested too deeply");
}

#include "resources/compiler/LayoutCompiler.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <interface/Font.h>
#include <interface/View.h>
#include <set>

#include "resources/compiler/LayoutClasses.h"
#include "resources/compiler/LayoutValues.h"

namespace {

QJsonValue at(const QJsonObject& object, const char* key) {
    return object[QLatin1String(key)];
}

/// Puts the place before what an error says.
template <typename Work>
void within(const std::string& place, Work work) {
    try {
        work();
    } catch (const LayoutError& error) {
        throw LayoutError(place + ": " + error.what());
    }
}

std::string quoted(const std::string& name) {
    return '"' + name + '"';
}

/// One source. Remembers the names of its views, which have to be found by them.
class Compiler {
public:
    /// Fills the archive with the view. Errors start with the place of what is wrong within it.
    void AddView(BMessage& archive, const QJsonValue& value) {
        if (!value.isObject())
            throw LayoutError("must be an object");
        const QJsonObject source = value.toObject();
        const LayoutClass& ofClass = AddClass(archive, source);
        AddPlace(archive, source, ofClass);
        AddColors(archive, source);
        for (auto it = source.begin(); it != source.end(); ++it)
            AddKey(archive, ofClass, it.key().toStdString(), it.value());
        // Last, so that one the keys have made already is found.
        if (const QJsonValue fields = at(source, "fields"); !fields.isUndefined())
            within("\"fields\"", [&] { AddFields(archive, fields); });
    }

private:
    static const LayoutClass& AddClass(BMessage& archive, const QJsonObject& source) {
        const QJsonValue name = at(source, "class");
        const QJsonValue base = at(source, "base");
        if (name.isUndefined())
            throw LayoutError("\"class\" is missing");
        const LayoutClass* found = nullptr;
        within("\"class\"", [&] {
            expect_added(archive.AddString("class", string_from(name).c_str()));
            found = find_layout_class(string_from(name));
            if (found == nullptr && base.isUndefined())
                throw LayoutError("unknown class " + quoted(string_from(name)) +
                    "; one of its own needs a \"base\"");
            if (found != nullptr && !base.isUndefined())
                throw LayoutError(quoted(string_from(name)) + " needs no \"base\"");
        });
        if (found != nullptr)
            return *found;
        within("\"base\"", [&] {
            expect_added(archive.AddString("class", string_from(base).c_str()));
            found = find_layout_class(string_from(base));
            if (found == nullptr)
                throw LayoutError("unknown class " + quoted(string_from(base)));
        });
        return *found;
    }

    void AddPlace(BMessage& archive, const QJsonObject& source, const LayoutClass& ofClass) {
        if (const QJsonValue name = at(source, "name"); !name.isUndefined())
            within("\"name\"", [&] { AddName(archive, string_from(name)); });
        if (at(source, "frame").isUndefined())
            throw LayoutError("\"frame\" is missing");
        within("\"frame\"",
            [&] { expect_added(archive.AddRect("_frame", rect_from(at(source, "frame")))); });
        uint32 mode = B_FOLLOW_LEFT | B_FOLLOW_TOP;
        if (const QJsonValue follow = at(source, "follow"); !follow.isUndefined())
            within("\"follow\"", [&] { mode = follow_from(follow); });
        expect_added(archive.AddInt32("_resize_mode", static_cast<int32>(mode)));
        uint32 flags = ofClass.flags;
        if (const QJsonValue given = at(source, "flags"); !given.isUndefined())
            within("\"flags\"", [&] { flags = flags_from(given); });
        expect_added(archive.AddInt32("_flags", static_cast<int32>(flags)));
    }

    void AddName(BMessage& archive, const std::string& name) {
        if (name.empty())
            throw LayoutError("must not be empty");
        if (!fNames.insert(name).second)
            throw LayoutError("another view is named " + quoted(name) + " already");
        expect_added(archive.AddString("_name", name.c_str()));
    }

    /// An archive has all three colours or none.
    static void AddColors(BMessage& archive, const QJsonObject& source) {
        const char* const keys[] = {"high color", "low color", "view color"};
        rgb_color colors[] = {{0, 0, 0, 255}, {255, 255, 255, 255}, {255, 255, 255, 255}};
        bool isGiven = false;
        for (size_t i = 0; i < std::size(keys); ++i) {
            const QJsonValue color = at(source, keys[i]);
            if (color.isUndefined())
                continue;
            isGiven = true;
            within(quoted(keys[i]), [&] { colors[i] = color_from(color); });
        }
        for (size_t i = 0; isGiven && i < std::size(colors); ++i)
            expect_added(archive.AddColor("_color", colors[i]));
    }

    void AddKey(BMessage& archive, const LayoutClass& ofClass, const std::string& name,
        const QJsonValue& value) {
        static const std::set<std::string> done = {"comment", "class", "base", "name", "frame",
            "follow", "flags", "high color", "low color", "view color", "fields"};
        if (done.contains(name))
            return;
        if (name == "children") {
            AddViews(archive, "_views", name, value);
        } else if (name == "tabs" && IsTabView(ofClass)) {
            AddTabs(archive, value);
        } else if (const LayoutKey* key = find_layout_key(ofClass, name)) {
            within(quoted(name), [&] { key->add(archive, value); });
        } else if (name == "font") {
            within(quoted(name), [&] { AddFont(archive, value); });
        } else {
            throw LayoutError(quoted(name) + ": unknown key for a " + std::string(ofClass.name));
        }
    }

    static bool IsTabView(const LayoutClass& ofClass) {
        return std::string("BTabView") == ofClass.name;
    }

    static void AddFont(BMessage& archive, const QJsonValue& value) {
        if (!value.isObject())
            throw LayoutError("must be an object");
        const QJsonObject font = value.toObject();
        int32 face = 0;
        for (auto it = font.begin(); it != font.end(); ++it) {
            const std::string key = it.key().toStdString();
            within(quoted(key), [&] {
                if (key == "family") {
                    expect_added(archive.AddString("_fname", string_from(it.value()).c_str()));
                } else if (key == "size") {
                    const float size = float_from(it.value());
                    if (size <= 0)
                        throw LayoutError("must be above 0");
                    expect_added(archive.AddFloat("_fsize", size));
                } else if (key == "bold") {
                    face |= bool_from(it.value()) ? B_BOLD_FACE : 0;
                } else if (key == "italic") {
                    face |= bool_from(it.value()) ? B_ITALIC_FACE : 0;
                } else {
                    throw LayoutError("unknown key for a font");
                }
            });
        }
        if (face == 0)
            face = B_REGULAR_FACE;
        expect_added(archive.AddInt32("_fface", face));
    }

    static void AddFields(BMessage& archive, const QJsonValue& value) {
        if (!value.isObject())
            throw LayoutError("must be an object");
        const QJsonObject fields = value.toObject();
        for (auto it = fields.begin(); it != fields.end(); ++it)
            add_typed_field(archive, it.key().toStdString(), it.value());
    }

    static QJsonArray Array(const std::string& key, const QJsonValue& value) {
        if (!value.isArray())
            throw LayoutError(quoted(key) + ": must be an array");
        return value.toArray();
    }

    static std::string Place(const std::string& key, qsizetype index, const QJsonValue& view) {
        const std::string place = key + '[' + std::to_string(index) + ']';
        const QString name = at(view.toObject(), "name").toString();
        return name.isEmpty() ? place : place + ' ' + quoted(name.toStdString());
    }

    void AddViews(
        BMessage& archive, const char* field, const std::string& key, const QJsonValue& value) {
        const QJsonArray views = Array(key, value);
        for (qsizetype i = 0; i < views.size(); ++i) {
            within(Place(key, i, views[i]), [&] {
                BMessage view;
                AddView(view, views[i]);
                expect_added(archive.AddMessage(field, &view));
            });
        }
    }

    void AddTabs(BMessage& archive, const QJsonValue& value) {
        const QJsonArray tabs = Array("tabs", value);
        for (qsizetype i = 0; i < tabs.size(); ++i) {
            within("tabs[" + std::to_string(i) + ']', [&] { AddTab(archive, tabs[i]); });
        }
    }

    void AddTab(BMessage& archive, const QJsonValue& value) {
        if (!value.isObject())
            throw LayoutError("must be an object");
        const QJsonObject source = value.toObject();
        BMessage tab;
        expect_added(tab.AddString("class", "BTab"));
        for (auto it = source.begin(); it != source.end(); ++it) {
            const std::string key = it.key().toStdString();
            if (key == "label") {
                within(quoted(key), [&] {
                    expect_added(tab.AddString("_label", string_from(it.value()).c_str()));
                });
            } else if (key == "enabled") {
                within(quoted(key), [&] {
                    if (!bool_from(it.value()))
                        expect_added(tab.AddBool("_disable", true));
                });
            } else if (key != "view") {
                throw LayoutError(quoted(key) + ": unknown key for a tab");
            }
        }
        if (at(source, "view").isUndefined())
            throw LayoutError("\"view\" is missing");
        BMessage view;
        within("view", [&] { AddView(view, at(source, "view")); });
        expect_added(archive.AddMessage("_l_items", &tab));
        expect_added(archive.AddMessage("_view_list", &view));
    }

    std::set<std::string> fNames;
};

std::string place_in(std::string_view source, int offset) {
    const auto end = std::min(source.size(), static_cast<size_t>(std::max(offset, 0)));
    const std::string_view before = source.substr(0, end);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const size_t start = before.rfind('\n') + 1;  // 0 on the first line
    return "line " + std::to_string(line) + ", column " + std::to_string(end - start + 1);
}

}  // namespace

BMessage compile_layout(std::string_view source) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray(source.data(), static_cast<qsizetype>(source.size())), &error);
    if (error.error != QJsonParseError::NoError)
        throw LayoutError(
            place_in(source, error.offset) + ": " + error.errorString().toStdString());
    if (!document.isObject())
        throw LayoutError("line 1, column 1: must be an object");
    BMessage archive;
    Compiler().AddView(archive, document.object());
    return archive;
}

#pragma once

#include <QJsonValue>
#include <string>
#include <support/SupportDefs.h>
#include <vector>

class BMessage;

/// A key of a view's source, and how its value becomes a field of the archive.
struct LayoutKey {
    const char* name;
    void (*add)(BMessage& archive, const QJsonValue& value);
};

/// A class of views that a layout may name.
struct LayoutClass {
    const char* name;
    const LayoutClass* base;      ///< its keys are this one's, too; null for BView
    uint32 flags;                 ///< a view's flags where the source gives none
    std::vector<LayoutKey> keys;  ///< what it has beyond its base
};

/// Null when there is none of that name.
const LayoutClass* find_layout_class(const std::string& name);
/// The key of the class or of one of its bases; null when there is none of that name.
const LayoutKey* find_layout_key(const LayoutClass& ofClass, const std::string& name);

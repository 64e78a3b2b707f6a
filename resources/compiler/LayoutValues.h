#pragma once

// The values of a layout's source, as fields of an archive.

#include <QJsonValue>
#include <interface/GraphicsDefs.h>
#include <interface/Rect.h>
#include <string>
#include <support/SupportDefs.h>

class BMessage;

// Each reads one value or throws a LayoutError that says what it has to be.

std::string string_from(const QJsonValue& value);
bool bool_from(const QJsonValue& value);
int32 int32_from(const QJsonValue& value);
float float_from(const QJsonValue& value);
/// [left, top, right, bottom]
BRect rect_from(const QJsonValue& value);
/// [red, green, blue], or with alpha as a fourth
rgb_color color_from(const QJsonValue& value);
/// Four ASCII characters.
uint32 code_from(const QJsonValue& value);
/// Words like "left top right", as a resizing mode.
uint32 follow_from(const QJsonValue& value);
/// An array of words like "navigable", as a view's flags.
uint32 flags_from(const QJsonValue& value);

/// Puts {"type": ..., "value": ...} or {"type": ..., "values": [...]} into the archive.
void add_typed_field(BMessage& archive, const std::string& name, const QJsonValue& value);

/// Throws unless the status is B_OK.
void expect_added(status_t status);

#pragma once

#include <support/SupportDefs.h>

class BArchivable;
class BMessage;

/// Makes an object from its archive; null when the archive is not one of its class. The caller
/// owns the object.
using instantiation_func = BArchivable* (*)(BMessage* archive);

/// An object that can be written into a message and made again from it.
class BArchivable {
public:
    BArchivable() = default;
    explicit BArchivable(BMessage*) {}
    BArchivable(const BArchivable&) = delete;
    BArchivable& operator=(const BArchivable&) = delete;
    virtual ~BArchivable() = default;

    /// Adds the object's state to the archive, and what it owns when `deep`. The base adds the
    /// name of the object's class as "class"; an override calls its base's first.
    virtual status_t Archive(BMessage* archive, bool deep = true) const;
};

/// Lets archives of that class be instantiated; `className` as "class" has it. May be called
/// from any thread, and again with the same pair.
void register_instantiation_func(const char* className, instantiation_func function);
/// Null for a class that was not registered.
instantiation_func find_instantiation_func(const char* className);
/// Makes the object an archive describes; null when its class is missing or not registered.
BArchivable* instantiate_object(BMessage* archive);
/// Whether "class" of the archive is that class.
bool validate_instantiation(const BMessage* archive, const char* className);

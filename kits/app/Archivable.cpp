#include <app/Message.h>
#include <support/Archivable.h>

#include <cstdlib>
#include <cxxabi.h>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <typeinfo>

namespace {

struct InstantiationTable {
    std::mutex lock;
    std::map<std::string, instantiation_func, std::less<>> functions;
};

InstantiationTable& TheTable() {
    static InstantiationTable table;
    return table;
}

}  // namespace

status_t BArchivable::Archive(BMessage* archive, bool) const {
    if (archive == nullptr)
        return B_BAD_VALUE;
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(*this).name(), nullptr, nullptr, &status), &std::free);
    if (name == nullptr)
        return B_NO_MEMORY;
    return archive->AddString("class", name.get());
}

void register_instantiation_func(const char* className, instantiation_func function) {
    if (className == nullptr || function == nullptr)
        return;
    InstantiationTable& table = TheTable();
    const std::lock_guard guard(table.lock);
    table.functions[className] = function;
}

instantiation_func find_instantiation_func(const char* className) {
    if (className == nullptr)
        return nullptr;
    InstantiationTable& table = TheTable();
    const std::lock_guard guard(table.lock);
    const auto found = table.functions.find(className);
    return found != table.functions.end() ? found->second : nullptr;
}

BArchivable* instantiate_object(BMessage* archive) {
    if (archive == nullptr)
        return nullptr;
    const instantiation_func function = find_instantiation_func(archive->GetString("class"));
    return function != nullptr ? function(archive) : nullptr;
}

bool validate_instantiation(const BMessage* archive, const char* className) {
    const char* name;
    if (archive == nullptr || className == nullptr)
        return false;
    // A derived class's archive has the name of its own class first, then those of its bases.
    for (int32 i = 0; archive->FindString("class", i, &name) == B_OK; ++i) {
        if (std::string(name) == className)
            return true;
    }
    return false;
}

// Settings trees of tests, and a tree as one line that shows names, kinds of values and nesting, to compare with.
#pragma once

#include "host/ObjectState.h"

#include <sstream>
#include <string>

namespace test {

/// An object of one field, as the items of a list are.
inline host::ObjectState Item(const std::string& name, host::ObjectState::Value value) {
    host::ObjectState item;
    item.Add(name, std::move(value));
    return item;
}

class TreeWriter : public host::ObjectState::Processor {
public:
    TreeWriter() { text.precision(17); }

    void ProcessBoolean(const std::string& name, bool value) override { Put(name, "b:", value ? "1" : "0"); }
    void ProcessInteger(const std::string& name, std::int64_t value) override { Put(name, "i:", value); }
    void ProcessUnsigned(const std::string& name, std::uint64_t value) override { Put(name, "u:", value); }
    void ProcessReal(const std::string& name, double value) override { Put(name, "r:", value); }
    void ProcessText(const std::string& name, const std::string& value) override { Put(name, "", "'" + value + "'"); }
    void BeginObject(const std::string& name) override { text << name << "{ "; }
    void EndObject(const std::string&) override { text << "} "; }
    void BeginList(const std::string& name) override { text << name << "[ "; }
    void EndList(const std::string&) override { text << "] "; }

    std::ostringstream text;

private:
    template <typename Value>
    void Put(const std::string& name, const char* kind, const Value& value) {
        text << name << '=' << kind << value << ' ';
    }
};

/// Values as name=kind:value, texts as name='text', objects as name{...}, lists as name[...].
inline std::string WriteTree(const host::ObjectState& tree) {
    TreeWriter writer;
    tree.Enumerate(writer);
    return writer.text.str();
}

} // namespace test

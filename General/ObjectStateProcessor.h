// Copies a settings tree of the host and puts preset values in the place of chosen fields.
#pragma once

#include "host/ObjectState.h"

#include <array>
#include <map>

namespace Extensions::Utilities {

class ObjectStateProcessor : public host::ObjectState::Processor {
public:
    using Value = host::ObjectState::Value;

    /// Fields of this name that stand, at any depth, inside an object or list named container get the value where they
    /// have one of its kind. A pair of names that is there already for that kind keeps its first value. Where several
    /// of the containers around a field have a value for it, the innermost decides. All overrides come before the walk.
    void AddOverride(const std::string& container, const std::string& field, Value value);

    void ProcessBoolean(const std::string& name, bool value) override { Place(name, value); }
    void ProcessInteger(const std::string& name, std::int64_t value) override { Place(name, value); }
    void ProcessUnsigned(const std::string& name, std::uint64_t value) override { Place(name, value); }
    void ProcessReal(const std::string& name, double value) override { Place(name, value); }
    void ProcessText(const std::string& name, const std::string& value) override { Place(name, value); }
    void BeginObject(const std::string& name) override;
    void EndObject(const std::string& name) override { EndContainer(name); }
    void BeginList(const std::string& name) override;
    void EndList(const std::string& name) override { EndContainer(name); }

    /// The copy, after the walk.
    host::ObjectState TakeResult() { return builder.Take(); }

private:
    /// By container.
    using Presets = std::map<std::string, Value>;

    void Place(const std::string& name, Value value);
    void EndContainer(const std::string& name);
    void Enter(const std::string& name);
    const Value* FindOverride(const std::string& name, const Value& value) const;

    host::ObjectState::Builder builder;
    /// By field; in each entry one table a kind of value.
    std::map<std::string, std::array<Presets, std::variant_size_v<Value>>> overrides;
    /// Of each container that has overrides: the depths at which it is open, innermost last. Looking there instead of
    /// at every open container keeps a deep tree from costing the square of its depth.
    std::map<std::string, std::vector<std::size_t>> openDepths;
    std::size_t depth = 0;
};

} // namespace Extensions::Utilities

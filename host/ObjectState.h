// The host's settings tree: named values, objects and lists, in order. It has no text form; a host converts it.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace host {

/// A tree of any depth. No operation recurses by level, so a tree from outside cannot exhaust the stack.
class ObjectState {
public:
    struct Field;
    using Fields = std::list<Field>;
    /// Each item is an object with one field: the item's name and value.
    using List = std::list<ObjectState>;
    using Value = std::variant<bool, std::int64_t, std::uint64_t, double, std::string, ObjectState, List>;

    class Processor;
    class Builder;

    ObjectState() = default;
    ObjectState(const ObjectState& other);
    ObjectState(ObjectState&& other) noexcept : fields(std::move(other.fields)) {}
    ObjectState& operator=(ObjectState other) noexcept {
        fields.swap(other.fields);
        return *this;
    }
    ~ObjectState();

    bool IsEmpty() const { return fields.empty(); }
    const Fields& GetFields() const { return fields; }
    /// Moves all fields out.
    Fields TakeFields() { return std::exchange(fields, {}); }
    /// Appends a field. A name may occur more than once. A list item with several fields becomes that many items, and
    /// one without fields is dropped.
    void Add(const std::string& name, Value value);
    /// The value of the first field of this name, or null.
    const Value* Find(const std::string& name) const;

    /// Calls the processor for every value and at the start and end of every object and list, in order, but not for the
    /// root itself.
    void Enumerate(Processor& processor) const;

private:
    Fields fields;
};

struct ObjectState::Field {
    std::string name;
    Value value;
};

/// Receives the enumeration. An item of a list comes with its own name.
class ObjectState::Processor {
public:
    virtual ~Processor() = default;

    virtual void ProcessBoolean(const std::string& name, bool value) = 0;
    virtual void ProcessInteger(const std::string& name, std::int64_t value) = 0;
    virtual void ProcessUnsigned(const std::string& name, std::uint64_t value) = 0;
    virtual void ProcessReal(const std::string& name, double value) = 0;
    virtual void ProcessText(const std::string& name, const std::string& value) = 0;
    virtual void BeginObject(const std::string& name) = 0;
    virtual void EndObject(const std::string& name) = 0;
    virtual void BeginList(const std::string& name) = 0;
    virtual void EndList(const std::string& name) = 0;
};

/// Builds a tree of nested objects and lists from the inside out.
class ObjectState::Builder {
public:
    void Open(const std::string& name) { open.push_back({name, ObjectState()}); }
    void OpenList(const std::string& name) { open.push_back({name, List()}); }
    /// Removes and returns the innermost open object or list, which is not yet part of the tree. One must be open.
    Value Close();
    /// Adds to the innermost open object or list, otherwise to the root.
    void Add(const std::string& name, Value value);

    bool HasOpen() const { return !open.empty(); }
    /// The root with everything added so far, except what is still open.
    ObjectState Take() { return std::move(root); }

private:
    ObjectState root;
    std::vector<Field> open; ///< innermost last
};

} // namespace host

#include "host/ObjectState.h"

namespace host {

namespace {

/// Walks the fields of an object, or the items of a list.
class Cursor {
public:
    explicit Cursor(const ObjectState::Fields& fields) : field(fields.begin()), lastField(fields.end()) {}
    explicit Cursor(const ObjectState::List& list) : item(list.begin()), lastItem(list.end()), isList(true) {}

    /// Null at the end.
    const ObjectState::Field* Next() {
        if (isList) return item == lastItem ? nullptr : &(item++)->GetFields().front();
        return field == lastField ? nullptr : &*field++;
    }

private:
    ObjectState::Fields::const_iterator field, lastField;
    ObjectState::List::const_iterator item, lastItem;
    bool isList = false;
};

/// An object or list that the enumeration is in.
struct Level {
    const ObjectState::Field* container; ///< null: the root
    Cursor cursor;
};

struct ValueCall {
    ObjectState::Processor& processor;
    const std::string& name;

    void operator()(bool value) const { processor.ProcessBoolean(name, value); }
    void operator()(std::int64_t value) const { processor.ProcessInteger(name, value); }
    void operator()(std::uint64_t value) const { processor.ProcessUnsigned(name, value); }
    void operator()(double value) const { processor.ProcessReal(name, value); }
    void operator()(const std::string& value) const { processor.ProcessText(name, value); }
    void operator()(const ObjectState&) const { processor.BeginObject(name); }
    void operator()(const ObjectState::List&) const { processor.BeginList(name); }
};

/// Rebuilds what it is called for.
class Copier : public ObjectState::Processor {
public:
    void ProcessBoolean(const std::string& name, bool value) override { builder.Add(name, value); }
    void ProcessInteger(const std::string& name, std::int64_t value) override { builder.Add(name, value); }
    void ProcessUnsigned(const std::string& name, std::uint64_t value) override { builder.Add(name, value); }
    void ProcessReal(const std::string& name, double value) override { builder.Add(name, value); }
    void ProcessText(const std::string& name, const std::string& value) override { builder.Add(name, value); }
    void BeginObject(const std::string& name) override { builder.Open(name); }
    void EndObject(const std::string& name) override { builder.Add(name, builder.Close()); }
    void BeginList(const std::string& name) override { builder.OpenList(name); }
    void EndList(const std::string& name) override { builder.Add(name, builder.Close()); }

    ObjectState::Builder builder;
};

} // namespace

ObjectState::ObjectState(const ObjectState& other) {
    Copier copier;
    other.Enumerate(copier);
    ObjectState copy = copier.builder.Take();
    fields.swap(copy.fields);
}

ObjectState::~ObjectState() {
    // Taken apart into one row of fields: neither depth of calls nor memory is needed for it.
    Fields row = TakeFields();
    while (!row.empty()) {
        if (auto* object = std::get_if<ObjectState>(&row.front().value))
            row.splice(row.end(), object->fields);
        else if (auto* list = std::get_if<List>(&row.front().value))
            for (ObjectState& item : *list)
                row.splice(row.end(), item.fields);
        row.pop_front();
    }
}

void ObjectState::Add(const std::string& name, Value value) {
    if (auto* list = std::get_if<List>(&value)) {
        for (auto item = list->begin(); item != list->end();) {
            while (item->fields.size() > 1) {
                const auto single = list->emplace(item);
                single->fields.splice(single->fields.end(), item->fields, item->fields.begin());
            }
            item = item->fields.empty() ? list->erase(item) : std::next(item);
        }
    }
    fields.push_back({name, std::move(value)});
}

const ObjectState::Value* ObjectState::Find(const std::string& name) const {
    for (const Field& field : fields)
        if (field.name == name) return &field.value;
    return nullptr;
}

void ObjectState::Enumerate(Processor& processor) const {
    std::vector<Level> levels = {{nullptr, Cursor(fields)}};
    while (!levels.empty()) {
        if (const Field* field = levels.back().cursor.Next()) {
            std::visit(ValueCall{processor, field->name}, field->value);
            if (const auto* object = std::get_if<ObjectState>(&field->value))
                levels.push_back({field, Cursor(object->fields)});
            else if (const auto* list = std::get_if<List>(&field->value))
                levels.push_back({field, Cursor(*list)});
            continue;
        }
        const Field* container = levels.back().container;
        levels.pop_back();
        if (container == nullptr) continue;
        if (std::holds_alternative<List>(container->value))
            processor.EndList(container->name);
        else
            processor.EndObject(container->name);
    }
}

ObjectState::Value ObjectState::Builder::Close() {
    Value value = std::move(open.back().value);
    open.pop_back();
    return value;
}

void ObjectState::Builder::Add(const std::string& name, Value value) {
    if (open.empty()) return root.Add(name, std::move(value));
    if (auto* object = std::get_if<ObjectState>(&open.back().value)) return object->Add(name, std::move(value));
    ObjectState item;
    item.Add(name, std::move(value));
    std::get<List>(open.back().value).push_back(std::move(item));
}

} // namespace host

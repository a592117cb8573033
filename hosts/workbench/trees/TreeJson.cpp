#include "workbench/trees/TreeJson.h"

#include "text/Utf8.h"
#include "workbench/trees/TreeXml.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace workbench {

namespace {

using nlohmann::json;

class Writer : public host::ObjectState::Processor {
public:
    void ProcessBoolean(const std::string& name, bool value) override { Put(name, value); }
    void ProcessInteger(const std::string& name, std::int64_t value) override { Put(name, value); }
    void ProcessUnsigned(const std::string& name, std::uint64_t value) override { Put(name, value); }
    void ProcessReal(const std::string& name, double value) override {
        isWritable = isWritable && std::isfinite(value);
        Put(name, value);
    }
    void ProcessText(const std::string& name, const std::string& value) override {
        isWritable = isWritable && utf8::IsUtf8(value);
        if (isWritable) Put(name, value);
    }
    void BeginObject(const std::string& name) override { Begin(name, false); }
    void EndObject(const std::string&) override { End('}'); }
    void BeginList(const std::string& name) override { Begin(name, true); }
    void EndList(const std::string&) override { End(']'); }

    host::ErrorCode Finish(std::string& result) {
        if (!isWritable) return host::Errors::BadValue;
        result = text + "\n}\n";
        return host::NoError;
    }

private:
    bool IsInList() const { return !inList.empty() && inList.back(); }
    /// What comes before a value; an item of a list gets an object around it.
    void Lead(const std::string& name) {
        isWritable = isWritable && utf8::IsUtf8(name);
        if (!isWritable) return;
        if (text.back() != '{' && text.back() != '[') text += ',';
        text.append("\n").append(2 * std::min<std::size_t>(inList.size() + 1, MostIndents), ' ');
        if (IsInList()) text += "{ ";
        text.append(json(name).dump()).append(": ");
    }
    void Trail() {
        if (IsInList()) text += " }";
    }
    template <typename Value>
    void Put(const std::string& name, const Value& value) {
        Lead(name);
        if (!isWritable) return;
        text += json(value).dump();
        Trail();
    }
    void Begin(const std::string& name, bool isList) {
        Lead(name);
        text += isList ? '[' : '{';
        inList.push_back(isList);
    }
    void End(char bracket) {
        inList.pop_back();
        if (text.back() != '{' && text.back() != '[')
            text.append("\n").append(2 * std::min<std::size_t>(inList.size() + 1, MostIndents), ' ');
        text += bracket;
        Trail();
    }

    static constexpr std::size_t MostIndents = 20; ///< so that a deep tree does not become mostly blanks

    std::string text = "{";
    std::vector<bool> inList;
    bool isWritable = true;
};

class Reader : public nlohmann::json_sax<json> {
public:
    bool null() override { return false; }
    bool boolean(bool value) override { return Add(value); }
    bool number_integer(number_integer_t value) override { return Add(static_cast<std::int64_t>(value)); }
    bool number_unsigned(number_unsigned_t value) override {
        if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
            return Add(static_cast<std::uint64_t>(value));
        return Add(static_cast<std::int64_t>(value));
    }
    bool number_float(number_float_t value, const string_t&) override { return Add(value); }
    bool string(string_t& value) override { return Add(value); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override {
        Begin(false);
        return true;
    }
    bool key(string_t& name) override {
        levels.back().key = name;
        return true;
    }
    bool end_object() override {
        levels.pop_back();
        if (levels.empty()) return true; // the root
        host::ObjectState::Value value = builder.Close();
        auto& object = std::get<host::ObjectState>(value);
        if (!levels.back().isList || object.GetFields().size() != 1) return Add(std::move(value));
        host::ObjectState::Fields item = object.TakeFields();
        builder.Add(item.front().name, std::move(item.front().value));
        return true;
    }
    bool start_array(std::size_t) override {
        if (levels.empty()) return false;
        Begin(true);
        return true;
    }
    bool end_array() override {
        levels.pop_back();
        return Add(builder.Close());
    }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override { return false; }

    host::ObjectState::Builder builder;

private:
    struct Level {
        bool isList;
        std::string key; ///< of the value that comes next in an object
    };

    std::string GetName() const { return levels.back().isList ? ListItemName : levels.back().key; }
    void Begin(bool isList) {
        if (!levels.empty()) {
            if (isList)
                builder.OpenList(GetName());
            else
                builder.Open(GetName());
        }
        levels.push_back({isList, {}});
    }
    bool Add(host::ObjectState::Value value) {
        if (levels.empty()) return false; // a value alone is no tree
        builder.Add(GetName(), std::move(value));
        return true;
    }

    std::vector<Level> levels;
};

} // namespace

host::ErrorCode WriteTreeJson(const host::ObjectState& tree, std::string& text) {
    Writer writer;
    tree.Enumerate(writer);
    return writer.Finish(text);
}

host::ErrorCode ReadTreeJson(const std::string& text, host::ObjectState& tree) {
    Reader reader;
    if (!json::sax_parse(text, &reader)) return host::Errors::BadValue;
    tree = reader.builder.Take();
    return host::NoError;
}

} // namespace workbench

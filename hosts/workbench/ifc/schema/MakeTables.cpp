// Makes the C++ tables of one schema: kelvarnix-schema-tables NAME ENTITIES.csv TYPES.csv OUTPUT.cpp
//
// A row of ENTITIES.csv is "entity;abstract;supertype;own_attributes;derived_from_supertype", the attributes as
// "Name=Type | Name?=Type" with "?" for those that may be missing. A row of TYPES.csv is "type;underlying". The last
// column of the entities is not needed: an attribute that a subtype derives keeps its place.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Row = std::vector<std::string>;

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Row Split(const std::string& text, char separator) {
    Row parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(Trim(part));
    return parts;
}

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsBefore(const Row& a, const Row& b) {
    return std::lexicographical_compare(a[0].begin(), a[0].end(), b[0].begin(), b[0].end(),
                                        [](char x, char y) { return UpperCase(x) < UpperCase(y); });
}

/// Rows below the heading, by their first column.
std::vector<Row> ReadRows(const std::string& path, std::size_t columns) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path);
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        Row row = Split(line, ';');
        if (row.empty() || row[0].empty() || row.size() > columns)
            throw std::runtime_error(std::string(path).append(": ").append(line));
        row.resize(columns);
        rows.push_back(std::move(row));
    }
    std::sort(rows.begin(), rows.end(), IsBefore);
    return rows;
}

class TableWriter {
public:
    TableWriter(std::string schema, std::vector<Row> entities, std::vector<Row> types)
        : schema(std::move(schema)), entities(std::move(entities)), types(std::move(types)) {
        for (std::size_t i = 0; i < this->entities.size(); ++i)
            places[this->entities[i][0]] = i;
    }

    std::string Run() {
        out << "#include \"workbench/ifc/schema/Schema.h\"\n\nnamespace workbench::schema {\nnamespace {\n\n"
            << "extern const EntityType Entities[" << entities.size() << "];\n\n";
        WriteAttributes();
        WriteEntities();
        WriteTypes();
        out << "} // namespace\n\nconstinit const Schema " << schema << "(\"" << schema
            << "\", Entities, Types);\n\n} // namespace workbench::schema\n";
        return out.str();
    }

private:
    void WriteAttributes() {
        out << "constexpr Attribute Attributes[] = {\n";
        for (const Row& entity : entities) {
            starts.push_back(count);
            for (const std::string& attribute : Split(entity[3], '|'))
                WriteAttribute(entity[0], attribute);
        }
        starts.push_back(count);
        out << "};\n\n";
    }

    void WriteAttribute(const std::string& entity, const std::string& text) {
        const std::size_t equals = text.find('=');
        if (equals == std::string::npos || equals == 0) throw std::runtime_error(entity + ": " + text);
        const std::string type = text.substr(equals + 1);
        std::string name = text.substr(0, equals);
        const bool isOptional = name.back() == '?';
        if (isOptional) name.pop_back();
        const auto target = places.find(type.substr(type.rfind(' ') + 1));
        out << "    {\"" << name << "\", \"" << type << "\", "
            << (target == places.end() ? "nullptr" : "&Entities[" + std::to_string(target->second) + "]") << ", "
            << (isOptional ? "true" : "false") << "},\n";
        ++count;
    }

    void WriteEntities() {
        out << "constinit const EntityType Entities[" << entities.size() << "] = {\n";
        for (std::size_t i = 0; i < entities.size(); ++i) {
            const Row& entity = entities[i];
            out << "    {\"" << entity[0] << "\", "
                << (entity[2].empty() ? "nullptr" : "&Entities[" + std::to_string(PlaceOf(entity[2])) + "]")
                << ", {Attributes + " << starts[i] << ", " << starts[i + 1] - starts[i] << "}, " << CountInherited(i)
                << ", " << (entity[1] == "1" ? "true" : "false") << "},\n";
        }
        out << "};\n\n";
    }

    void WriteTypes() {
        out << "constexpr DefinedType Types[] = {\n";
        for (const Row& type : types)
            out << "    {\"" << type[0] << "\", \"" << type[1] << "\"},\n";
        out << "};\n\n";
    }

    [[nodiscard]] std::size_t PlaceOf(const std::string& name) const {
        const auto found = places.find(name);
        if (found == places.end()) throw std::runtime_error(schema + " has no " + name);
        return found->second;
    }

    [[nodiscard]] std::size_t CountInherited(std::size_t place) const {
        std::size_t inherited = 0;
        for (std::size_t steps = 0; !entities[place][2].empty(); ++steps) {
            if (steps > entities.size()) throw std::runtime_error(entities[place][0] + " inherits from itself");
            place = PlaceOf(entities[place][2]);
            inherited += starts[place + 1] - starts[place];
        }
        return inherited;
    }

    std::string schema;
    std::vector<Row> entities;
    std::vector<Row> types;
    std::map<std::string, std::size_t> places;
    std::vector<std::size_t> starts; ///< of each entity's attributes, and the end
    std::size_t count = 0;
    std::ostringstream out;
};

void Make(char** words) {
    const std::string text = TableWriter(words[1], ReadRows(words[2], 5), ReadRows(words[3], 2)).Run();
    std::ofstream file(words[4], std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error(std::string("cannot write ") + words[4]);
}

} // namespace

int main(int count, char** words) {
    if (count != 5) return 2;
    try {
        Make(words);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}

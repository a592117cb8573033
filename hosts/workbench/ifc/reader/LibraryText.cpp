#include "LibraryText.h"

#include <algorithm>
#include <limits>

#include "workbench/ifc/step/Lexis.h"

namespace workbench::ifc {
namespace {

using entities::Entity;
using step::Value;
using step::ValueKind;

bool IsPlain(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               std::string_view(" _$.,:+-").find(c) != std::string_view::npos;
    });
}

/// Goes as deep as the file's lists do.
void Write(const Value& value, std::string& out) {
    switch (value.GetKind()) {
    case ValueKind::Missing:
        out += '$';
        break;
    case ValueKind::Text: {
        const std::string text = value.GetText();
        out.append("'").append(IsPlain(text) ? text : "").append("'");
        break;
    }
    case ValueKind::Typed:
        out.append(value.GetTypeName()).append("(");
        Write(value.GetContent(), out);
        out += ')';
        break;
    case ValueKind::List: {
        out += '(';
        const std::size_t start = out.size();
        for (const Value& item : value) {
            if (out.size() > start) out += ',';
            Write(item, out);
        }
        out += ')';
        break;
    }
    default:
        out += value.GetWritten();
    }
}

constexpr std::size_t AllArguments = std::numeric_limits<std::size_t>::max();

/// How an entity is told to the library.
struct Telling {
    std::string_view keyword; ///< empty: not at all
    std::size_t arguments = 0;
    std::string_view rest = {}; ///< behind them
};

/// The library knows IFC4 and IFC2X3.
Telling TellingOf(const schema::EntityType& type, const schema::Schema& schema) {
    if (&schema != &schema::IFC4X3) return {type.name, AllArguments};
    if (const schema::EntityType* known = schema::IFC4.FindEntity(type.name)) {
        return {type.name, known->CountAttributes()};
    }
    if (type.IsA("IfcBuiltElement")) return {"IfcBuildingElementProxy", 8, ",$"};
    return {};
}

void WriteArguments(const Value& arguments, const Telling& telling, std::string& out) {
    std::size_t count = 0;
    for (const Value& argument : arguments) {
        if (count++ == telling.arguments) break;
        if (count > 1) out += ',';
        Write(argument, out);
    }
    out += telling.rest;
}

class Writer {
public:
    explicit Writer(const entities::Model& model) : model(model), file(model.GetFile()) {
        for (const std::string& keyword : file.GetKeywords()) {
            const schema::EntityType* type = model.GetSchema().FindEntity(keyword);
            tellings.push_back(type ? TellingOf(*type, model.GetSchema()) : Telling());
            keywords.push_back(step::UpperCase(tellings.back().keyword));
        }
    }

    std::string Run() {
        const bool isOld = &model.GetSchema() == &schema::IFC2X3;
        out.append("ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n")
            .append("FILE_SCHEMA(('")
            .append(isOld ? "IFC2X3" : "IFC4")
            .append("'));\nENDSEC;\nDATA;\n");
        for (step::EntityIndex i = 0; i < file.CountEntities(); ++i)
            WriteEntity(i);
        out += "ENDSEC;\nEND-ISO-10303-21;\n";
        return std::move(out);
    }

private:
    void WriteEntity(step::EntityIndex entity) {
        const std::size_t keyword = file.GetKeyword(entity);
        if (keywords[keyword].empty() || file.GetNumber(entity) > std::numeric_limits<int>::max()) return;
        out.append("#")
            .append(std::to_string(file.GetNumber(entity)))
            .append("=")
            .append(keywords[keyword])
            .append("(");
        WriteArguments(file.GetArguments(entity), tellings[keyword], out);
        out += ");\n";
    }

    const entities::Model& model;
    const step::StepFile& file;
    std::vector<Telling> tellings;     ///< by the file's keywords
    std::vector<std::string> keywords; ///< the library's, in capitals
    std::string out;
};

} // namespace

std::string WriteForLibrary(const entities::Model& model) {
    return Writer(model).Run();
}

} // namespace workbench::ifc

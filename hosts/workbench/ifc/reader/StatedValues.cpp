#include "StatedValues.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace workbench::ifc {
namespace {

using entities::Entity;

struct MeasureRow {
    Measure measure;
    std::string_view attribute; ///< of a quantity
    std::string_view valueType; ///< of a property's value
    double UnitFactors::*projectFactor;
};

constexpr MeasureRow MeasureRows[] = {
    {Measure::Length, "LengthValue", "IfcLengthMeasure", &UnitFactors::lengthM},
    {Measure::Area, "AreaValue", "IfcAreaMeasure", &UnitFactors::areaM2},
    {Measure::Volume, "VolumeValue", "IfcVolumeMeasure", &UnitFactors::volumeM3},
    {Measure::Mass, "WeightValue", "IfcMassMeasure", &UnitFactors::massKg},
};

class Reader {
public:
    Reader(const entities::Model& model, const UnitFactors& units) : model(model), units(units) {}

    void Read(const Entity& set) {
        writtenSet = set.GetText("Name");
        setName = ComparableName(writtenSet);
        for (const Entity& quantity : set.GetEntities("Quantities"))
            ReadQuantity(quantity);
        for (const Entity& property : set.GetEntities("HasProperties"))
            ReadProperty(property);
    }

    std::vector<StatedValue> values;

private:
    void ReadQuantity(const Entity& quantity) {
        for (const MeasureRow& row : MeasureRows) {
            const auto number = quantity.GetReal(row.attribute);
            if (number) Put(quantity, row, *number, false);
        }
    }

    void ReadProperty(const Entity& property) {
        const step::Value value = property.Get("NominalValue");
        const auto number = value.GetNumber();
        const auto row = std::find_if(std::begin(MeasureRows), std::end(MeasureRows), [&](const MeasureRow& measure) {
            return model.GetSchema().IsValueOf(value.GetTypeName(), measure.valueType);
        });
        if (number && row != std::end(MeasureRows)) Put(property, *row, *number, true);
    }

    void Put(const Entity& source, const MeasureRow& row, double number, bool isProperty) {
        const double value = number * UnitFactor(source.GetEntity("Unit")).value_or(units.*row.projectFactor);
        const std::string name = source.GetText("Name");
        const std::string whole = writtenSet.empty() ? name : writtenSet + "." + name;
        if (std::isfinite(value))
            values.push_back({setName, ComparableName(name), whole, row.measure, isProperty, value});
    }

    const entities::Model& model;
    const UnitFactors& units;
    std::string writtenSet, setName;
};

} // namespace

std::string ComparableName(std::string_view name) {
    constexpr std::string_view Around = " _\t";
    const std::size_t first = name.find_first_not_of(Around);
    if (first == std::string_view::npos) return {};
    std::string comparable(name.substr(first, name.find_last_not_of(Around) - first + 1));
    std::transform(comparable.begin(), comparable.end(), comparable.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return comparable;
}

bool IsOfDimensions(const StatedValue& value) {
    constexpr std::string_view Sets[] = {"pset_revit_dimensions", "dimensions", "寸法", "尺寸标注"};
    return value.isProperty && std::find(std::begin(Sets), std::end(Sets), value.set) != std::end(Sets);
}

std::vector<Entity> SetsOf(const entities::Model& model, const Entity& object) {
    std::vector<Entity> sets;
    for (const Entity& relation : model.GetReferencing(object, "IfcRelDefinesByProperties", "RelatedObjects")) {
        model.ForEachReference(relation.Get("RelatingPropertyDefinition"),
                               [&](const Entity& set) { sets.push_back(set); });
    }
    const std::vector<Entity> ofType = object.GetEntities("HasPropertySets");
    sets.insert(sets.end(), ofType.begin(), ofType.end());
    return sets;
}

std::vector<StatedValue> ReadStatedValues(const entities::Model& model, const UnitFactors& units,
                                          const Entity& object) {
    Reader reader(model, units);
    for (const Entity& set : SetsOf(model, object))
        reader.Read(set);
    return std::move(reader.values);
}

} // namespace workbench::ifc

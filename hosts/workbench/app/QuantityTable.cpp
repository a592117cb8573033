#include "workbench/app/QuantityTable.h"

#include "workbench/app/GlobalId.h"
#include "workbench/app/MaterialTable.h"
#include "workbench/app/Quantities.h"

#include "lca/Numbers.h"

#include <algorithm>
#include <map>
#include <set>

namespace workbench {

namespace {

/// One part of one element, with all that a cell may show.
struct PartContext {
    const Model& model;
    const ElementQuantities& quantities;
    const QuantityPart& part;

    const Element& GetElement() const { return *quantities.element; }
};

Cell ToCell(const std::optional<double>& number) {
    return number ? Cell(*number) : Cell();
}
Cell ToCell(const std::string& text) {
    return text.empty() ? Cell() : Cell(text);
}
Cell ToCell(double number) {
    return number;
}

std::string GetStoreyName(const Model& model, const Element& element) {
    return element.storey ? model.storeys[*element.storey].name : std::string();
}

std::string GetMaterialName(const Model& model, const QuantityPart& part) {
    return part.material ? model.FindBuildingMaterial(*part.material)->name : std::string();
}

std::string FindDensityOrigin(const PartContext& context) {
    if (!context.part.material) return {};
    const auto found = context.model.materialOrigins.find(*context.part.material);
    return found == context.model.materialOrigins.end() ? std::string()
                                                        : FindOrigin(found->second, OriginFields::Density);
}

std::optional<double> GetDifference(const QuantityPart& part) {
    if (!part.statedVolumeM3 || !part.computedVolumeM3) return std::nullopt;
    return *part.statedVolumeM3 - *part.computedVolumeM3;
}

std::string ListDoubts(const PartContext& context) {
    std::string text;
    for (const Doubt doubt : context.quantities.doubts)
        text.append(text.empty() ? "" : ", ").append(DescribeDoubt(doubt));
    return text;
}

struct PartColumn {
    TableColumn column;
    Cell (*read)(const PartContext& context);
};

constexpr PartColumn PartColumns[] = {
    {{"element", "GlobalId"}, [](const PartContext& c) { return ToCell(WriteGlobalId(c.GetElement().guid)); }},
    {{"type", "Type"}, [](const PartContext& c) { return ToCell(GetTypeName(c.GetElement().type)); }},
    {{"name", "Name"}, [](const PartContext& c) { return ToCell(c.GetElement().name); }},
    {{"storey", "Storey"}, [](const PartContext& c) { return ToCell(GetStoreyName(c.model, c.GetElement())); }},
    {{"layer", "Layer"}, [](const PartContext& c) { return ToCell(c.model.FindLayer(c.GetElement().layer)->name); }},
    {{"material", "Material"}, [](const PartContext& c) { return ToCell(GetMaterialName(c.model, c.part)); }},
    {{"thickness_m", "Thickness (m)", 4},
     [](const PartContext& c) { return c.part.thicknessM > 0.0 ? ToCell(c.part.thicknessM) : Cell(); }},
    {{"volume_m3", "Volume (m3)", 3},
     [](const PartContext& c) { return c.part.material ? ToCell(c.part.volumeM3) : Cell(); }},
    {{"area_m2", "Area (m2)", 2}, [](const PartContext& c) { return ToCell(c.part.areaM2); }},
    {{"mass_kg", "Mass (kg)", 1}, [](const PartContext& c) { return ToCell(c.part.massKg); }},
    {{"volume_source", "Volume from"},
     [](const PartContext& c) { return ToCell(FindOrigin(c.GetElement(), OriginFields::Volume)); }},
    {{"area_source", ""}, [](const PartContext& c) { return ToCell(FindOrigin(c.GetElement(), OriginFields::Area)); }},
    {{"shares_source", ""},
     [](const PartContext& c) { return ToCell(FindOrigin(c.GetElement(), OriginFields::Shares)); }},
    {{"density_source", ""}, [](const PartContext& c) { return ToCell(FindDensityOrigin(c)); }},
    {{"stated_volume_m3", ""}, [](const PartContext& c) { return ToCell(c.part.statedVolumeM3); }},
    {{"computed_volume_m3", ""}, [](const PartContext& c) { return ToCell(c.part.computedVolumeM3); }},
    {{"difference_m3", "Stated - computed (m3)", 3},
     [](const PartContext& c) { return ToCell(GetDifference(c.part)); }},
    {{"doubts", "Doubts"}, [](const PartContext& c) { return ToCell(ListDoubts(c)); }},
};

/// By SumKey.
constexpr TableColumn KeyColumns[] = {
    {"type", "Type"}, {"storey", "Storey"}, {"layer", "Layer"}, {"material", "Material"}};
static_assert(std::size(KeyColumns) == std::size(SumKeyNames));

constexpr TableColumn SumColumns[] = {{"elements", "Elements", 0},
                                      {"volume_m3", "Volume (m3)", 3},
                                      {"area_m2", "Area (m2)", 2},
                                      {"mass_kg", "Mass (kg)", 1},
                                      {"parts_without_density", "Parts without density", 0},
                                      {"compared_stated_m3", "Compared: stated (m3)", 3},
                                      {"compared_computed_m3", "computed (m3)", 3},
                                      {"doubtful_elements", "Doubtful", 0}};

struct Sum {
    std::set<const Element*> elements;
    std::set<const Element*> doubtful;
    double volumeM3 = 0.0;
    double areaM2 = 0.0;
    std::optional<double> massKg;
    std::int64_t withoutDensity = 0;
    std::optional<double> statedM3;
    std::optional<double> computedM3;
};

void AddTo(std::optional<double>& sum, const std::optional<double>& number) {
    if (number) sum = sum.value_or(0.0) + *number;
}

/// areaM2  what the part adds to the area
void AddPart(const PartContext& context, double areaM2, Sum& sum) {
    const Element* element = &context.GetElement();
    sum.elements.insert(element);
    if (!context.quantities.doubts.empty()) sum.doubtful.insert(element);
    sum.volumeM3 += context.part.volumeM3;
    sum.areaM2 += areaM2;
    AddTo(sum.massKg, context.part.massKg);
    if (context.part.material && !context.part.massKg) ++sum.withoutDensity;
    if (!GetDifference(context.part)) return;
    AddTo(sum.statedM3, context.part.statedVolumeM3);
    AddTo(sum.computedM3, context.part.computedVolumeM3);
}

/// Where a key sorts, and its text.
using KeyValue = std::pair<std::size_t, std::string>;

KeyValue ReadKey(SumKey key, const PartContext& context) {
    switch (key) {
    case SumKey::Type:
        return {0, GetTypeName(context.GetElement().type)};
    case SumKey::Storey:
        return {context.GetElement().storey ? *context.GetElement().storey + 1 : 0,
                GetStoreyName(context.model, context.GetElement())};
    case SumKey::Layer:
        return {0, context.model.FindLayer(context.GetElement().layer)->name};
    case SumKey::Material:
        break;
    }
    return {0, GetMaterialName(context.model, context.part)};
}

std::vector<Cell> ListCells(const std::vector<KeyValue>& keys, const Sum& sum) {
    std::vector<Cell> row;
    row.reserve(keys.size());
    for (const KeyValue& key : keys)
        row.push_back(ToCell(key.second));
    const auto count = [](std::size_t number) { return Cell(static_cast<std::int64_t>(number)); };
    const Cell sums[] = {count(sum.elements.size()),
                         sum.volumeM3,
                         sum.areaM2,
                         ToCell(sum.massKg),
                         sum.withoutDensity,
                         ToCell(sum.statedM3),
                         ToCell(sum.computedM3),
                         count(sum.doubtful.size())};
    static_assert(std::size(sums) == std::size(SumColumns));
    row.insert(row.end(), std::begin(sums), std::end(sums));
    return row;
}

std::string WriteCell(const Cell& cell) {
    if (const auto* text = std::get_if<std::string>(&cell)) return QuoteCell(*text);
    if (const auto* count = std::get_if<std::int64_t>(&cell)) return std::to_string(*count);
    if (const auto* number = std::get_if<double>(&cell)) return lca::WriteDecimal(*number);
    return {};
}

} // namespace

QuantityTable ListParts(const Model& model, const std::vector<ElementQuantities>& elements) {
    QuantityTable table;
    for (const PartColumn& column : PartColumns)
        table.columns.push_back(column.column);
    for (const ElementQuantities& quantities : elements)
        for (const QuantityPart& part : quantities.parts) {
            std::vector<Cell>& row = table.rows.emplace_back();
            for (const PartColumn& column : PartColumns)
                row.push_back(column.read({model, quantities, part}));
        }
    return table;
}

QuantityTable SumParts(const Model& model, const std::vector<ElementQuantities>& elements,
                       const std::vector<SumKey>& keys) {
    const bool isByMaterial = std::find(keys.begin(), keys.end(), SumKey::Material) != keys.end();
    std::map<std::vector<KeyValue>, Sum> sums;
    for (const ElementQuantities& quantities : elements) {
        double restM2 = quantities.areaM2; // of the element, where its layers' areas are one
        for (const QuantityPart& part : quantities.parts) {
            const PartContext context{model, quantities, part};
            std::vector<KeyValue> values;
            values.reserve(keys.size());
            for (const SumKey key : keys)
                values.push_back(ReadKey(key, context));
            AddPart(context, isByMaterial ? part.areaM2 : restM2, sums[values]);
            restM2 = 0.0;
        }
    }
    QuantityTable table;
    for (const SumKey key : keys)
        table.columns.push_back(KeyColumns[static_cast<std::size_t>(key)]);
    table.columns.insert(table.columns.end(), std::begin(SumColumns), std::end(SumColumns));
    for (const auto& [values, sum] : sums)
        table.rows.push_back(ListCells(values, sum));
    return table;
}

std::string WriteCsv(const QuantityTable& table) {
    std::string text;
    const auto addLine = [&](const auto& cells, const auto& write) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            text.append(i == 0 ? "" : ";").append(write(cells[i]));
        text += '\n';
    };
    addLine(table.columns, [](const TableColumn& column) { return std::string(column.key); });
    for (const std::vector<Cell>& row : table.rows)
        addLine(row, WriteCell);
    return text;
}

} // namespace workbench

#include "src/MaterialReport.h"

#include "src/Texts.h"

#include "host/Model.h"
#include "lca/Numbers.h"

namespace {

using namespace ResourceIds;

std::string ReadLayerName(host::Host& host, std::int32_t layer) {
    std::string name;
    // An attribute that is gone has no name.
    return host.GetAttributes().ReadLayerName({layer}, name) ? std::string() : name;
}

std::string ReadMaterialName(host::Host& host, std::int32_t index) {
    host::BuildingMaterial material;
    return host.GetAttributes().ReadBuildingMaterial({index}, material) ? std::string() : material.name;
}

} // namespace

std::vector<MaterialReportRow> BuildMaterialReport(host::Host& host, const lca::MaterialSumTable& sums) {
    using Kind = MaterialReportRow::Kind;
    std::vector<MaterialReportRow> rows;
    double total = 0.0;
    for (const lca::LayerSums& layer : sums.GetLayers()) {
        const std::size_t layerRow = rows.size();
        rows.push_back({Kind::Layer, ReadLayerName(host, layer.layer), {}, 0.0});
        for (const lca::MaterialSum& material : layer.materials) {
            rows.push_back({Kind::Material, {}, ReadMaterialName(host, material.buildingMaterial), material.gwp});
            rows[layerRow].gwp += material.gwp;
            total += material.gwp;
        }
    }
    rows.push_back({Kind::Total, ReadText(host, ResourceIds::MaterialReport::Total), {}, total});
    return rows;
}

std::string FormatReportGWP(double gwp) {
    constexpr int Decimals = 3;
    return lca::WriteFixed(gwp, Decimals);
}

void FillMaterialReport(host::Host& host, const std::vector<MaterialReportRow>& rows, const std::string& date,
                        ObjectParameters& parameters) {
    std::vector<std::string> texts;
    std::vector<double> numbers;
    for (const MaterialReportRow& row : rows) {
        texts.insert(texts.end(), {row.layer, row.name, FormatReportGWP(row.gwp)});
        numbers.push_back(row.gwp);
    }
    SetTextArray(parameters, "column_names",
                 {ReadText(host, ResourceIds::MaterialReport::LayerHeader),
                  ReadText(host, ResourceIds::MaterialReport::NameHeader),
                  ReadText(host, ResourceIds::MaterialReport::GwpHeader)});
    SetTextArray(parameters, "arr_texts", texts);
    SetRealArray(parameters, "barchart_data", numbers);
    SetText(parameters, "date", date);
}

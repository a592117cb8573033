#include "src/MaterialReport.h"

#include "src/Texts.h"

#include "General/HostReport.h"

#include "host/Model.h"
#include "lca/Numbers.h"

namespace {

using namespace ResourceIds;

/// Names of attributes; one that cannot be read is empty and counted.
class AttributeNames {
public:
    explicit AttributeNames(host::Host& host) : host(host) {}
    ~AttributeNames() { unread.Report(host, "material report", "names of layers or materials that could not be read"); }
    AttributeNames(const AttributeNames&) = delete;
    AttributeNames& operator=(const AttributeNames&) = delete;

    std::string ReadLayer(lca::LayerIndex index) {
        std::string name;
        return unread.Note(host.GetAttributes().ReadLayerName({index.value}, name)) ? std::string() : name;
    }
    std::string ReadMaterial(lca::BuildingMaterialIndex index) {
        host::BuildingMaterial material;
        return unread.Note(host.GetAttributes().ReadBuildingMaterial({index.value}, material)) ? std::string()
                                                                                               : material.name;
    }

private:
    host::Host& host;
    General::CountedFailures unread;
};

} // namespace

std::vector<MaterialReportRow> BuildMaterialReport(host::Host& host, const lca::MaterialSumTable& sums) {
    using Kind = MaterialReportRow::Kind;
    AttributeNames names(host);
    std::vector<MaterialReportRow> rows;
    double total = 0.0;
    for (const lca::LayerSums& layer : sums.GetLayers()) {
        const std::size_t layerRow = rows.size();
        rows.push_back({Kind::Layer, names.ReadLayer(layer.layer), {}, 0.0});
        for (const lca::MaterialSum& material : layer.materials) {
            rows.push_back({Kind::Material, {}, names.ReadMaterial(material.buildingMaterial), material.gwp});
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

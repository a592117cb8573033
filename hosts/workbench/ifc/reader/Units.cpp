#include "Units.h"

#include <cmath>

#include <ifcpp/IFC4/include/IfcAreaMeasure.h>
#include <ifcpp/IFC4/include/IfcConversionBasedUnit.h>
#include <ifcpp/IFC4/include/IfcDerivedUnit.h>
#include <ifcpp/IFC4/include/IfcDerivedUnitElement.h>
#include <ifcpp/IFC4/include/IfcDerivedUnitEnum.h>
#include <ifcpp/IFC4/include/IfcInteger.h>
#include <ifcpp/IFC4/include/IfcLengthMeasure.h>
#include <ifcpp/IFC4/include/IfcMassDensityMeasure.h>
#include <ifcpp/IFC4/include/IfcMassMeasure.h>
#include <ifcpp/IFC4/include/IfcMeasureWithUnit.h>
#include <ifcpp/IFC4/include/IfcNumericMeasure.h>
#include <ifcpp/IFC4/include/IfcPlaneAngleMeasure.h>
#include <ifcpp/IFC4/include/IfcProject.h>
#include <ifcpp/IFC4/include/IfcRatioMeasure.h>
#include <ifcpp/IFC4/include/IfcReal.h>
#include <ifcpp/IFC4/include/IfcSIPrefix.h>
#include <ifcpp/IFC4/include/IfcSIUnit.h>
#include <ifcpp/IFC4/include/IfcSIUnitName.h>
#include <ifcpp/IFC4/include/IfcUnitAssignment.h>
#include <ifcpp/IFC4/include/IfcUnitEnum.h>
#include <ifcpp/IFC4/include/IfcValue.h>
#include <ifcpp/IFC4/include/IfcVolumeMeasure.h>

namespace workbench::ifc {
namespace {

constexpr int deepestConversion = 8;

double PrefixFactor(const std::shared_ptr<IfcSIPrefix>& prefix) {
    // In the order of the library's enumeration, from exa to atto.
    constexpr double factors[] = {1e18, 1e15, 1e12, 1e9,  1e6,  1e3,   1e2,   1e1,
                                  1e-1, 1e-2, 1e-3, 1e-6, 1e-9, 1e-12, 1e-15, 1e-18};
    return prefix && prefix->m_enum <= IfcSIPrefix::ENUM_ATTO ? factors[prefix->m_enum] : 1.0;
}

double SIFactor(const IfcSIUnit& unit) {
    const double prefix = PrefixFactor(unit.m_Prefix);
    if (!unit.m_Name) return prefix;
    switch (unit.m_Name->m_enum) {
    case IfcSIUnitName::ENUM_SQUARE_METRE:
        return prefix * prefix; // the prefix belongs to the metre
    case IfcSIUnitName::ENUM_CUBIC_METRE:
        return prefix * prefix * prefix;
    case IfcSIUnitName::ENUM_GRAM:
        return prefix * 1e-3;
    default:
        return prefix;
    }
}

template <class... Measures>
std::optional<double> FirstOf(const IfcValue* value) {
    std::optional<double> number;
    const auto take = [&](const auto* measure) {
        if (measure && !number) number = static_cast<double>(measure->m_value);
    };
    (take(dynamic_cast<const Measures*>(value)), ...);
    return number;
}

std::optional<double> Factor(const std::shared_ptr<IfcUnit>& unit, int depth) {
    if (const auto si = std::dynamic_pointer_cast<IfcSIUnit>(unit)) return SIFactor(*si);
    if (depth == 0) return std::nullopt;
    if (const auto converted = std::dynamic_pointer_cast<IfcConversionBasedUnit>(unit)) {
        const auto& measure = converted->m_ConversionFactor;
        const auto number = measure ? NumberOf(measure->m_ValueComponent) : std::nullopt;
        const auto base = measure ? Factor(measure->m_UnitComponent, depth - 1) : std::nullopt;
        const double factor = number && base ? *number * *base : 0.0;
        return std::isfinite(factor) && factor > 0.0 ? std::optional(factor) : std::nullopt;
    }
    if (const auto derived = std::dynamic_pointer_cast<IfcDerivedUnit>(unit)) {
        double product = 1.0;
        for (const auto& element : derived->m_Elements) {
            const auto factor = element ? Factor(element->m_Unit, depth - 1) : std::nullopt;
            if (!factor) return std::nullopt;
            product *= std::pow(*factor, element->m_Exponent);
        }
        return std::isfinite(product) && product > 0.0 ? std::optional(product) : std::nullopt;
    }
    return std::nullopt;
}

struct NamedFactors {
    std::optional<double> length, area, volume, density, angle;
};

void Take(const std::shared_ptr<IfcUnit>& unit, NamedFactors& named) {
    const auto factor = UnitFactor(unit);
    if (const auto simple = std::dynamic_pointer_cast<IfcNamedUnit>(unit); simple && simple->m_UnitType) {
        switch (simple->m_UnitType->m_enum) {
        case IfcUnitEnum::ENUM_LENGTHUNIT:
            named.length = factor;
            break;
        case IfcUnitEnum::ENUM_AREAUNIT:
            named.area = factor;
            break;
        case IfcUnitEnum::ENUM_VOLUMEUNIT:
            named.volume = factor;
            break;
        case IfcUnitEnum::ENUM_PLANEANGLEUNIT:
            named.angle = factor;
            break;
        default:
            break;
        }
    }
    if (const auto derived = std::dynamic_pointer_cast<IfcDerivedUnit>(unit); derived && derived->m_UnitType) {
        if (derived->m_UnitType->m_enum == IfcDerivedUnitEnum::ENUM_MASSDENSITYUNIT) named.density = factor;
    }
}

} // namespace

std::optional<double> UnitFactor(const std::shared_ptr<IfcUnit>& unit) {
    return Factor(unit, deepestConversion);
}

std::optional<double> NumberOf(const std::shared_ptr<IfcValue>& value) {
    const auto number =
        FirstOf<IfcLengthMeasure, IfcAreaMeasure, IfcVolumeMeasure, IfcRatioMeasure, IfcReal, IfcInteger,
                IfcMassDensityMeasure, IfcMassMeasure, IfcNumericMeasure, IfcPlaneAngleMeasure>(value.get());
    return number && std::isfinite(*number) ? number : std::nullopt;
}

UnitFactors ReadUnits(const LibraryModel& model, std::vector<std::string>& warnings) {
    NamedFactors named;
    for (const ModelEntity& found : model.Entities()) {
        if (found.role != EntityRole::Project) continue;
        const auto project = std::dynamic_pointer_cast<IfcProject>(found.entity);
        if (!project->m_UnitsInContext) continue;
        for (const auto& unit : project->m_UnitsInContext->m_Units)
            Take(unit, named);
    }
    if (!named.length) warnings.emplace_back("The file names no length unit that can be read; metres are taken.");
    UnitFactors factors;
    factors.lengthM = named.length.value_or(1.0);
    factors.areaM2 = named.area.value_or(factors.lengthM * factors.lengthM);
    factors.volumeM3 = named.volume.value_or(factors.lengthM * factors.lengthM * factors.lengthM);
    factors.densityKgPerM3 = named.density.value_or(1.0);
    factors.angleRad = named.angle.value_or(1.0);
    if (!named.area) warnings.emplace_back("The file names no area unit; the square of its length unit is taken.");
    if (!named.volume) warnings.emplace_back("The file names no volume unit; the cube of its length unit is taken.");
    return factors;
}

} // namespace workbench::ifc

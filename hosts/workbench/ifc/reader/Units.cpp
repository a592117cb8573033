#include "Units.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace workbench::ifc {
namespace {

using entities::Entity;

constexpr int DeepestConversion = 8;

struct Prefix {
    std::string_view name;
    double factor;
};

constexpr Prefix Prefixes[] = {{"EXA", 1e18},  {"PETA", 1e15},  {"TERA", 1e12},   {"GIGA", 1e9},
                               {"MEGA", 1e6},  {"KILO", 1e3},   {"HECTO", 1e2},   {"DECA", 1e1},
                               {"DECI", 1e-1}, {"CENTI", 1e-2}, {"MILLI", 1e-3},  {"MICRO", 1e-6},
                               {"NANO", 1e-9}, {"PICO", 1e-12}, {"FEMTO", 1e-15}, {"ATTO", 1e-18}};

double PrefixFactor(std::string_view name) {
    const auto found = std::find_if(std::begin(Prefixes), std::end(Prefixes),
                                    [&](const Prefix& prefix) { return prefix.name == name; });
    return found == std::end(Prefixes) ? 1.0 : found->factor;
}

double SIFactor(const Entity& unit) {
    const double prefix = PrefixFactor(unit.Get("Prefix").GetEnumeration());
    const std::string_view name = unit.Get("Name").GetEnumeration();
    if (name == "SQUARE_METRE") return prefix * prefix; // the prefix belongs to the metre
    if (name == "CUBIC_METRE") return prefix * prefix * prefix;
    return name == "GRAM" ? prefix * 1e-3 : prefix;
}

std::optional<double> UsableFactor(double factor) {
    return std::isfinite(factor) && factor > 0.0 ? std::optional(factor) : std::nullopt;
}

std::optional<double> Factor(const Entity& unit, int depth);

std::optional<double> ConvertedFactor(const Entity& unit, int depth) {
    const Entity measure = unit.GetEntity("ConversionFactor");
    const auto number = measure.GetReal("ValueComponent");
    const auto base = Factor(measure.GetEntity("UnitComponent"), depth - 1);
    return number && base ? UsableFactor(*number * *base) : std::nullopt;
}

std::optional<double> DerivedFactor(const Entity& unit, int depth) {
    double product = 1.0;
    for (const Entity& element : unit.GetEntities("Elements")) {
        const auto factor = Factor(element.GetEntity("Unit"), depth - 1);
        if (!factor) return std::nullopt;
        product *= std::pow(*factor, element.GetReal("Exponent").value_or(0.0));
    }
    return UsableFactor(product);
}

std::optional<double> Factor(const Entity& unit, int depth) {
    if (unit.IsA("IfcSIUnit")) return SIFactor(unit);
    if (depth == 0) return std::nullopt;
    if (unit.IsA("IfcConversionBasedUnit")) return ConvertedFactor(unit, depth);
    return unit.IsA("IfcDerivedUnit") ? DerivedFactor(unit, depth) : std::nullopt;
}

struct NamedFactors {
    std::optional<double> length, area, volume, mass, density, angle;
};

struct NamedUnit {
    std::string_view type;
    std::optional<double> NamedFactors::*factor;
};

constexpr NamedUnit NamedUnits[] = {
    {"LENGTHUNIT", &NamedFactors::length},       {"AREAUNIT", &NamedFactors::area},
    {"VOLUMEUNIT", &NamedFactors::volume},       {"MASSUNIT", &NamedFactors::mass},
    {"MASSDENSITYUNIT", &NamedFactors::density}, {"PLANEANGLEUNIT", &NamedFactors::angle}};

NamedFactors ReadNamed(const entities::Model& model) {
    NamedFactors named;
    for (const Entity& project : model.GetAll("IfcProject")) {
        for (const Entity& unit : project.GetEntity("UnitsInContext").GetEntities("Units")) {
            for (const NamedUnit& row : NamedUnits) {
                if (unit.Get("UnitType").GetEnumeration() == row.type) named.*row.factor = UnitFactor(unit);
            }
        }
    }
    return named;
}

} // namespace

std::optional<double> UnitFactor(const Entity& unit) {
    return Factor(unit, DeepestConversion);
}

UnitFactors ReadUnits(const entities::Model& model, std::vector<std::string>& warnings) {
    const NamedFactors named = ReadNamed(model);
    if (!named.length) warnings.emplace_back("The file names no length unit that can be read; metres are taken.");
    UnitFactors factors;
    factors.lengthM = named.length.value_or(1.0);
    factors.areaM2 = named.area.value_or(factors.lengthM * factors.lengthM);
    factors.volumeM3 = named.volume.value_or(factors.lengthM * factors.lengthM * factors.lengthM);
    factors.massKg = named.mass.value_or(1.0);
    factors.densityKgPerM3 = named.density.value_or(1.0);
    factors.angleRad = named.angle;
    if (!named.area) warnings.emplace_back("The file names no area unit; the square of its length unit is taken.");
    if (!named.volume) warnings.emplace_back("The file names no volume unit; the cube of its length unit is taken.");
    return factors;
}

} // namespace workbench::ifc

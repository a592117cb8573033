#include "workbench/ifc/ImportAnswer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <concepts>

namespace workbench::ifc {
namespace {

constexpr std::string_view Magic = "KVIF";

constexpr std::uint64_t Checksum(std::string_view bytes) {
    std::uint64_t sum = 0xcbf29ce484222325ULL;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3ULL;
    return sum;
}

template <std::unsigned_integral T>
void PutNumber(std::string& out, T value) {
    for (std::size_t i = 0; i < sizeof(T); ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

/// The caller has checked that there are enough bytes.
template <std::unsigned_integral T>
T GetNumber(std::string_view bytes) {
    T value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
        value = static_cast<T>(value | static_cast<T>(static_cast<T>(static_cast<unsigned char>(bytes[i])) << (8 * i)));
    return value;
}

/// The members of a struct that are sent, in their order: one list serves writing, reading and the version.
template <auto... Members>
struct FieldList {
    template <class Archive, class Group>
    static void Visit(Archive& archive, Group& group) {
        archive((group.*Members)...);
    }
    /// Names and types of all members, as the compiler writes them into the text for a function.
    static constexpr std::string_view Describe() { return DescribeAs<decltype(Members)...>(); }

private:
    template <class... Types>
    static constexpr std::string_view DescribeAs() {
        return __PRETTY_FUNCTION__;
    }
};

template <class Group>
struct FieldsOf;
template <>
struct FieldsOf<ImportedMaterial>
    : FieldList<&ImportedMaterial::name, &ImportedMaterial::densityKgPerM3, &ImportedMaterial::densityOrigin> {};
template <>
struct FieldsOf<ImportedStorey> : FieldList<&ImportedStorey::name, &ImportedStorey::elevationM> {};
template <>
struct FieldsOf<ImportedComponent> : FieldList<&ImportedComponent::material, &ImportedComponent::volumeM3,
                                               &ImportedComponent::areaM2, &ImportedComponent::thicknessM> {};
template <>
struct FieldsOf<ImportedElement>
    : FieldList<&ImportedElement::globalId, &ImportedElement::name, &ImportedElement::typeName,
                &ImportedElement::ifcType, &ImportedElement::kind, &ImportedElement::layer, &ImportedElement::storey,
                &ImportedElement::components, &ImportedElement::volumeM3, &ImportedElement::areaM2,
                &ImportedElement::volumeSource, &ImportedElement::areaSource, &ImportedElement::volumeOrigin,
                &ImportedElement::areaOrigin, &ImportedElement::sharesOrigin, &ImportedElement::statedVolumeM3,
                &ImportedElement::geometryVolumeM3, &ImportedElement::overallWidthM, &ImportedElement::overallHeightM> {
};
template <>
struct FieldsOf<ImportFinding> : FieldList<&ImportFinding::globalId, &ImportFinding::ifcType, &ImportFinding::name> {};
template <>
struct FieldsOf<VolumeCorrection>
    : FieldList<&VolumeCorrection::element, &VolumeCorrection::statedM3, &VolumeCorrection::geometryM3> {};
template <>
struct FieldsOf<ImportedBuilding>
    : FieldList<&ImportedBuilding::schema, &ImportedBuilding::projectName, &ImportedBuilding::layers,
                &ImportedBuilding::storeys, &ImportedBuilding::materials, &ImportedBuilding::elements,
                &ImportedBuilding::leftOut, &ImportedBuilding::sumsOfParts, &ImportedBuilding::withoutQuantity,
                &ImportedBuilding::withoutVolume, &ImportedBuilding::withoutMaterial, &ImportedBuilding::sharesUnknown,
                &ImportedBuilding::correctedVolumes, &ImportedBuilding::grossFloorAreaM2,
                &ImportedBuilding::grossFloorAreaSource, &ImportedBuilding::metresPerLengthUnit,
                &ImportedBuilding::warnings> {};

/// A change of any list changes it, so that programs of different builds do not take each other's answers.
constexpr std::uint16_t DeriveVersion() {
    std::uint64_t sum = 0;
    for (const std::string_view fields :
         {FieldsOf<ImportedMaterial>::Describe(), FieldsOf<ImportedStorey>::Describe(),
          FieldsOf<ImportedComponent>::Describe(), FieldsOf<ImportedElement>::Describe(),
          FieldsOf<ImportFinding>::Describe(), FieldsOf<VolumeCorrection>::Describe(),
          FieldsOf<ImportedBuilding>::Describe()})
        sum = sum * 31 + Checksum(fields);
    return static_cast<std::uint16_t>(sum ^ (sum >> 16) ^ (sum >> 32) ^ (sum >> 48));
}

constexpr std::uint16_t AnswerVersion = DeriveVersion();

class Writer {
public:
    template <class... Values>
    void operator()(const Values&... values) {
        (Put(values), ...);
    }
    std::string bytes;

private:
    void Put(std::uint32_t value) { PutNumber(bytes, value); }
    void Put(int value) { PutNumber(bytes, static_cast<std::uint32_t>(value)); }
    void Put(std::size_t value) { PutNumber(bytes, static_cast<std::uint64_t>(value)); }
    void Put(double value) { PutNumber(bytes, std::bit_cast<std::uint64_t>(value)); }
    void Put(const std::string& text) {
        Put(static_cast<std::uint32_t>(text.size()));
        bytes += text;
    }
    template <class T>
    void Put(T value) requires std::is_enum_v<T> {
        Put(static_cast<std::uint32_t>(value));
    }
    template <class T>
    void Put(const std::optional<T>& value) {
        bytes += value ? '\1' : '\0';
        if (value) Put(*value);
    }
    template <class T>
    void Put(const std::vector<T>& list) {
        Put(static_cast<std::uint32_t>(list.size()));
        for (const T& item : list)
            Put(item);
    }
    void Put(const std::map<std::string, int>& map) {
        Put(static_cast<std::uint32_t>(map.size()));
        for (const auto& [key, value] : map)
            (*this)(key, value);
    }
    template <class T>
    void Put(const T& group) requires std::is_class_v<T> {
        FieldsOf<T>::Visit(*this, group);
    }
};

class Reader {
public:
    explicit Reader(std::string_view bytes) : rest(bytes) {}
    template <class... Values>
    void operator()(Values&... values) {
        (Get(values), ...);
    }
    [[nodiscard]] bool IsWhole() const { return good && rest.empty(); }

private:
    std::string_view Cut(std::size_t count) {
        if (count > rest.size()) {
            good = false;
            rest = {};
            return {};
        }
        const std::string_view cut = rest.substr(0, count);
        rest.remove_prefix(count);
        return cut;
    }
    template <std::unsigned_integral T>
    T CutNumber() {
        const std::string_view bytes = Cut(sizeof(T));
        return good ? GetNumber<T>(bytes) : T(0);
    }
    void Get(std::uint32_t& value) { value = CutNumber<std::uint32_t>(); }
    void Get(int& value) { value = static_cast<int>(CutNumber<std::uint32_t>()); }
    void Get(std::size_t& value) { value = CutNumber<std::uint64_t>(); }
    void Get(double& value) {
        value = std::bit_cast<double>(CutNumber<std::uint64_t>());
        good = good && std::isfinite(value);
    }
    void Get(std::string& text) { text = Cut(CutNumber<std::uint32_t>()); }
    template <class T>
    void Get(T& value) requires std::is_enum_v<T> {
        value = static_cast<T>(CutNumber<std::uint32_t>());
    }
    template <class T>
    void Get(std::optional<T>& value) {
        const std::string_view flag = Cut(1);
        if (!good || flag[0] == '\0') return;
        Get(value.emplace());
    }
    template <class T>
    void Get(std::vector<T>& list) {
        const auto count = CutNumber<std::uint32_t>();
        for (std::uint32_t i = 0; good && i < count; ++i)
            Get(list.emplace_back());
    }
    void Get(std::map<std::string, int>& map) {
        const auto count = CutNumber<std::uint32_t>();
        for (std::uint32_t i = 0; good && i < count; ++i) {
            std::string key;
            Get(key);
            Get(map[key]);
        }
    }
    template <class T>
    void Get(T& group) requires std::is_class_v<T> {
        FieldsOf<T>::Visit(*this, group);
    }

    std::string_view rest;
    bool good = true;
};

bool IsKnown(ElementKind kind) {
    constexpr ElementKind Kinds[] = {
        ElementKind::Wall,   ElementKind::Column,   ElementKind::Beam,  ElementKind::Window, ElementKind::Door,
        ElementKind::Object, ElementKind::Slab,     ElementKind::Roof,  ElementKind::Mesh,   ElementKind::CurtainWall,
        ElementKind::Shell,  ElementKind::Skylight, ElementKind::Morph, ElementKind::Stair,  ElementKind::Railing};
    return std::find(std::begin(Kinds), std::end(Kinds), kind) != std::end(Kinds);
}

bool IsSound(const ImportedElement& element, const ImportedBuilding& building) {
    return IsKnown(element.kind) && element.layer < building.layers.size() &&
           (!element.storey || *element.storey < building.storeys.size()) &&
           element.volumeSource <= QuantitySource::LayerThickness &&
           element.areaSource <= QuantitySource::LayerThickness && element.volumeM3 >= 0.0 && element.areaM2 >= 0.0 &&
           std::all_of(element.components.begin(), element.components.end(), [&](const ImportedComponent& component) {
               return component.material < building.materials.size() && component.volumeM3 >= 0.0 &&
                      component.areaM2 >= 0.0 && component.thicknessM >= 0.0;
           });
}

bool IsSound(const ImportedBuilding& building) {
    return building.grossFloorAreaSource <= FloorAreaSource::SpacesOther &&
           std::all_of(building.elements.begin(), building.elements.end(),
                       [&](const ImportedElement& element) { return IsSound(element, building); });
}

std::string Frame(FrameKind kind, std::string_view payload) {
    std::string frame(Magic);
    PutNumber(frame, AnswerVersion);
    PutNumber(frame, static_cast<std::uint16_t>(kind));
    PutNumber(frame, static_cast<std::uint64_t>(payload.size()));
    PutNumber(frame, Checksum(payload));
    frame += payload;
    return frame;
}

} // namespace

std::string EncodeProgress(double share) {
    Writer writer;
    writer(share);
    return Frame(FrameKind::Progress, writer.bytes);
}

std::string EncodeWorking(std::uint64_t entity) {
    Writer writer;
    writer(entity);
    return Frame(FrameKind::Working, writer.bytes);
}

std::string EncodeRefusal(const ImportProblem& problem) {
    Writer writer;
    writer(problem.code, problem.what, problem.advice);
    return Frame(FrameKind::Refused, writer.bytes);
}

std::string EncodeBuilding(const ImportedBuilding& building) {
    Writer writer;
    writer(building);
    return Frame(FrameKind::Building, writer.bytes);
}

bool AnswerReader::Take(std::string_view piece) {
    if (piece.empty()) return !broken;
    pending += piece;
    broken = broken || building || !TakeFrames();
    return !broken;
}

bool AnswerReader::TakeFrames() {
    std::size_t at = 0;
    const std::string_view all = pending;
    while (all.size() - at >= FrameHeaderSize) {
        const std::string_view header = all.substr(at, FrameHeaderSize);
        const auto length = GetNumber<std::uint64_t>(header.substr(8));
        if (header.substr(0, 4) != Magic || GetNumber<std::uint16_t>(header.substr(4)) != AnswerVersion ||
            length > LongestPayload) {
            return false;
        }
        if (all.size() - at - FrameHeaderSize < length) break;
        const std::string_view payload = all.substr(at + FrameHeaderSize, length);
        if (Checksum(payload) != GetNumber<std::uint64_t>(header.substr(16))) return false;
        if (!TakePayload(static_cast<FrameKind>(GetNumber<std::uint16_t>(header.substr(6))), payload)) return false;
        at += FrameHeaderSize + length;
    }
    pending.erase(0, at);
    return true;
}

bool AnswerReader::TakePayload(FrameKind kind, std::string_view payload) {
    Reader reader(payload);
    switch (kind) {
    case FrameKind::Progress: {
        double share = 0.0;
        reader(share);
        progress = std::clamp(share, progress, 1.0);
        return reader.IsWhole();
    }
    case FrameKind::Working:
        reader(working.emplace());
        if (*working == 0) working.reset();
        return reader.IsWhole();
    case FrameKind::Refused: {
        ImportProblem problem;
        reader(problem.code, problem.what, problem.advice);
        refusal = problem;
        return reader.IsWhole() && problem.code > ImportError::None && problem.code <= ImportError::Cancelled;
    }
    case FrameKind::Building: {
        ImportedBuilding whole;
        reader(whole);
        if (!reader.IsWhole() || !IsSound(whole)) return false;
        building = std::move(whole);
        return true;
    }
    }
    return false;
}

} // namespace workbench::ifc

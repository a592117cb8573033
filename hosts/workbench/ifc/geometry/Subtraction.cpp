#include "workbench/ifc/geometry/Subtraction.h"

namespace workbench::geometry {
namespace {

/// A result may be off from what is possible by this share of the body's volume.
constexpr double Slack = 0.01;

using Operands = std::vector<Operand>;

double VolumeOf(const Operands& operands) {
    double volume = 0.0;
    for (const Operand& operand : operands)
        volume += GetVolumeM3(operand);
    return volume;
}

Box BoxOf(const Operands& operands) {
    Box box;
    for (const Operand& operand : operands)
        box.Include(GetBox(operand.polygons));
    return box;
}

bool HasVolume(const Body& body) {
    return !body.solids.empty() && GetVolumeM3(body) > 0.0;
}

/// A body that is being cut.
class Work {
public:
    Work(Operands operands, const Vector3& origin, const BooleanLimits& limits)
        : operands(std::move(operands)), origin(origin), budget(limits) {}

    CutterUse Take(const Body& cutter) {
        if (hasGivenUp) return CutterUse::GivenUp;
        if (!HasVolume(cutter)) return CutterUse::NotSolid;
        const std::optional<Operands> parts = ToOperands(cutter, origin);
        if (!parts) return GiveUp();
        if (!DoTouch(BoxOf(operands), BoxOf(*parts))) return CutterUse::Apart;
        std::optional<Operands> rest = Without(*parts);
        if (!rest) return GiveUp();
        if (!IsPossible(VolumeOf(*rest), VolumeOf(*parts))) return Deduct(*parts);
        operands = std::move(*rest);
        return CutterUse::Cut;
    }

    /// WHOLE is the body as it was; what of it is no solid stays as it is.
    [[nodiscard]] Body GetBody(const Body& whole) const {
        Body body = whole;
        body.solids = ToBody(operands, origin).solids;
        body.deductedM3 += deductedM3;
        const bool isGone = body.solids.empty() && body.sheetAreaM2 == 0.0;
        if (hasGivenUp || isGone) body.status = hasGivenUp ? BodyStatus::GivenUp : BodyStatus::Empty;
        return body;
    }

private:
    std::optional<Operands> Without(const Operands& parts) {
        Operands rest;
        for (const Operand& operand : operands) {
            Operand left = operand;
            for (const Operand& part : parts) {
                std::optional<Operand> cut = Combine(Operation::Subtract, std::move(left), part, budget);
                if (!cut) return std::nullopt;
                left = std::move(*cut);
            }
            if (!left.polygons.empty()) rest.push_back(std::move(left));
        }
        return rest;
    }

    [[nodiscard]] bool IsPossible(double rest, double cutter) const {
        const double before = VolumeOf(operands);
        return rest <= before * (1.0 + Slack) && rest >= before * (1.0 - Slack) - cutter;
    }

    CutterUse Deduct(const Operands& parts) {
        double common = 0.0;
        for (const Operand& operand : operands) {
            for (const Operand& part : parts) {
                const std::optional<Operand> both = Combine(Operation::Intersect, operand, part, budget);
                if (!both) return GiveUp();
                common += std::clamp(GetVolumeM3(*both), 0.0, std::min(GetVolumeM3(operand), GetVolumeM3(part)));
            }
        }
        deductedM3 += common;
        return CutterUse::Deducted;
    }

    CutterUse GiveUp() {
        hasGivenUp = true;
        return CutterUse::GivenUp;
    }

    Operands operands;
    Vector3 origin;
    Budget budget;
    double deductedM3 = 0.0;
    bool hasGivenUp = false;
};

} // namespace

Subtraction SubtractOpenings(const Body& body, const std::vector<Body>& cutters, const BooleanLimits& limits) {
    if (!HasVolume(body)) return {body, std::vector<CutterUse>(cutters.size(), CutterUse::Apart)};
    const Vector3 origin = GetBox(body).GetCentre();
    std::optional<Operands> operands = ToOperands(body, origin);
    if (!operands) {
        Subtraction given{body, std::vector<CutterUse>(cutters.size(), CutterUse::GivenUp)};
        given.body.status = BodyStatus::GivenUp;
        return given;
    }
    Work work(std::move(*operands), origin, limits);
    Subtraction result;
    for (const Body& cutter : cutters)
        result.uses.push_back(work.Take(cutter));
    result.body = work.GetBody(body);
    return result;
}

} // namespace workbench::geometry

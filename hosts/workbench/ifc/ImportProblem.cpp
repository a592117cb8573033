#include "workbench/ifc/ImportProblem.h"

#include "workbench/ifc/schema/Schema.h"

namespace workbench::ifc {

ImportProblem ProblemOf(const step::Problem& problem) {
    const bool isDamaged = problem.kind == step::ProblemKind::Damaged;
    return {isDamaged ? ImportError::Damaged : ImportError::NotIfc, problem.what, problem.advice};
}

ImportProblem ProblemOf(archive::UnpackProblem problem) {
    if (problem == archive::UnpackProblem::NoSuchFile) {
        return {ImportError::NotIfc, "is a compressed archive without an .ifc file",
                "Give an .ifc file, or an archive with one in it."};
    }
    if (problem == archive::UnpackProblem::SeveralFiles) {
        return {ImportError::NotIfc, "is a compressed archive with several .ifc files",
                "Unpack it and give one of them."};
    }
    return {ImportError::Damaged, "is a compressed archive that cannot be unpacked",
            "Copy it again or export it again from the program that made it."};
}

std::optional<ImportProblem> RefuseSchema(const step::Header& header) {
    if (schema::ChooseSchema(header.schema).schema) return std::nullopt;
    return ImportProblem{ImportError::UnsupportedSchema,
                         header.schema.empty() ? "does not say its schema"
                                               : "is of the schema " + header.schema.substr(0, 40),
                         "Export the model as IFC2X3 or IFC4."};
}

std::optional<ImportProblem> RefuseStart(std::string_view start) {
    if (archive::IsZip(start)) return std::nullopt;
    step::Problem problem;
    const auto header = step::ReadHeader(start, problem);
    return header ? RefuseSchema(*header) : std::optional(ProblemOf(problem));
}

} // namespace workbench::ifc

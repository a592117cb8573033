#include "workbench/ifc/ImportProblem.h"

#include "workbench/ifc/schema/Schema.h"

namespace workbench::ifc {

ImportProblem ProblemOf(const step::Problem& problem) {
    const bool isDamaged = problem.kind == step::ProblemKind::Damaged;
    return {isDamaged ? ImportError::Damaged : ImportError::NotIfc, problem.what, problem.advice};
}

std::optional<ImportProblem> RefuseSchema(const step::Header& header) {
    if (schema::ChooseSchema(header.schema).schema) return std::nullopt;
    return ImportProblem{ImportError::UnsupportedSchema,
                         header.schema.empty() ? "does not say its schema"
                                               : "is of the schema " + header.schema.substr(0, 40),
                         "Export the model as IFC2X3 or IFC4."};
}

std::optional<ImportProblem> RefuseStart(std::string_view start) {
    step::Problem problem;
    const auto header = step::ReadHeader(start, problem);
    return header ? RefuseSchema(*header) : std::optional(ProblemOf(problem));
}

} // namespace workbench::ifc

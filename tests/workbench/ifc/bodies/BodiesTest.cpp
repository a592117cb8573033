// Items of a file against volumes by hand: each line of expected/bodies.txt holds the entities of a case, beside those
// that stand here.
#include "support/Answers.h"
#include "workbench/ifc/bodies/Elements.h"

#include <numbers>

namespace {

using namespace workbench;

/// Of entities with the same number the first counts, so that a case may have its own.
constexpr const char* Usual =
    "#1=IFCCARTESIANPOINT((0.,0.,0.));#2=IFCDIRECTION((0.,0.,1.));#3=IFCDIRECTION((1.,0.,0.));"
    "#4=IFCAXIS2PLACEMENT3D(#1,$,$);#5=IFCLOCALPLACEMENT($,#4);"
    "#10=IFCBUILDINGELEMENTPROXY('e',$,$,$,$,#5,#11,$,$);"
    "#11=IFCPRODUCTDEFINITIONSHAPE($,$,(#12));#12=IFCSHAPEREPRESENTATION($,'Body','x',(#20));"
    "#20=IFCEXTRUDEDAREASOLID(#30,$,#2,1.);";

std::string Describe(const bodies::ElementBody& read) {
    std::ostringstream text;
    text << "V " << GetVolumeM3(read.body) << ' ' << bodies::DescribeMethod(read.body);
    const char* separator = "; ";
    for (const std::string& remark : read.remarks) {
        text << separator << remark;
        separator = " ";
    }
    return text.str();
}

std::string Read(const char* schema, const bodies::Units& units, const std::string& entities) {
    step::Problem problem;
    auto file = step::StepFile::Read("ISO-10303-21;HEADER;FILE_SCHEMA(('" + std::string(schema) + "'));ENDSEC;DATA;" +
                                         entities + Usual + "ENDSEC;END-ISO-10303-21;",
                                     {}, problem);
    if (!file) return problem.what;
    const entities::Model model(std::move(*file), *schema::ChooseSchema(schema).schema);
    bodies::ElementReader reader(model, units);
    std::string first = Describe(reader.Read(model.Find(10)));
    // What is remembered of copies must not change them.
    EXPECT_EQ(Describe(reader.Read(model.Find(10))), first) << entities;
    return first;
}

TEST(Bodies, AreAsCalculatedByHand) {
    const auto in = [](const char* schema, const bodies::Units& units) {
        return [=](const std::string& entities) { return Read(schema, units, entities); };
    };
    support::ExpectAnswers("workbench/ifc/bodies/expected/bodies.txt",
                           {{"[IFC4 in metres]", in("IFC4", {})},
                            {"[IFC4 in millimetres and degrees]", in("IFC4", {0.001, std::numbers::pi / 180.0})},
                            {"[IFC2X3 in metres]", in("IFC2X3", {})}});
}

} // namespace

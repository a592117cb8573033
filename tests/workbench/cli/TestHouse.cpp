#include "TestHouse.h"

#include "../ifc/IfcText.h"

namespace clitest {

std::string HouseText(const std::string& more, const std::string& brick) {
    using ifctest::Quantity;
    std::string body = ifctest::MetricProject();
    body += "#20=IFCWALL('" + std::string(WallId) + "',$,'Wall',$,$,#9,$,$,$);\n" +
            Quantity(200, 20, "VOLUME", "NetVolume", "2.") + Quantity(203, 20, "AREA", "NetSideArea", "10.") +
            "#40=IFCMATERIAL('" + brick + "',$,$);\n#41=IFCMATERIAL('Wood',$,$);\n#42=IFCMATERIAL('Concrete',$,$);\n" +
            "#43=IFCMATERIALLAYER(#40,0.3,$,$,$,$,$);\n#44=IFCMATERIALLAYER(#41,0.1,$,$,$,$,$);\n" +
            "#45=IFCMATERIALLAYERSET((#43,#44),$,$);\n#46=IFCRELASSOCIATESMATERIAL('a',$,$,$,(#20),#45);\n";
    body += "#21=IFCSLAB('" + std::string(SlabId) + "',$,'Slab',$,$,#9,$,$,.FLOOR.);\n" +
            Quantity(210, 21, "VOLUME", "NetVolume", "4.") + Quantity(213, 21, "AREA", "NetArea", "20.") +
            "#47=IFCRELASSOCIATESMATERIAL('b',$,$,$,(#21),#42);\n";
    body += "#22=IFCDOOR('" + std::string(DoorId) +
            "',$,'Haust\\X2\\00FC\\X0\\r',$,$,#9,$,$,2.1,1.,$,$,$);\n"
            "#23=IFCWINDOW('0000000000000000Window',$,'Window A',$,$,#9,$,$,1.2,1.5,$,$,$);\n"
            "#24=IFCWINDOW('000000000000000Window2',$,'Window A',$,$,#9,$,$,1.,1.,$,$,$);\n"
            "#25=IFCBUILDING('0000000000000Building1',$,'B',$,$,#9,$,$,.ELEMENT.,$,$,$);\n" +
            Quantity(220, 25, "AREA", "GrossFloorArea", "100.");
    return ifctest::File("IFC4", body + more);
}

} // namespace clitest

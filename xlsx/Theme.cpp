#include "xlsx/Theme.h"

#include "xlsx/Names.h"

namespace Xlsx {

namespace {

constexpr const char* Colours[][2] = {{"a:dk2", "1F497D"},     {"a:lt2", "EEECE1"},     {"a:accent1", "4F81BD"},
                                      {"a:accent2", "C0504D"}, {"a:accent3", "9BBB59"}, {"a:accent4", "8064A2"},
                                      {"a:accent5", "4BACC6"}, {"a:accent6", "F79646"}, {"a:hlink", "0000FF"},
                                      {"a:folHlink", "800080"}};

constexpr const char* ScriptFonts[][2] = {{"Arab", "Times New Roman"},
                                          {"Hebr", "Times New Roman"},
                                          {"Thai", "Tahoma"},
                                          {"Ethi", "Nyala"},
                                          {"Beng", "Vrinda"},
                                          {"Gujr", "Shruti"},
                                          {"Khmr", "MoolBoran"},
                                          {"Knda", "Tunga"},
                                          {"Guru", "Raavi"},
                                          {"Cans", "Euphemia"},
                                          {"Cher", "Plantagenet Cherokee"},
                                          {"Yiii", "Microsoft Yi Baiti"},
                                          {"Tibt", "Microsoft Himalaya"},
                                          {"Thaa", "MV Boli"},
                                          {"Deva", "Mangal"},
                                          {"Telu", "Gautami"},
                                          {"Taml", "Latha"},
                                          {"Syrc", "Estrangelo Edessa"},
                                          {"Orya", "Kalinga"},
                                          {"Mlym", "Kartika"},
                                          {"Laoo", "DokChampa"},
                                          {"Sinh", "Iskoola Pota"},
                                          {"Mong", "Mongolian Baiti"},
                                          {"Viet", "Times New Roman"},
                                          {"Uigh", "Microsoft Uighur"},
                                          {"Geor", "Sylfaen"}};

// The scheme's colour under two changes, in thousandths of a percent.
struct Tone {
    int position; // along a gradient
    const char* change;
    int amount;
    int saturation;
};

void WriteColours(XmlWriter& xml) {
    xml.Start("a:clrScheme", {{"name", "Office"}});
    xml.Start("a:dk1");
    xml.Leaf("a:sysClr", {{"val", "windowText"}, {"lastClr", "000000"}});
    xml.End();
    xml.Start("a:lt1");
    xml.Leaf("a:sysClr", {{"val", "window"}, {"lastClr", "FFFFFF"}});
    xml.End();
    for (const auto& [name, colour] : Colours) {
        xml.Start(name);
        xml.ValueLeaf("a:srgbClr", colour);
        xml.End();
    }
    xml.End();
}

void WriteFontList(XmlWriter& xml, const char* name) {
    xml.Start(name);
    xml.Leaf("a:latin", {{"typeface", "Cambria"}});
    xml.Leaf("a:ea", {{"typeface", ""}});
    xml.Leaf("a:cs", {{"typeface", ""}});
    for (const auto& [script, typeface] : ScriptFonts) {
        xml.Leaf("a:font", {{"script", script}, {"typeface", typeface}});
    }
    xml.End();
}

void WriteSolid(XmlWriter& xml) {
    xml.Start("a:solidFill");
    xml.ValueLeaf("a:schemeClr", "phClr");
    xml.End();
}

void WriteTone(XmlWriter& xml, const Tone& tone) {
    xml.Start("a:schemeClr", {{"val", "phClr"}});
    xml.ValueLeaf(tone.change, tone.amount);
    xml.ValueLeaf("a:satMod", tone.saturation);
    xml.End();
}

template <std::size_t Count>
void StartGradient(XmlWriter& xml, const Tone (&tones)[Count]) {
    xml.Start("a:gradFill", {{"rotWithShape", 1}});
    xml.Start("a:gsLst");
    for (const Tone& tone : tones) {
        xml.Start("a:gs", {{"pos", tone.position}});
        WriteTone(xml, tone);
        xml.End();
    }
    xml.End();
}

template <std::size_t Count>
void WriteLinearGradient(XmlWriter& xml, const Tone (&tones)[Count], int scaled) {
    StartGradient(xml, tones);
    xml.Leaf("a:lin", {{"ang", 16200000}, {"scaled", scaled}});
    xml.End();
}

template <std::size_t Count>
void WriteCircleGradient(XmlWriter& xml, const Tone (&tones)[Count], int top, int bottom) {
    StartGradient(xml, tones);
    xml.Start("a:path", {{"path", "circle"}});
    xml.Leaf("a:fillToRect", {{"l", 50000}, {"t", top}, {"r", 50000}, {"b", bottom}});
    xml.End();
    xml.End();
}

void WriteFillStyles(XmlWriter& xml) {
    xml.Start("a:fillStyleLst");
    WriteSolid(xml);
    WriteLinearGradient(
        xml, {{0, "a:tint", 50000, 300000}, {35000, "a:tint", 37000, 300000}, {100000, "a:tint", 15000, 350000}}, 1);
    WriteLinearGradient(
        xml, {{0, "a:shade", 51000, 130000}, {80000, "a:shade", 93000, 130000}, {100000, "a:shade", 94000, 135000}}, 0);
    xml.End();
}

void WriteLineStyles(XmlWriter& xml) {
    xml.Start("a:lnStyleLst");
    for (const int width : {9525, 25400, 38100}) {
        xml.Start("a:ln", {{"w", width}, {"cap", "flat"}, {"cmpd", "sng"}, {"algn", "ctr"}});
        if (width == 9525) {
            xml.Start("a:solidFill");
            WriteTone(xml, {0, "a:shade", 95000, 105000});
            xml.End();
        } else {
            WriteSolid(xml);
        }
        xml.ValueLeaf("a:prstDash", "solid");
        xml.End();
    }
    xml.End();
}

void WriteShadow(XmlWriter& xml, int distance, int alpha) {
    xml.Start("a:effectLst");
    xml.Start("a:outerShdw", {{"blurRad", 40000}, {"dist", distance}, {"dir", 5400000}, {"rotWithShape", 0}});
    xml.Start("a:srgbClr", {{"val", "000000"}});
    xml.ValueLeaf("a:alpha", alpha);
    xml.End();
    xml.End();
    xml.End();
}

void WriteScene(XmlWriter& xml) {
    xml.Start("a:scene3d");
    xml.Start("a:camera", {{"prst", "orthographicFront"}});
    xml.Leaf("a:rot", {{"lat", 0}, {"lon", 0}, {"rev", 0}});
    xml.End();
    xml.Start("a:lightRig", {{"rig", "threePt"}, {"dir", "t"}});
    xml.Leaf("a:rot", {{"lat", 0}, {"lon", 0}, {"rev", 1200000}});
    xml.End();
    xml.End();
    xml.Start("a:sp3d");
    xml.Leaf("a:bevelT", {{"w", 63500}, {"h", 25400}});
    xml.End();
}

void WriteEffectStyles(XmlWriter& xml) {
    xml.Start("a:effectStyleLst");
    xml.Start("a:effectStyle");
    WriteShadow(xml, 20000, 38000);
    xml.End();
    xml.Start("a:effectStyle");
    WriteShadow(xml, 23000, 35000);
    xml.End();
    xml.Start("a:effectStyle");
    WriteShadow(xml, 23000, 35000);
    WriteScene(xml);
    xml.End();
    xml.End();
}

void WriteBackgroundStyles(XmlWriter& xml) {
    xml.Start("a:bgFillStyleLst");
    WriteSolid(xml);
    WriteCircleGradient(
        xml, {{0, "a:tint", 40000, 350000}, {40000, "a:tint", 45000, 350000}, {100000, "a:shade", 20000, 255000}},
        -80000, 180000);
    WriteCircleGradient(xml, {{0, "a:tint", 80000, 300000}, {100000, "a:shade", 30000, 200000}}, 50000, 50000);
    xml.End();
}

} // namespace

bool WriteTheme(Package& package) {
    return package.WritePart("/xl/theme/theme1.xml", [](XmlWriter& xml) {
        xml.Declaration();
        xml.Start("a:theme", {{"xmlns:a", Names::Drawing}, {"name", "Office Theme"}});
        xml.Start("a:themeElements");
        WriteColours(xml);
        xml.Start("a:fontScheme", {{"name", "Office"}});
        WriteFontList(xml, "a:majorFont");
        WriteFontList(xml, "a:minorFont"); // the same fonts on purpose
        xml.End();
        xml.Start("a:fmtScheme", {{"name", "Office"}});
        WriteFillStyles(xml);
        WriteLineStyles(xml);
        WriteEffectStyles(xml);
        WriteBackgroundStyles(xml);
        xml.End();
        xml.End();
        xml.Leaf("a:objectDefaults");
        xml.Leaf("a:extraClrSchemeLst");
        xml.End();
    });
}

} // namespace Xlsx

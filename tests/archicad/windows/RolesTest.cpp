// The roles that Windows itself plays, through the tables that the workbench's pass.
#include "archicad/windows/ComPointer.h"
#include "archicad/windows/GdiContext.h"
#include "archicad/windows/GdiFont.h"
#include "archicad/windows/JpegFile.h"
#include "archicad/windows/Texts.h"
#include "archicad/windows/XmlLiteReader.h"
#include "support/DrawingCases.h"
#include "support/TextCases.h"
#include "support/XmlCases.h"

#include <objbase.h>
#include <wincodec.h>

namespace {

TEST(WindowsTexts, Numbers) {
    support::ExpectTwoDecimals(archicad::WriteTwoDecimals);
}

TEST(WindowsTexts, Times) {
    support::ExpectLocalTime(archicad::WriteLocalTime);
}

TEST(WindowsTexts, LowerCase) {
    support::ExpectLowerCase(archicad::ToLowerCase);
}

TEST(WindowsXml, WholeDocumentsAreTaken) {
    archicad::XmlLiteReading reading;
    support::ExpectWholeDocuments(reading);
}

TEST(WindowsXml, AnythingElseIsNothing) {
    archicad::XmlLiteReading reading;
    support::ExpectRefusedDocuments(reading);
}

TEST(WindowsXml, MovesFromElementToElement) {
    archicad::XmlLiteReading reading;
    support::ExpectMovesInDocuments(reading);
}

TEST(WindowsXml, DeepDocumentsAndEntitiesThatGrow) {
    archicad::XmlLiteReading reading;
    support::ExpectDeepAndGrowingDocuments(reading);
}

TEST(WindowsXml, LargeDocumentsStayWithinTheLimit) {
    archicad::XmlLiteReading reading;
    support::ExpectLimitOfDocuments(reading);
}

TEST(WindowsXml, DamagedDocuments) {
    archicad::XmlLiteReading reading;
    support::ExpectDamagedDocuments(reading);
}

TEST(WindowsDrawing, Shapes) {
    support::ExpectShapes<archicad::GdiContext>();
}

TEST(WindowsDrawing, Texts) {
    archicad::GdiFont font;
    support::ExpectTexts<archicad::GdiContext>(font);
}

TEST(WindowsDrawing, Measuring) {
    archicad::GdiFont font;
    support::ExpectMeasuring(font);
}

/// As the system's decoder reads a picture.
host::Colour ReadPixel(const std::string& path, int x, int y) {
    archicad::ComPointer<IWICImagingFactory> factory;
    archicad::ComPointer<IWICBitmapDecoder> decoder;
    archicad::ComPointer<IWICBitmapFrameDecode> frame;
    archicad::ComPointer<IWICBitmapSource> converted;
    BYTE bytes[3] = {};
    const WICRect pixel{x, y, 1, 1};
    EXPECT_TRUE(SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                           IID_IWICImagingFactory, reinterpret_cast<void**>(factory.Receive()))) &&
                SUCCEEDED(factory->CreateDecoderFromFilename(std::filesystem::path(path).c_str(), nullptr, GENERIC_READ,
                                                             WICDecodeMetadataCacheOnDemand, decoder.Receive())) &&
                SUCCEEDED(decoder->GetFrame(0, frame.Receive())) &&
                SUCCEEDED(WICConvertBitmapSource(GUID_WICPixelFormat24bppRGB, frame.Get(), converted.Receive())) &&
                SUCCEEDED(converted->CopyPixels(&pixel, sizeof bytes, sizeof bytes, bytes)));
    return {bytes[0], bytes[1], bytes[2]};
}

TEST(WindowsDrawing, JpegFiles) {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    support::ExpectJpegFiles([](auto&&... arguments) { return archicad::WriteJpeg(arguments...) == host::NoError; },
                             ReadPixel);
    CoUninitialize();
}

} // namespace

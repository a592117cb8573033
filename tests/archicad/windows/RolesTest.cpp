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

TEST(WindowsRoles, Texts) {
    support::ExpectTwoDecimals(archicad::WriteTwoDecimals);
    support::ExpectLocalTime(archicad::WriteLocalTime);
    support::ExpectLowerCase(archicad::ToLowerCase);
}

TEST(WindowsRoles, Xml) {
    archicad::XmlLiteReading reading;
    support::ExpectXmlReading(reading);
}

TEST(WindowsRoles, Drawing) {
    archicad::GdiFont font;
    support::ExpectDrawing<archicad::GdiContext>(font);
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

TEST(WindowsRoles, JpegFiles) {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    support::ExpectJpegFiles([](auto&&... arguments) { return archicad::WriteJpeg(arguments...) == host::NoError; },
                             ReadPixel);
    CoUninitialize();
    constexpr int TooLarge = 1'000'000;
    EXPECT_EQ(archicad::WriteJpeg("large.jpg", TooLarge, TooLarge, 1, [](host::NativeContext&) {}),
              host::Errors::OutOfMemory);
}

} // namespace

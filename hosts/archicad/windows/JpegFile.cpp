#include "archicad/windows/JpegFile.h"

#include "archicad/windows/ComPointer.h"
#include "archicad/windows/GdiContext.h"
#include "archicad/windows/WideText.h"

#include <objbase.h>
#include <wincodec.h>

#include <vector>

namespace archicad {

namespace {

constexpr double ScreenDpi = 96.0;
constexpr UINT PixelBytes = 3;

/// The thread may have been made ready by somebody else, and in another way; that serves as well.
class ComSession {
public:
    ComSession() : isOurs(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComSession() {
        if (isOurs) CoUninitialize();
    }
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

private:
    bool isOurs;
};

/// Blue, green, red; rows from the top without gaps.
std::vector<BYTE> TakePixels(const GdiContext& context) {
    std::vector<BYTE> bytes;
    bytes.reserve(static_cast<std::size_t>(context.GetWidth()) * static_cast<std::size_t>(context.GetHeight()) *
                  PixelBytes);
    for (int y = 0; y < context.GetHeight(); ++y)
        for (int x = 0; x < context.GetWidth(); ++x) {
            const host::Colour colour = context.GetPixel(x, y);
            bytes.insert(bytes.end(), {colour.blue, colour.green, colour.red});
        }
    return bytes;
}

bool Encode(const std::wstring& path, const GdiContext& context, double scale) {
    ComPointer<IWICImagingFactory> factory;
    ComPointer<IWICStream> stream;
    ComPointer<IWICBitmapEncoder> encoder;
    ComPointer<IWICBitmapFrameEncode> frame;
    const auto width = static_cast<UINT>(context.GetWidth()), height = static_cast<UINT>(context.GetHeight());
    std::vector<BYTE> bytes = TakePixels(context);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                      reinterpret_cast<void**>(factory.Receive()))) &&
           SUCCEEDED(factory->CreateStream(stream.Receive())) &&
           SUCCEEDED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
           SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatJpeg, nullptr, encoder.Receive())) &&
           SUCCEEDED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) &&
           SUCCEEDED(encoder->CreateNewFrame(frame.Receive(), nullptr)) && SUCCEEDED(frame->Initialize(nullptr)) &&
           SUCCEEDED(frame->SetSize(width, height)) &&
           SUCCEEDED(frame->SetResolution(ScreenDpi * scale, ScreenDpi * scale)) &&
           SUCCEEDED(frame->SetPixelFormat(&format)) && IsEqualGUID(format, GUID_WICPixelFormat24bppBGR) != 0 &&
           SUCCEEDED(frame->WritePixels(height, width * PixelBytes, static_cast<UINT>(bytes.size()), bytes.data())) &&
           SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}

} // namespace

host::ErrorCode WriteJpeg(const std::string& path, int width, int height, double scale,
                          const std::function<void(host::NativeContext&)>& draw) {
    GdiContext context(width, height, scale);
    draw(context);
    const ComSession session;
    const std::wstring file = WideFromUtf8(path);
    if (Encode(file, context, scale)) return host::NoError;
    DeleteFileW(file.c_str()); // it may not have come to be
    return host::Errors::General;
}

} // namespace archicad

#include "frame/picture.h"

#include <initguid.h>
#include <objbase.h>
#include <wincodec.h>

namespace frame {

namespace {

// Holds a COM interface and lets it go.
template <class T>
class ComHolder {
  public:
    ComHolder() = default;
    ~ComHolder() {
        if (m_object != nullptr) m_object->Release();
    }
    ComHolder(const ComHolder&) = delete;
    ComHolder& operator=(const ComHolder&) = delete;
    T** Receive() { return &m_object; }
    T* operator->() const { return m_object; }
    T* Get() const { return m_object; }

  private:
    T* m_object = nullptr;
};

bool WriteFrame(IWICImagingFactory& factory, IWICBitmapEncoder& encoder, const Picture& picture) {
    ComHolder<IWICBitmapFrameEncode> image;
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    ComHolder<IWICBitmap> source;
    auto* bytes = reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(picture.pixels.data()));
    const UINT stride = static_cast<UINT>(picture.width) * 4;
    return SUCCEEDED(encoder.CreateNewFrame(image.Receive(), nullptr)) &&
           SUCCEEDED(image->Initialize(nullptr)) &&
           SUCCEEDED(image->SetSize(static_cast<UINT>(picture.width), static_cast<UINT>(picture.height))) &&
           SUCCEEDED(image->SetPixelFormat(&format)) &&
           SUCCEEDED(factory.CreateBitmapFromMemory(
               static_cast<UINT>(picture.width), static_cast<UINT>(picture.height),
               GUID_WICPixelFormat32bppBGR, stride, stride * static_cast<UINT>(picture.height), bytes,
               source.Receive())) &&
           SUCCEEDED(image->WriteSource(source.Get(), nullptr)) && SUCCEEDED(image->Commit()) &&
           SUCCEEDED(encoder.Commit());
}

}  // namespace

Picture TakePicture(const RECT& rect) {
    Picture picture;
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    if (width <= 0 || height <= 0) return picture;

    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap == nullptr) return picture;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    if (BitBlt(memory, 0, 0, width, height, screen, rect.left, rect.top, SRCCOPY)) {
        GdiFlush();
        const auto* pixels = static_cast<const std::uint32_t*>(bits);
        picture.width = width;
        picture.height = height;
        picture.pixels.assign(pixels,
                              pixels + static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    }
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    DeleteObject(bitmap);
    return picture;
}

bool SavePng(const Picture& picture, const std::wstring& path) {
    if (picture.pixels.empty()) return false;
    ComHolder<IWICImagingFactory> factory;
    ComHolder<IWICStream> stream;
    ComHolder<IWICBitmapEncoder> encoder;
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IWICImagingFactory, reinterpret_cast<void**>(factory.Receive()))) &&
           SUCCEEDED(factory->CreateStream(stream.Receive())) &&
           SUCCEEDED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
           SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Receive())) &&
           SUCCEEDED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) &&
           WriteFrame(*factory.Get(), *encoder.Get(), picture);
}

}  // namespace frame

#include "controls/thumbnail_control.h"

#include <algorithm>

#include "controls/server.h"
#include "controls/thumbnail_ids.h"
#include "controls/thumbnail_picture.h"

namespace controls {

namespace {

constexpr wchar_t kWindowClass[] = L"DwgThumbnailControl";
constexpr wchar_t kNoPreview[] = L"No preview";
constexpr int kLargestSide = 2048;  // pixels; a larger control shows a picture of this size in its corner

}  // namespace

ThumbnailControl::ThumbnailControl() : ComControl(kThumbnailClassId, kThumbnailDispatchId, IID_NULL) {}

ThumbnailControl::~ThumbnailControl() {
    const HWND window = m_window;
    m_window = nullptr;
    if (window) DestroyWindow(window);
    if (m_picture) DeleteObject(m_picture);
}

HWND ThumbnailControl::CreateControlWindow(HWND parent, const RECT& position) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetServerInstance();
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExW(
        &windowClass);  // fails for the second control of the process, which finds the first one's class
    return CreateWindowExW(WS_EX_CLIENTEDGE, kWindowClass, L"", WS_CHILD | WS_VISIBLE, position.left,
                           position.top, position.right - position.left, position.bottom - position.top,
                           parent, nullptr, GetServerInstance(), this);
}

HRESULT ThumbnailControl::InvokeMember(DISPID id, WORD flags, const std::vector<VARIANT*>& arguments,
                                       VARIANT* result) {
    if (id != kThumbnailFile && id != kThumbnailOption && id != DISPID_BACKCOLOR)
        return DISP_E_MEMBERNOTFOUND;
    const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    if (arguments.size() != (put ? 1u : 0u)) return DISP_E_BADPARAMCOUNT;
    if (id == kThumbnailFile) {
        if (!put) return SetResult(result, m_path), S_OK;
        std::wstring path;
        const HRESULT hr = ToText(arguments[0], path);
        if (hr == S_OK) Show(path);
        return hr;
    }
    LONG& number = id == kThumbnailOption ? m_option : m_backColor;
    if (!put) return SetResult(result, number), S_OK;
    const HRESULT hr = ToLong(arguments[0], number);
    if (hr == S_OK) Redraw();
    return hr;
}

// The same name again reads the file again: it may have been replaced.
void ThumbnailControl::Show(const std::wstring& path) {
    m_path = path;
    Redraw();
}

void ThumbnailControl::Redraw() {
    if (m_picture) DeleteObject(m_picture);
    m_picture = nullptr;
    if (m_window) InvalidateRect(m_window, nullptr, FALSE);
}

void ThumbnailControl::Paint(HDC dc) {
    RECT client;
    GetClientRect(m_window, &client);
    const int width = std::min(static_cast<int>(client.right), kLargestSide),
              height = std::min(static_cast<int>(client.bottom), kLargestSide);
    if (width <= 0 || height <= 0) return;
    COLORREF back = RGB(255, 255, 255);
    OleTranslateColor(static_cast<OLE_COLOR>(m_backColor), nullptr, &back);
    const HDC memory = CreateCompatibleDC(dc);
    if (!m_picture || m_pictureSize.cx != width || m_pictureSize.cy != height) {
        if (m_picture) DeleteObject(m_picture);
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pixels = nullptr;
        m_picture = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
        m_pictureSize = {width, height};
        const HGDIOBJ old = SelectObject(memory, m_picture);
        if (m_picture &&
            !DrawThumbnail(m_path, memory, static_cast<std::uint32_t*>(pixels), width, height, back) &&
            !m_path.empty()) {
            RECT rect = {0, 0, width, height};
            SetBkMode(memory, TRANSPARENT);
            SelectObject(memory, GetStockObject(DEFAULT_GUI_FONT));
            DrawTextW(memory, kNoPreview, -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
        }
        SelectObject(memory, old);
    }
    const HGDIOBJ old = SelectObject(memory, m_picture);
    BitBlt(dc, 0, 0, width, height, memory, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
}

LRESULT CALLBACK ThumbnailControl::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        auto* created = static_cast<ThumbnailControl*>(create->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
        created->m_window = window;
    }
    auto* self = reinterpret_cast<ThumbnailControl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    switch (message) {
        case WM_NCDESTROY:
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            self->m_window = nullptr;
            break;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            const HDC dc = BeginPaint(window, &paint);
            self->Paint(dc);
            EndPaint(window, &paint);
            return 0;
        }
        case WM_PRINTCLIENT:
            self->Paint(reinterpret_cast<HDC>(wParam));
            return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace controls

#include "control_fixture.h"

#include <algorithm>

namespace control_test {

namespace {

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path).substr(0, std::wstring(path).find_last_of(L'\\') + 1);
}

}  // namespace

ServedClass::ServedClass(const wchar_t* file, REFCLSID classId) {
    OleInitialize(nullptr);
    m_library = LoadLibraryW((ProgramFolder() + file).c_str());
    EXPECT_NE(m_library, nullptr);
    if (!m_library) return;
    using GetClass = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto getClass =
        reinterpret_cast<GetClass>(reinterpret_cast<void*>(GetProcAddress(m_library, "DllGetClassObject")));
    IUnknown* factory = nullptr;
    EXPECT_EQ(getClass(classId, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    if (!factory) return;
    EXPECT_EQ(CoRegisterClassObject(classId, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie),
              S_OK);
    factory->Release();
}

ServedClass::~ServedClass() {
    if (m_cookie) CoRevokeClassObject(m_cookie);
    if (m_library) {
        using CanUnload = HRESULT(WINAPI*)();
        const auto canUnload = reinterpret_cast<CanUnload>(
            reinterpret_cast<void*>(GetProcAddress(m_library, "DllCanUnloadNow")));
        EXPECT_EQ(canUnload(), S_OK) << "a control is still held by somebody";
        FreeLibrary(m_library);
    }
    OleUninitialize();
}

PaintedPicture::PaintedPicture(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    m_width = client.right;
    m_height = client.bottom;
    m_pixels.resize(static_cast<size_t>(m_width) * static_cast<size_t>(m_height));
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = m_width;
    info.bmiHeader.biHeight = -m_height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ old = SelectObject(dc, bitmap);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    GdiFlush();
    const auto* pixel = static_cast<const RGBQUAD*>(bits);
    for (COLORREF& color : m_pixels) {
        color = RGB(pixel->rgbRed, pixel->rgbGreen, pixel->rgbBlue);
        ++pixel;
    }
    SelectObject(dc, old);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

size_t PaintedPicture::Count(COLORREF color) const {
    return static_cast<size_t>(std::count(m_pixels.begin(), m_pixels.end(), color));
}

size_t PaintedPicture::DifferencesFrom(const PaintedPicture& other, const RECT& in) const {
    EXPECT_EQ(m_width, other.m_width);
    EXPECT_EQ(m_height, other.m_height);
    size_t count = 0;
    for (int y = std::max(0L, in.top); y < std::min<LONG>(m_height, in.bottom); ++y)
        for (int x = std::max(0L, in.left); x < std::min<LONG>(m_width, in.right); ++x)
            if (At(x, y) != other.At(x, y)) ++count;
    return count;
}

size_t PaintedPicture::DifferencesFrom(const PaintedPicture& other) const {
    return DifferencesFrom(other, {0, 0, m_width, m_height});
}

BEGIN_EVENTSINK_MAP(ControlWindow, CWnd)
ON_EVENT(ControlWindow, kControlId, 1, &ControlWindow::OnPicked, VTS_I2 VTS_BSTR)
END_EVENTSINK_MAP()

ControlWindow::ControlWindow() {
    CreateEx(0, nullptr, L"Controls", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(40, 40, 640, 640), nullptr, 0);
    SetForegroundWindow();
}

ControlWindow::~ControlWindow() {
    m_control.DestroyWindow();
    DestroyWindow();
    windows::PumpWaiting();
}

bool ControlWindow::Make(REFCLSID classId, const CRect& place) {
    return m_control.CreateControl(classId, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, place, this,
                                   kControlId) != FALSE;
}

void ControlWindow::OnPicked(short nId, LPCTSTR lpszText) {
    m_picked.emplace_back(nId, lpszText ? lpszText : L"(null)");
    if (m_onPicked) m_onPicked();
}

}  // namespace control_test

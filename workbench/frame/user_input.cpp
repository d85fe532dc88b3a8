#include "frame/user_input.h"

#include <algorithm>
#include <array>

namespace frame {

namespace {

struct NamedKey {
    const wchar_t* name;
    WORD key;
};

constexpr std::array<NamedKey, 18> kNamedKeys = {{{L"Enter", VK_RETURN},
                                                  {L"Escape", VK_ESCAPE},
                                                  {L"Tab", VK_TAB},
                                                  {L"Space", VK_SPACE},
                                                  {L"Backspace", VK_BACK},
                                                  {L"Delete", VK_DELETE},
                                                  {L"Up", VK_UP},
                                                  {L"Down", VK_DOWN},
                                                  {L"Left", VK_LEFT},
                                                  {L"Right", VK_RIGHT},
                                                  {L"Home", VK_HOME},
                                                  {L"End", VK_END},
                                                  {L"PageUp", VK_PRIOR},
                                                  {L"PageDown", VK_NEXT},
                                                  {L"Ctrl", VK_CONTROL},
                                                  {L"Shift", VK_SHIFT},
                                                  {L"Alt", VK_MENU},
                                                  {L"Menu", VK_APPS}}};

WORD KeyOf(const std::wstring& name) {
    for (const NamedKey& known : kNamedKeys) {
        if (name == known.name) return known.key;
    }
    if (name.size() == 1 && ((name[0] >= L'A' && name[0] <= L'Z') || (name[0] >= L'0' && name[0] <= L'9')))
        return static_cast<WORD>(name[0]);
    if (name.size() >= 2 && name[0] == L'F') {
        const int number = _wtoi(name.c_str() + 1);
        if (number >= 1 && number <= 12) return static_cast<WORD>(VK_F1 + number - 1);
    }
    return 0;
}

INPUT KeyInput(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    return input;
}

// Where a coordinate lies on the scale of absolute mouse positions: the middle of its pixel.
LONG OnScale(LONG coordinate, int origin, int extent) {
    return ((coordinate - origin) * 65536 + 32768) / std::max(extent, 1);
}

// A button event that takes the pointer along. Movements that are still on their way from the display, of an
// earlier click or of a real mouse, would else press or release the button where they lead.
INPUT ButtonInput(POINT point, DWORD button) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = OnScale(point.x, GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_CXVIRTUALSCREEN));
    input.mi.dy = OnScale(point.y, GetSystemMetrics(SM_YVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN));
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK | button;
    return input;
}

void Send(std::vector<INPUT>& inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

std::optional<std::vector<WORD>> KeysOf(const std::wstring& name) {
    std::vector<WORD> keys;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = name.find(L'+', start);
        const WORD key = KeyOf(name.substr(start, end - start));
        if (key == 0) return std::nullopt;
        keys.push_back(key);
        if (end == std::wstring::npos) return keys;
        start = end + 1;
    }
}

void PressKeys(const std::vector<WORD>& keys) {
    std::vector<INPUT> inputs;
    const auto add = [&](WORD key, DWORD flags) {
        inputs.push_back(KeyInput(key, static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)), flags));
    };
    for (const WORD key : keys)
        add(key, 0);
    std::for_each(keys.rbegin(), keys.rend(), [&](WORD key) { add(key, KEYEVENTF_KEYUP); });
    Send(inputs);
}

void TypeText(const std::wstring& text) {
    std::vector<INPUT> inputs;
    for (const wchar_t c : text) {
        inputs.push_back(KeyInput(0, c, KEYEVENTF_UNICODE));
        inputs.push_back(KeyInput(0, c, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
    }
    if (!inputs.empty()) Send(inputs);
}

bool PutPointer(POINT point) {
    POINT pointer{};
    GetCursorPos(&pointer);
    if (pointer.x == point.x && pointer.y == point.y) return true;
    SetCursorPos(point.x, point.y);
    return false;
}

void ClickScreen(POINT point, MouseButton button, int times) {
    const bool left = button == MouseButton::kLeft;
    std::vector<INPUT> inputs;
    for (int i = 0; i < times; ++i) {
        inputs.push_back(ButtonInput(point, left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN));
        inputs.push_back(ButtonInput(point, left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP));
    }
    Send(inputs);
}

void HoldButton(POINT point) {
    std::vector<INPUT> inputs{ButtonInput(point, MOUSEEVENTF_LEFTDOWN)};
    Send(inputs);
}

void MovePointer(POINT point) {
    SetCursorPos(point.x, point.y);
    std::vector<INPUT> inputs{ButtonInput(point, 0)};
    Send(inputs);
}

void ReleaseButton(POINT point) {
    std::vector<INPUT> inputs{ButtonInput(point, MOUSEEVENTF_LEFTUP)};
    Send(inputs);
}

}  // namespace frame

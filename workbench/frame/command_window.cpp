#include "frame/command_window.h"

#include <algorithm>

#include "frame/ui_colors.h"

namespace frame {

namespace {

constexpr int kInputHeight = 22;
constexpr int kLongestShown = 20000;  // characters; all of it stays in the history
constexpr UINT kShowAppended = WM_APP + 2;
constexpr UINT kHistoryId = 101;
constexpr UINT kInputId = 102;

std::wstring WithCarriageReturns(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t c : text) {
        if (c == L'\r') continue;
        if (c == L'\n') result += L'\r';
        result += c;
    }
    return result;
}

}  // namespace

BEGIN_MESSAGE_MAP(CommandWindow, CWnd)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_SETFOCUS()
ON_MESSAGE(kShowAppended, &CommandWindow::OnShowAppended)
END_MESSAGE_MAP()

CommandWindow::CommandWindow(Events events) : m_events(std::move(events)) {}

bool CommandWindow::CreateIn(CWnd& parent) {
    const CRect anywhere(0, 0, 10, 10);
    if (!Create(AfxRegisterWndClass(0, LoadCursor(nullptr, IDC_ARROW), GetSysColorBrush(COLOR_WINDOW)),
                L"Command line", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, anywhere, &parent,
                0))
        return false;
    m_historyEdit.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                         anywhere, this, kHistoryId);
    m_input.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, anywhere, this, kInputId);
    for (CEdit* edit : {&m_historyEdit, &m_input})
        edit->SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(InterfaceFont()), FALSE);
    m_historyEdit.LimitText(2 * kLongestShown);
    return true;
}

void CommandWindow::Append(const std::wstring& text) {
    m_history += text;
    if (m_appended.empty()) PostMessage(kShowAppended);
    m_appended += text;
}

LRESULT CommandWindow::OnShowAppended(WPARAM, LPARAM) {
    const std::wstring added = WithCarriageReturns(m_appended);
    m_appended.clear();
    const int length = m_historyEdit.GetWindowTextLength();
    if (length + static_cast<int>(added.size()) > kLongestShown) {
        const std::size_t shown = std::min<std::size_t>(m_history.size(), kLongestShown / 2);
        m_historyEdit.SetWindowText(WithCarriageReturns(m_history.substr(m_history.size() - shown)).c_str());
    } else {
        m_historyEdit.SetSel(length, length);
        m_historyEdit.ReplaceSel(added.c_str());
    }
    m_historyEdit.SetSel(kLongestShown, kLongestShown);
    m_historyEdit.SendMessage(WM_VSCROLL, SB_BOTTOM);
    return 0;
}

void CommandWindow::SetPrompt(const std::wstring& prompt) {
    if (prompt == m_prompt) return;
    m_prompt = prompt;
    Place();
    Invalidate();
}

std::wstring CommandWindow::Input() const {
    CString text;
    m_input.GetWindowText(text);
    return std::wstring(text);
}

void CommandWindow::SetInput(const std::wstring& text) {
    m_input.SetWindowText(text.c_str());
    m_input.SetSel(static_cast<int>(text.size()), static_cast<int>(text.size()));
}

void CommandWindow::TakeKey(wchar_t character) {
    m_input.SetFocus();
    if (character >= L' ') {
        m_input.SendMessage(WM_CHAR, character);
    } else if (character != 0) {
        HandleKey(character);
    }
}

BOOL CommandWindow::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->hwnd == m_input.GetSafeHwnd() &&
        HandleKey(message->wParam))
        return TRUE;
    return CWnd::PreTranslateMessage(message);
}

bool CommandWindow::HandleKey(WPARAM key) {
    switch (key) {
        case VK_RETURN: {
            const std::wstring line = Input();
            SetInput(L"");
            if (!line.empty() && (m_entered.empty() || m_entered.back() != line)) m_entered.push_back(line);
            m_recalled = m_entered.size();
            m_events.entered(line);
            return true;
        }
        case VK_ESCAPE:
            SetInput(L"");
            m_events.cancelled();
            return true;
        case VK_UP:
            Recall(-1);
            return true;
        case VK_DOWN:
            Recall(1);
            return true;
        default:
            return false;
    }
}

void CommandWindow::Recall(int step) {
    if (step < 0 && m_recalled == 0) return;
    m_recalled = std::min(m_recalled + static_cast<std::size_t>(step), m_entered.size());
    SetInput(m_recalled < m_entered.size() ? m_entered[m_recalled] : L"");
}

void CommandWindow::OnSize(UINT type, int cx, int cy) {
    CWnd::OnSize(type, cx, cy);
    Place();
}

void CommandWindow::Place() {
    CRect client;
    GetClientRect(&client);
    CClientDC dc(this);
    const HGDIOBJ before = ::SelectObject(dc, InterfaceFont());
    const int promptWidth = dc.GetTextExtent(m_prompt.c_str()).cx + 14;
    ::SelectObject(dc, before);
    const int inputTop = std::max(static_cast<int>(client.bottom) - kInputHeight, 0);
    if (m_historyEdit.GetSafeHwnd() == nullptr || m_input.GetSafeHwnd() == nullptr) return;
    m_historyEdit.MoveWindow(4, 2, std::max(static_cast<int>(client.right) - 4, 0),
                             std::max(inputTop - 4, 0));
    m_input.MoveWindow(promptWidth, inputTop + 3,
                       std::max(static_cast<int>(client.right) - promptWidth - 4, 0), kInputHeight - 4);
}

void CommandWindow::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    const int inputTop = client.bottom - kInputHeight;
    dc.FillSolidRect(CRect(0, inputTop - 1, client.right, inputTop), GetSysColor(COLOR_BTNSHADOW));
    const HGDIOBJ before = ::SelectObject(dc, InterfaceFont());
    dc.SetBkMode(TRANSPARENT);
    CRect prompt(8, inputTop, client.right, client.bottom);
    dc.DrawText(m_prompt.c_str(), prompt, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    ::SelectObject(dc, before);
}

void CommandWindow::OnSetFocus(CWnd*) {
    m_input.SetFocus();
}

}  // namespace frame

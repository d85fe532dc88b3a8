// The command line: what was said above, what is being typed below.
#pragma once

#include <arx_port.h>

#include <afxwin.h>

#include <functional>
#include <string>
#include <vector>

namespace frame {

class ARX_PORT CommandWindow : public CWnd {
  public:
    struct Events {
        std::function<void(const std::wstring&)> entered;  // Enter; the line may be empty
        std::function<void()> cancelled;                   // Escape
    };

    explicit CommandWindow(Events events);
    bool CreateIn(CWnd& parent);

    // Adds to the history. A line ends with "\n"; text without one stays open for what follows. It is seen
    // when the message loop comes round, so that a program that prints much does not wait for the screen.
    void Append(const std::wstring& text);
    // What stands before the input: "Command:" or a command's question.
    void SetPrompt(const std::wstring& prompt);
    std::wstring Input() const;
    void SetInput(const std::wstring& text);
    // The whole history, lines separated by "\n".
    const std::wstring& History() const { return m_history; }

    // Puts the keyboard focus on the input and adds `character` there; 0 adds nothing.
    void TakeKey(wchar_t character);

    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    afx_msg void OnSize(UINT type, int cx, int cy);
    afx_msg void OnPaint();
    afx_msg void OnSetFocus(CWnd* before);
    afx_msg LRESULT OnShowAppended(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

  private:
    bool HandleKey(WPARAM key);
    void Recall(int step);
    void Place();

    Events m_events;
    CEdit m_historyEdit;
    CEdit m_input;
    std::wstring m_history;
    std::wstring m_appended;  // and not shown yet
    std::wstring m_prompt = L"Command:";
    std::vector<std::wstring> m_entered;
    std::size_t m_recalled = 0;  // index in m_entered; its size for the line being typed
};

}  // namespace frame

// All that a session says: in memory, and in a file that grows with it, so that a session that dies leaves
// what it said.
#pragma once

#include <string>

namespace frame {

class Transcript {
  public:
    Transcript() = default;
    ~Transcript();
    Transcript(const Transcript&) = delete;
    Transcript& operator=(const Transcript&) = delete;

    // From here on into this file too, which is made anew, in UTF-8. False if it cannot be made.
    bool WriteTo(const std::wstring& path);
    void Add(const std::wstring& text);
    // On a line of its own.
    void AddLine(const std::wstring& text);
    const std::wstring& Text() const { return m_text; }

  private:
    std::wstring m_text;
    void* m_file = nullptr;  // a handle of the system
};

}  // namespace frame

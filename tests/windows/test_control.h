// An OLE control made by hand, for the tests of the framework's container. It lives in the test program.
//
// Properties and methods: 1 Text (BSTR, or an icon size as I2), 2 Size (short), -514 Enabled (BOOL), method 4
// Load(BSTR) that answers whether the text begins with "good" unless told to take every one, property 10
// Kind(number I2) (I2), property 11 State(name BSTR) (BOOL), method 20 fails with a description, method 21
// fails without one, method 22 Sum(I4, R8, VARIANT) as R8. Events: 1 Picked(I2, BSTR), 2 Plain(), 3
// Flag(BOOL).
#pragma once

#include <windows.h>

#include <ole2.h>

#include <map>
#include <string>
#include <vector>

namespace test_control {

extern const CLSID kClass;
extern const wchar_t kClassText[];  // the same in braces

// What the container did to the control, for the tests to look at. One control lives at a time.
struct Record {
    int alive = 0;          // controls that exist
    int sinks = 0;          // connected event sinks
    bool siteSet = false;   // a client site is set
    bool closed = false;    // Close was called
    bool refuses = false;   // set by a test: activation fails
    bool userMode = false;  // the ambient property when the control was activated
    HWND window = nullptr;
    RECT rect{};
    SIZEL extent{};
    std::wstring text;
    short size = 0;
    bool enabled = true;
    std::map<std::wstring, bool> states;
    bool loadsAll = false;             // set by a test: Load succeeds whatever the text
    std::vector<std::wstring> loaded;  // what Load was called with
    std::vector<short> iconSizes;      // every one that was set
    std::map<short, short> kinds;      // by number, set by a test
    std::vector<std::wstring> asked;   // names whose State was read
    // Every property that was set, as its id with the value's text: L"1 good". Set `takesAll` to have
    // properties of any id and type accepted.
    std::vector<std::wstring> puts;
    bool takesAll = false;
};
Record& Seen();

// Sends an event of the living control. The arguments in their natural order.
HRESULT FirePicked(short id, const wchar_t* text);
HRESULT FirePlain();
HRESULT FireFlag(bool flag);
// Sends event 1 with arguments that cannot be converted, and with too few.
HRESULT FirePickedWithWrongTypes();
HRESULT FirePickedWithTooFew();

// While it lives, the class is registered in this process, or the control under the name of another class.
class Registration {
  public:
    explicit Registration(const CLSID& classId = kClass);
    ~Registration();
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

  private:
    DWORD m_cookie = 0;
};

}  // namespace test_control

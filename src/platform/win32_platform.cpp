#include "platform/win32_platform.h"

#include <objbase.h>
#include <process.h>
#include <shellapi.h>
#include <windows.h>

#include <cstdlib>
#include <ctime>
#include <memory>

#include "platform/ansi_coding.h"
#include "platform/win32_files.h"
#include "platform/win32_registry.h"

namespace platform {

namespace {

constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;
constexpr int kFirstYearOfTm = 1900;

class Win32Environment : public Environment {
  public:
    std::wstring GetVariable(const std::wstring& name) override {
        const DWORD size = GetEnvironmentVariableW(name.c_str(), nullptr, 0);
        if (size == 0) return {};
        std::wstring value(size, L'\0');
        value.resize(GetEnvironmentVariableW(name.c_str(), value.data(), size));
        return value;
    }

    // Asked for by every new ini document, and the same as long as the program runs.
    std::wstring GetProgramArgument() override {
        static const std::wstring argument = ReadProgramArgument();
        return argument;
    }

  private:
    static std::wstring ReadProgramArgument() {
        struct LocalDeleter {
            void operator()(wchar_t** arguments) const { LocalFree(arguments); }
        };
        int count = 0;
        const std::unique_ptr<wchar_t*, LocalDeleter> arguments(
            CommandLineToArgvW(GetCommandLineW(), &count));
        return arguments && count > 0 ? std::wstring(arguments.get()[0]) : std::wstring();
    }
};

class Win32Clock : public Clock {
  public:
    FileTime Now() override {
        FILETIME now{};
        GetSystemTimeAsFileTime(&now);
        return static_cast<FileTime>(static_cast<std::uint64_t>(now.dwHighDateTime) << 32 |
                                     now.dwLowDateTime);
    }

    bool ToLocal(FileTime moment, CalendarTime& local) override {
        const __time64_t seconds = moment / kTicksPerSecond - kSecondsFrom1601To1970;
        std::tm fields{};
        if (moment < 0 || seconds < 0 || _localtime64_s(&fields, &seconds) != 0) return false;
        local = {fields.tm_year + kFirstYearOfTm,
                 fields.tm_mon + 1,
                 fields.tm_mday,
                 fields.tm_hour,
                 fields.tm_min,
                 fields.tm_sec};
        return true;
    }
};

class Win32Guids : public Guids {
  public:
    Guid Create() override {
        GUID created{};
        if (FAILED(CoCreateGuid(&created))) return {};
        Guid guid{static_cast<std::uint32_t>(created.Data1), created.Data2, created.Data3, {}};
        for (size_t i = 0; i < guid.data4.size(); ++i)
            guid.data4[i] = created.Data4[i];
        return guid;
    }
};

class Win32Processes : public Processes {
  public:
    int RunAndWait(const std::wstring& program, const std::vector<std::wstring>& arguments) override {
        std::vector<const wchar_t*> pointers;
        for (const std::wstring& argument : arguments)
            pointers.push_back(argument.c_str());
        pointers.push_back(nullptr);
        return static_cast<int>(_wspawnv(_P_WAIT, program.c_str(), pointers.data()));
    }
};

void* (*g_getHostMainWindow)() = nullptr;

class Win32Boxes : public MessageBoxes {
  public:
    int Show(BoxOwner owner, const std::wstring& text, const std::wstring& caption, unsigned flags) override {
        const bool hasOwner = owner == BoxOwner::kHostMainWindow && g_getHostMainWindow;
        const auto window = static_cast<HWND>(hasOwner ? g_getHostMainWindow() : nullptr);
        return MessageBoxW(window, text.c_str(), caption.c_str(), flags);
    }
};

}  // namespace

Platform& GetWin32Platform() {
    static Win32Files files;
    static Win32Registry registry;
    static Win32Environment environment;
    static Win32Clock clock;
    static Win32Guids guids;
    static Win32Processes processes;
    static Win32Boxes boxes;
    static AnsiCoding text;
    static Platform platform{files, registry, environment, clock, guids, processes, boxes, text};
    return platform;
}

void InstallWin32Platform() {
    Install(&GetWin32Platform());
}

void SetHostMainWindow(void* (*getWindow)()) {
    g_getHostMainWindow = getWindow;
}

}  // namespace platform

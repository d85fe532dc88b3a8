#include "frame/resource_counts.h"

#include <windows.h>

#include <winternl.h>

#include <cstdint>

namespace frame {

namespace {

// The system's table of GDI objects, of which every process has a view: GetGuiResources counts nothing under
// Wine.
struct GdiEntry {
    void* object;
    WORD owner;  // process id; the lowest bit is a lock
    WORD ownerHigh;
    WORD unique;
    BYTE type;
    BYTE flags;
    void* userData;
};
constexpr std::size_t kGdiTableOffset = 0xF8;  // in the process environment block, 64 bits
constexpr std::size_t kGdiEntries = 16384;

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
    EnumChildWindows(window, CountWindow, count);
    return CountWindow(window, count);
}

// Handles are multiples of four from 4 on; the gaps between those in use are small.
int CountHandles() {
    constexpr std::uintptr_t kLast = 4 * 4096;
    int count = 0;
    DWORD flags = 0;
    for (std::uintptr_t value = 4; value <= kLast; value += 4)
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) ++count;
    return count;
}

std::size_t CountHeapBytes() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

}  // namespace

int CountGdiObjects() {
    const auto* peb = reinterpret_cast<const BYTE*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* table = *reinterpret_cast<const GdiEntry* const*>(peb + kGdiTableOffset);
    const auto process = static_cast<WORD>(GetCurrentProcessId());
    int count = 0;
    for (std::size_t i = 0; i < kGdiEntries; ++i) {
        const bool isMine = table[i].owner == 0 || (table[i].owner & ~1) == (process & ~1);
        if (table[i].object != nullptr && isMine && table[i].type != 0) ++count;
    }
    return count;
}

int CountWindows() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWithChildren, reinterpret_cast<LPARAM>(&count));
    return count;
}

ResourceCounts ResourceCounts::Now() {
    ResourceCounts now;
    now.gdi = CountGdiObjects();
    now.windows = CountWindows();
    now.handles = CountHandles();
    now.memory = CountHeapBytes() / 1024;
    return now;
}

std::wstring ResourceCounts::Text() const {
    return L"gdi " + std::to_wstring(gdi) + L" windows " + std::to_wstring(windows) + L" handles " +
           std::to_wstring(handles) + L" memory " + std::to_wstring(memory);
}

}  // namespace frame

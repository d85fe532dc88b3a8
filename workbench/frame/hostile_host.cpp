#include "frame/hostile_host.h"

#include <accmd.h>
#include <acdocman.h>
#include <adscodes.h>
#include <rxdlinkr.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <utility>

#include "host/host.h"

namespace frame {

namespace {

using Word = std::uint64_t;

constexpr Word kNothing = 0;  // a null pointer, false, no id
constexpr Word kError = static_cast<Word>(RTERROR);
constexpr Word kMinusOne = static_cast<Word>(-1);
constexpr Word kOutOfMemory = Acad::eOutOfMemory;

struct HostCall {
    const char* name;
    const char* symbol;  // as the module imports it; null for the members of an interface
    Word failure;
    DWORD systemError = 0;  // set with the failure
};

constexpr HostCall kCalls[] = {
    {"acedDefun", "_Z9acedDefunPKwi", kError},
    {"acedRegFunc", "_Z11acedRegFuncPFivEi", kError},
    {"acedUndef", "_Z9acedUndefPKwi", kError},
    {"acedGetFunCode", "_Z14acedGetFunCodev", kError},
    {"acedGetArgs", "_Z11acedGetArgsv", kNothing},
    {"acedRetVoid", "_Z11acedRetVoidv", kError},
    {"acedRetT", "_Z8acedRetTv", kError},
    {"acedGetVar", "_Z10acedGetVarPKwP6resbuf", kError},
    {"acedSetVar", "_Z10acedSetVarPKwPK6resbuf", kError},
    {"acedSetEnv", "_Z10acedSetEnvPKwS0_", kError},
    {"acedGetAppName", "_Z14acedGetAppNamev", kNothing},
    {"acedGetAcadDwgView", "_Z18acedGetAcadDwgViewv", kNothing},
    {"acutPrintf", "_Z10acutPrintfPKwz", kError},
    {"acutBuildList", "_Z13acutBuildListiz", kNothing},
    {"acdbRegApp", "_Z10acdbRegAppPKw", kError},
    {"acdbOpenAcDbObject", "_Z18acdbOpenAcDbObjectRP10AcDbObject12AcDbObjectIdN4AcDb8OpenModeEb",
     kOutOfMemory},
    {"acdbOpenAcDbObjectOfClass",
     "_Z25acdbOpenAcDbObjectOfClassRP10AcDbObject12AcDbObjectIdN4AcDb8OpenModeEbPK9AcRxClass", kOutOfMemory},
    {"AcDbDatabase::readDwgFile", "_ZN12AcDbDatabase11readDwgFileEPKwNS_8OpenModeEbS1_", kOutOfMemory},
    {"AcDbObject::upgradeOpen", "_ZN10AcDbObject11upgradeOpenEv", kOutOfMemory},
    {"AcDbObject::setXData", "_ZN10AcDbObject8setXDataEPK6resbuf", kOutOfMemory},
    {"AcDbObject::xData", "_ZNK10AcDbObject5xDataEPKw", kNothing},
    {"AcDbSymbolTable::getAt", "_ZNK15AcDbSymbolTable5getAtEPKwR12AcDbObjectIdb", kOutOfMemory},
    {"AcDbSymbolTableRecord::getName", "_ZNK21AcDbSymbolTableRecord7getNameERPw", kOutOfMemory},
    {"AcDbBlockTableRecord::newIterator",
     "_ZNK20AcDbBlockTableRecord11newIteratorERP28AcDbBlockTableRecordIteratorbb", kOutOfMemory},
    {"AcDbBlockTableRecordIterator::getEntityId",
     "_ZNK28AcDbBlockTableRecordIterator11getEntityIdER12AcDbObjectId", kOutOfMemory},
    {"AcDbBlockReference::attributeIterator", "_ZNK18AcDbBlockReference17attributeIteratorEv", kNothing},
    {"AcDbAttribute::tag", "_ZNK13AcDbAttribute3tagEv", kNothing},
    {"AcDbText::textString", "_ZNK8AcDbText10textStringEv", kNothing},
    {"AcDbDictionary::getAt", "_ZNK14AcDbDictionary5getAtEPKwR12AcDbObjectId", kOutOfMemory},
    {"AcDbDictionary::setAt", "_ZN14AcDbDictionary5setAtEPKwP10AcDbObjectR12AcDbObjectId", kOutOfMemory},
    {"AcDbXrecord::rbChain", "_ZNK11AcDbXrecord7rbChainEPP6resbufP12AcDbDatabase", kOutOfMemory},
    {"AcDbAttribute::cast", "_ZN13AcDbAttribute4castEPK10AcRxObject", kNothing},
    {"AcDbBlockReference::cast", "_ZN18AcDbBlockReference4castEPK10AcRxObject", kNothing},
    {"AcDbBlockTable::cast", "_ZN14AcDbBlockTable4castEPK10AcRxObject", kNothing},
    {"AcDbBlockTableRecord::cast", "_ZN20AcDbBlockTableRecord4castEPK10AcRxObject", kNothing},
    {"AcDbDictionary::cast", "_ZN14AcDbDictionary4castEPK10AcRxObject", kNothing},
    {"AcDbXrecord::cast", "_ZN11AcDbXrecord4castEPK10AcRxObject", kNothing},
    {"CAdUiPaletteSet::Create", "_ZN15CAdUiPaletteSet6CreateEPKwmRK7tagRECTP4CWndm", kNothing},
    {"CAdUiPaletteSet::AddPalette", "_ZN15CAdUiPaletteSet10AddPaletteEP12CAdUiPalette", kMinusOne},
    {"CAdUiPaletteSet::GetPalette", "_ZN15CAdUiPaletteSet10GetPaletteEi", kNothing},
    {"CAdUiPalette::GetPaletteSet", "_ZN12CAdUiPalette13GetPaletteSetEv", kNothing},
    {"CAdUiPalette::Create", "_ZN12CAdUiPalette6CreateEmPKwP15CAdUiPaletteSetm", kNothing},
    {"CAdUiDialog::Create", "_ZN11CAdUiDialog6CreateEjP4CWnd", kNothing},
    {"CAdUiDialog::DoModal", "_ZN11CAdUiDialog7DoModalEv", kMinusOne},
    // What a full disk, a share that has gone and a registry without rights look like from the module.
    {"WriteFile", "WriteFile", kNothing, ERROR_DISK_FULL},
    {"CreateFileW", "CreateFileW", kMinusOne, ERROR_BAD_NETPATH},
    {"FindFirstFileW", "FindFirstFileW", kMinusOne, ERROR_BAD_NETPATH},
    {"GetFileAttributesW", "GetFileAttributesW", kMinusOne, ERROR_BAD_NETPATH},
    {"GetFileAttributesExW", "GetFileAttributesExW", kNothing, ERROR_BAD_NETPATH},
    {"ReadFile", "ReadFile", kNothing, ERROR_UNEXP_NET_ERR},
    {"SetFileAttributesW", "SetFileAttributesW", kNothing, ERROR_BAD_NETPATH},
    {"RemoveDirectoryW", "RemoveDirectoryW", kNothing, ERROR_BAD_NETPATH},
    {"MoveFileW", "MoveFileW", kNothing, ERROR_BAD_NETPATH},
    {"DeleteFileW", "DeleteFileW", kNothing, ERROR_BAD_NETPATH},
    {"CopyFileW", "CopyFileW", kNothing, ERROR_BAD_NETPATH},
    {"CreateDirectoryW", "CreateDirectoryW", kNothing, ERROR_BAD_NETPATH},
    {"RegOpenKeyExW", "RegOpenKeyExW", ERROR_ACCESS_DENIED},
    {"RegCreateKeyExW", "RegCreateKeyExW", ERROR_ACCESS_DENIED},
    {"RegSetValueExW", "RegSetValueExW", ERROR_ACCESS_DENIED},
    {"RegQueryValueExW", "RegQueryValueExW", ERROR_FILE_NOT_FOUND},
    {"IUnknown::QueryInterface", nullptr, kNothing},  // these three fail with codes of their own
    {"IDispatch::Invoke", nullptr, kNothing},
    {"IDispatch::GetIDsOfNames", nullptr, kNothing},
    {"AcApDocManager::curDocument", nullptr, kNothing},
    {"AcApDocManager::document", nullptr, kNothing},
    {"AcApDocManager::documentCount", nullptr, kNothing},
    {"AcApDocManager::newAcApDocumentIterator", nullptr, kNothing},
    {"AcApDocManager::lockDocument", nullptr, Acad::eLockConflict},
    {"AcApDocManager::sendStringToExecute", nullptr, kOutOfMemory},
    {"AcApDocManager::appContextOpenDocument", nullptr, kOutOfMemory},
    {"AcApDocManager::appContextCloseDocument", nullptr, kOutOfMemory},
    {"AcApDocManager::closeDocument", nullptr, kOutOfMemory},
    {"AcEdCommandStack::addCommand", nullptr, kOutOfMemory},
    {"AcEdCommandStack::removeGroup", nullptr, kOutOfMemory},
    {"AcRxDynamicLinker::lockApplication", nullptr, kNothing},
    {"AcRxDynamicLinker::registerAppMDIAware", nullptr, kNothing},
};
constexpr std::size_t kCallCount = std::size(kCalls);

HostileHost* g_host = nullptr;
std::array<void*, kCallCount> g_originals{};

std::size_t IndexOf(const char* name) {
    const auto* found = std::find_if(std::begin(kCalls), std::end(kCalls), [name](const HostCall& call) {
        return std::strcmp(call.name, name) == 0;
    });
    return static_cast<std::size_t>(found - std::begin(kCalls));
}

// The place of a virtual member in the table of its class.
template <class Member>
std::size_t SlotOf(Member member) {
    std::uintptr_t parts[2] = {};
    static_assert(sizeof member == sizeof parts);
    std::memcpy(parts, &member, sizeof parts);
    return (parts[0] - 1) / sizeof(void*);
}

bool IsNumber(const std::wstring& text) {
    return !text.empty() && text.size() < 10 &&
           std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t c : text)
        narrow += c < 128 ? static_cast<char>(c) : '?';
    return narrow;
}

void Replace(void** place, void* function) {
    DWORD before = 0;
    VirtualProtect(place, sizeof(void*), PAGE_READWRITE, &before);
    *place = function;
    VirtualProtect(place, sizeof(void*), before, &before);
}

}  // namespace

// What the module calls in place of the host. All arguments and results of these calls are integers and
// pointers, so one form passes them on; it passes on more than there are, which does no harm.
struct HostileThunks {
    using Function = Word (*)(Word, Word, Word, Word, Word, Word, Word, Word, Word, Word, Word, Word, Word,
                              Word, Word, Word, Word, Word, Word, Word, Word, Word, Word, Word);

    template <std::size_t Index>
    static Word Call(Word a, Word b, Word c, Word d, Word e, Word f, Word g, Word h, Word i, Word j, Word k,
                     Word l, Word m, Word n, Word o, Word p, Word q, Word r, Word s, Word t, Word u, Word v,
                     Word w, Word x) {
        if (HostileHost::DecideCall(Index, __builtin_return_address(0))) {
            if (kCalls[Index].systemError != 0) SetLastError(kCalls[Index].systemError);
            return kCalls[Index].failure;
        }
        return reinterpret_cast<Function>(g_originals[Index])(a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p,
                                                              q, r, s, t, u, v, w, x);
    }

    template <std::size_t... Index>
    static constexpr std::array<Function, sizeof...(Index)> Make(std::index_sequence<Index...>) {
        return {&Call<Index>...};
    }
    static void* At(std::size_t index) {
        static const auto thunks = Make(std::make_index_sequence<kCallCount>());
        return reinterpret_cast<void*>(thunks[index]);
    }
};

HostileHost::HostileHost(const std::wstring& plan)
    : m_failingName(IndexOf(Narrow(plan).c_str())), m_counts(kCallCount) {
    if (IsNumber(plan)) m_failingCall = std::wcstol(plan.c_str(), nullptr, 10);
    g_host = this;
}

HostileHost::~HostileHost() {
    for (const Slot& slot : m_interfaceSlots)
        Replace(slot.place, slot.original);
    g_host = nullptr;
}

HostileHost* HostileHost::Current() {
    return g_host;
}

bool HostileHost::IsPlan(const std::wstring& plan) {
    return plan == L"count" || IsNumber(plan) || IndexOf(Narrow(plan).c_str()) < kCallCount;
}

std::vector<std::string> HostileHost::Names() {
    std::vector<std::string> names;
    for (const HostCall& call : kCalls)
        names.emplace_back(call.name);
    return names;
}

void HostileHost::Watch(HMODULE module) {
    m_begin = reinterpret_cast<const char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(m_begin);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(m_begin + dos->e_lfanew);
    m_end = m_begin + headers->OptionalHeader.SizeOfImage;
    WatchImports();
    WatchInterfaces();
}

void HostileHost::WatchImports() {
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(m_begin);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(m_begin + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(m_begin + directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(m_begin + library->OriginalFirstThunk);
        const auto* place = reinterpret_cast<const IMAGE_THUNK_DATA*>(m_begin + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(m_begin + name->u1.AddressOfData);
            const auto* symbol = reinterpret_cast<const char*>(import->Name);
            for (std::size_t i = 0; i < kCallCount; ++i) {
                if (kCalls[i].symbol == nullptr || std::strcmp(kCalls[i].symbol, symbol) != 0) continue;
                void** slot = reinterpret_cast<void**>(const_cast<IMAGE_THUNK_DATA*>(place));
                g_originals[i] = *slot;
                Replace(slot, HostileThunks::At(i));
            }
        }
    }
}

void HostileHost::WatchInterfaces() {
    if (!m_interfaceSlots.empty()) return;
    const auto watch = [this](void* object, std::size_t slot, const char* name) {
        void** place = *static_cast<void***>(object) + slot;
        const std::size_t index = IndexOf(name);
        m_interfaceSlots.push_back({place, *place});
        g_originals[index] = *place;
        Replace(place, HostileThunks::At(index));
    };
    auto* host = workbench::host::Host::Current();
    AcApDocManager* documents = &host->Documents();
    watch(documents, SlotOf(&AcApDocManager::curDocument), "AcApDocManager::curDocument");
    watch(documents, SlotOf(&AcApDocManager::document), "AcApDocManager::document");
    watch(documents, SlotOf(&AcApDocManager::documentCount), "AcApDocManager::documentCount");
    watch(documents, SlotOf(&AcApDocManager::newAcApDocumentIterator),
          "AcApDocManager::newAcApDocumentIterator");
    watch(documents, SlotOf(&AcApDocManager::lockDocument), "AcApDocManager::lockDocument");
    watch(documents, SlotOf(&AcApDocManager::sendStringToExecute), "AcApDocManager::sendStringToExecute");
    watch(documents, SlotOf(&AcApDocManager::appContextOpenDocument),
          "AcApDocManager::appContextOpenDocument");
    watch(documents, SlotOf(&AcApDocManager::appContextCloseDocument),
          "AcApDocManager::appContextCloseDocument");
    watch(documents, SlotOf(&AcApDocManager::closeDocument), "AcApDocManager::closeDocument");
    AcEdCommandStack* commands = &host->Commands();
    watch(commands, SlotOf(&AcEdCommandStack::addCommand), "AcEdCommandStack::addCommand");
    watch(commands, SlotOf(&AcEdCommandStack::removeGroup), "AcEdCommandStack::removeGroup");
    AcRxDynamicLinker* linker = &host->Apps();
    watch(linker, SlotOf(&AcRxDynamicLinker::lockApplication), "AcRxDynamicLinker::lockApplication");
    watch(linker, SlotOf(&AcRxDynamicLinker::registerAppMDIAware), "AcRxDynamicLinker::registerAppMDIAware");
}

bool HostileHost::Fails(const char* name, const void* caller) {
    return DecideCall(IndexOf(name), caller);
}

bool HostileHost::DecideCall(std::size_t name, const void* caller) {
    return g_host != nullptr && g_host->Decide(name, caller);
}

bool HostileHost::Decide(std::size_t name, const void* caller) {
    // The host calls its own interfaces too.
    if (caller < m_begin || caller >= m_end) return false;
    ++m_counts[name];
    ++m_calls;
    if (m_calls != m_failingCall && name != m_failingName) return false;
    m_failures.push_back("call " + std::to_string(m_calls) + " (" + kCalls[name].name + ")");
    return true;
}

std::vector<HostCallCount> HostileHost::Counts() const {
    std::vector<HostCallCount> counts;
    for (std::size_t i = 0; i < kCallCount; ++i)
        if (m_counts[i] > 0) counts.push_back({kCalls[i].name, m_counts[i]});
    return counts;
}

std::wstring HostileHost::Failures() const {
    constexpr std::size_t kMostTold = 10;
    std::string text;
    for (std::size_t i = 0; i < std::min(m_failures.size(), kMostTold); ++i)
        text += (i == 0 ? "" : ", ") + m_failures[i];
    if (m_failures.size() > kMostTold)
        text += " and " + std::to_string(m_failures.size() - kMostTold) + " more";
    return std::wstring(text.begin(), text.end());
}

}  // namespace frame

#include "support/test_platform.h"

#include <cstdlib>

#include "support/real_system.h"

namespace {

constexpr wchar_t kProductKeyPath[] = L"Software\\KALVOR\\Orvex\\2023";
constexpr wchar_t kMemoryRoot[] = L"C:\\Test\\";

// An operation that still makes new calls after so many runs does not end.
constexpr size_t kMostFailingRuns = 100'000;

}  // namespace

std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).append("\r\n");
    return text;
}

TestSystem::TestSystem(SystemKind kind) : m_memory(std::make_unique<platform::MemoryPlatform>()) {
    platform::MemoryPlatform& memory = *m_memory;
    if (kind == SystemKind::kNative && RealSystem::IsAvailable()) {
        m_real = std::make_unique<RealSystem>();
        m_root = m_real->GetRoot();
        m_services = std::make_unique<platform::Platform>(platform::Platform{
            m_real->GetServices().files, m_real->GetServices().registry, memory.environment, memory.clock,
            memory.guids, memory.processes, memory.boxes, m_real->GetServices().text});
    } else {
        m_root = kMemoryRoot;
        memory.files.AddFolder(m_root);
        m_services = std::make_unique<platform::Platform>(memory.services);
    }
    m_previous = platform::Install(m_services.get());
}

TestSystem::~TestSystem() {
    EXPECT_EQ(m_memory->boxes.GetUnansweredCount(), 0u) << "a question box had no scripted answer";
    EXPECT_EQ(m_memory->boxes.GetUnusedAnswerCount(), 0u) << "a scripted answer was not asked for";
    platform::Install(m_previous);
}

bool TestSystem::IsReal() const {
    return m_real != nullptr;
}

std::wstring TestSystem::UseDatabase() {
    const std::wstring folder = InData(L"");
    PutFolder(folder);
    SetMachineValue(L"DatafilesPath", folder);
    return folder;
}

void TestSystem::PutFile(const std::wstring& path, std::string_view bytes) {
    if (!m_real) return m_memory->files.AddFile(path, std::string(bytes));
    PutFolder(path.substr(0, path.rfind(L'\\') + 1));
    EXPECT_EQ(m_services->files.WriteBytes(path, bytes), platform::WriteResult::kWritten);
}

void TestSystem::PutFolder(const std::wstring& path) {
    if (!m_real) return m_memory->files.AddFolder(path);
    for (size_t end = path.find(L'\\', m_root.size()); end != std::wstring::npos;
         end = path.find(L'\\', end + 1)) {
        m_services->files.MakeFolder(path.substr(0, end));
    }
    m_services->files.MakeFolder(path);
    EXPECT_TRUE(HasFolder(path));
}

std::string TestSystem::GetBytes(const std::wstring& path) {
    std::string bytes;
    const auto sharing = platform::Sharing::kReadWrite;
    const platform::ErrorCode error =
        m_real ? m_services->files.ReadBytes(path, sharing, bytes) : m_memory->files.PeekBytes(path, bytes);
    EXPECT_EQ(error, platform::kDone) << "the file cannot be read";
    return bytes;
}

bool TestSystem::HasFile(const std::wstring& path) {
    const std::uint32_t attributes =
        m_real ? m_services->files.GetAttributes(path) : m_memory->files.PeekAttributes(path);
    return attributes != platform::kInvalidAttributes && (attributes & platform::kAttributeDirectory) == 0;
}

bool TestSystem::HasFolder(const std::wstring& path) {
    const std::uint32_t attributes =
        m_real ? m_services->files.GetAttributes(path) : m_memory->files.PeekAttributes(path);
    return attributes != platform::kInvalidAttributes && (attributes & platform::kAttributeDirectory) != 0;
}

void TestSystem::SetReadOnly(const std::wstring& path, bool readOnly) {
    ChangeAttribute(path, platform::kAttributeReadOnly, readOnly);
}

void TestSystem::SetHidden(const std::wstring& path, bool hidden) {
    ChangeAttribute(path, platform::kAttributeHidden, hidden);
}

void TestSystem::ChangeAttribute(const std::wstring& path, std::uint32_t attribute, bool on) {
    if (!m_real) return m_memory->files.ChangeAttribute(path, attribute, on);
    const std::uint32_t present = m_services->files.GetAttributes(path);
    const std::uint32_t wanted = on ? present | attribute : present & ~attribute;
    EXPECT_EQ(m_services->files.SetAttributes(path, wanted), platform::kDone);
}

platform::FileTime TestSystem::GetModified(const std::wstring& path) {
    platform::FileStatus status;
    EXPECT_EQ(m_services->files.GetStatus(path, status), platform::kDone);
    return status.modified;
}

void TestSystem::SetModified(const std::wstring& path, platform::FileTime modified) {
    EXPECT_TRUE(m_real ? m_real->SetModified(path, modified) : m_memory->files.SetModified(path, modified));
}

std::unique_ptr<HeldFile> TestSystem::HoldFile(const std::wstring& path, platform::Hold hold) {
    if (m_real) return std::make_unique<HeldFile>(m_real->HoldFile(path, hold));
    m_memory->files.HoldFile(path, hold);
    return std::make_unique<HeldFile>([this, path] { m_memory->files.ReleaseFile(path); });
}

void TestSystem::SetMachineValue(const std::wstring& name, const std::wstring& text) {
    SetMachineValue(L"", name, text);
}

void TestSystem::SetMachineValue(const std::wstring& subkey, const std::wstring& name,
                                 const std::wstring& text) {
    const std::wstring key = std::wstring(kProductKeyPath) + (subkey.empty() ? L"" : L"\\" + subkey);
    SetRegistryBytes(platform::Hive::kLocalMachine, key, name, platform::RegistryType::kString,
                     platform::EncodeRegistryText(text));
}

void TestSystem::DeleteMachineValue(const std::wstring& name) {
    m_services->registry.DeleteValue(platform::Hive::kLocalMachine, kProductKeyPath, name);
}

void TestSystem::SetRegistryBytes(platform::Hive hive, const std::wstring& key, const std::wstring& name,
                                  platform::RegistryType type, const std::string& bytes) {
    if (!m_real) return m_memory->registry.SetBytes(hive, key, name, type, bytes);
    EXPECT_TRUE(m_real->SetRegistryBytes(hive, key, name, type, bytes));
}

void TestSystem::SetVariable(const std::wstring& name, const std::wstring& value) {
    m_memory->environment.SetVariable(name, value);
}

void TestSystem::SetProgramArgument(const std::wstring& argument) {
    m_memory->environment.SetProgramArgument(argument);
}

void TestSystem::SetNow(const platform::CalendarTime& time) {
    m_memory->clock.SetNow(platform::ToFileTime(time));
}

void TestSystem::Answer(int answer) {
    m_memory->boxes.Answer(answer);
}

const std::vector<platform::ShownBox>& TestSystem::GetBoxes() const {
    return m_memory->boxes.GetShown();
}

const std::vector<platform::ProcessRun>& TestSystem::GetRuns() const {
    return m_memory->processes.GetRuns();
}

platform::MemoryPlatform& TestSystem::GetMemory() {
    if (m_real) std::abort();  // Only a MemorySystemTest may ask for it.
    return *m_memory;
}

size_t ForEachFailingCall(const std::function<void(TestSystem&)>& arrange,
                          const std::function<void(TestSystem&)>& act) {
    for (size_t run = 1; run <= kMostFailingRuns; ++run) {
        TestSystem system(SystemKind::kMemory);
        arrange(system);
        system.GetMemory().log.FailCall(run);
        SCOPED_TRACE("call " + std::to_string(run) + " fails");
        act(system);
        if (!system.GetMemory().log.HasFailed()) return run;
    }
    ADD_FAILURE() << "the operation does not end";
    return kMostFailingRuns;
}

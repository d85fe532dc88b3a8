// Every operation of the database against a system that fails: one call after the other, one write after the
// other at every byte, a disk that fills up, files that cannot be opened, created or renamed, and files held
// by another process. After each, the code is a documented one and every file holds what it may hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "fault_database.h"
#include "fault_operations.h"

namespace {

class FaultTest : public testing::TestWithParam<COperation> {
  protected:
    void SetUp() override {
        TestSystem system(SystemKind::kMemory);
        ArrangeDatabase(system);
        m_before = TakeSnapshot(system);
        GetParam().run();
        m_after = TakeSnapshot(system);
        const auto& calls = system.GetMemory().log.GetCalls();
        for (size_t i = 0; i < calls.size(); ++i) {
            if (calls[i].operation == L"WriteBytes") m_anWrites.push_back(i + 1);
        }
        for (const auto& [strFile, strContent] : m_after)
            m_nLargest = std::max(m_nLargest, strContent.size());
    }

    // Runs the operation and looks at its code and at what it wrote to.
    void Run(TestSystem& system) {
        const int nCode = GetParam().run();
        EXPECT_TRUE(GetParam().codes.count(nCode)) << nCode;
        const std::map<std::string, Places> files = GetAllFiles(system);
        for (const platform::LoggedCall& call : system.GetMemory().log.GetCalls()) {
            // A project that does not resolve has no paths, and nothing can be created there.
            if (call.operation != L"WriteBytes" || call.path.empty()) continue;
            EXPECT_TRUE(std::any_of(files.begin(), files.end(),
                                    [&](const auto& file) {
                                        return std::count(file.second.begin(), file.second.end(),
                                                          GetFullPath(call.path)) > 0;
                                    }))
                << "a file that nobody expects: " << std::string(call.path.begin(), call.path.end());
        }
    }

    void ExpectWholeFiles(TestSystem& system) {
        for (const auto& [strFile, strContent] : TakeSnapshot(system)) {
            EXPECT_TRUE(IsAllowed(strFile, strContent)) << strFile << ":\n" << strContent;
        }
    }

    void ExpectWholeFilesOrFirstBytes(TestSystem& system, size_t nBytes) {
        for (const auto& [strFile, strContent] : TakeSnapshot(system)) {
            EXPECT_TRUE(IsAllowed(strFile, strContent) || IsPartOfAllowed(strFile, strContent, nBytes))
                << strFile << ":\n"
                << strContent;
        }
    }

    Snapshot m_before;
    Snapshot m_after;
    std::vector<size_t> m_anWrites;  // which calls of the undisturbed operation write, the first one being 1
    size_t m_nLargest = 0;

  private:
    static std::wstring GetFullPath(const std::wstring& strPath) {
        return strPath.starts_with(L"\\") ? L"C:" + strPath : strPath;
    }

    bool IsAllowed(const std::string& strFile, const std::string& strContent) const {
        const auto& also = GetParam().alsoAllowed;
        return strContent == m_before.at(strFile) || strContent == m_after.at(strFile) ||
               std::find(also.begin(), also.end(), std::pair(strFile, strContent)) != also.end() ||
               (GetParam().goesOnFromPart && GetParam().goesOnFromPart(strFile, strContent));
    }

    // Whether the content is the first bytes, that many, of a content that the file may have.
    bool IsPartOfAllowed(const std::string& strFile, const std::string& strContent, size_t nBytes) const {
        if (strContent.size() != nBytes) return false;
        const auto isPart = [&](const std::string& strWhole) {
            return strWhole.substr(0, nBytes) == strContent;
        };
        const auto& also = GetParam().alsoAllowed;
        return isPart(m_after.at(strFile)) || std::any_of(also.begin(), also.end(), [&](const auto& allowed) {
                   return allowed.first == strFile && isPart(allowed.second);
               });
    }
};

TEST_P(FaultTest, OneCallFails_GivesADocumentedCodeAndWholeFiles) {
    const size_t nRuns = ForEachFailingCall(ArrangeDatabase, [&](TestSystem& system) {
        Run(system);
        ExpectWholeFiles(system);
    });
    EXPECT_GT(nRuns, 1u);
}

TEST_P(FaultTest, OneWriteBreaksOffAtAByte_LeavesThatManyBytesOfOneFile) {
    for (const size_t nWrite : m_anWrites) {
        for (size_t nByte = 0; nByte <= m_nLargest; ++nByte) {
            SCOPED_TRACE("call " + std::to_string(nWrite) + ", byte " + std::to_string(nByte));
            TestSystem system(SystemKind::kMemory);
            ArrangeDatabase(system);
            system.GetMemory().files.BreakOffFailingWrite(nByte);
            system.GetMemory().log.FailCall(nWrite);
            Run(system);
            ExpectWholeFilesOrFirstBytes(system, nByte);
        }
    }
}

// A disk that fills up leaves what was written so far.
TEST_P(FaultTest, EveryWriteFailsAtAByte_LeavesThatManyBytesOfAFile) {
    for (size_t nByte = 0; nByte <= m_nLargest; ++nByte) {
        SCOPED_TRACE("byte " + std::to_string(nByte));
        TestSystem system(SystemKind::kMemory);
        ArrangeDatabase(system);
        system.GetMemory().files.FailWriteAt(L"", nByte);
        Run(system);
        ExpectWholeFilesOrFirstBytes(system, nByte);
        // What is left of the files can be read.
        system.GetMemory().files.ClearFaults();
        GetParam().run();
    }
}

TEST_P(FaultTest, FilesCannotBeCreated_StayAsTheyAre) {
    TestSystem system(SystemKind::kMemory);
    ArrangeDatabase(system);
    system.GetMemory().files.RefuseCreate(L"");
    Run(system);
    EXPECT_EQ(TakeSnapshot(system), m_before);
}

TEST_P(FaultTest, OneFileCannotBeCreated_StaysAsItIs) {
    TestSystem names(SystemKind::kMemory);
    for (const auto& [strFile, places] : GetAllFiles(names)) {
        SCOPED_TRACE(strFile);
        TestSystem system(SystemKind::kMemory);
        ArrangeDatabase(system);
        for (const std::wstring& strPath : places)
            system.GetMemory().files.RefuseCreate(strPath);
        Run(system);
        ExpectWholeFiles(system);
        EXPECT_EQ(TakeSnapshot(system)[strFile], m_before[strFile]);
    }
}

TEST_P(FaultTest, OneFileCannotBeOpened_GivesADocumentedCodeAndWholeFiles) {
    TestSystem names(SystemKind::kMemory);
    for (const auto& [strFile, places] : GetAllFiles(names)) {
        SCOPED_TRACE(strFile);
        TestSystem system(SystemKind::kMemory);
        ArrangeDatabase(system);
        for (const std::wstring& strPath : places)
            system.GetMemory().files.RefuseOpen(strPath);
        Run(system);
        ExpectWholeFiles(system);
    }
}

TEST_P(FaultTest, FoldersCannotBeRenamed_GivesADocumentedCodeAndWholeFiles) {
    TestSystem system(SystemKind::kMemory);
    ArrangeDatabase(system);
    system.GetMemory().files.RefuseMove(L"");
    Run(system);
    ExpectWholeFiles(system);
}

TEST_P(FaultTest, FoldersCannotBeMade_GivesADocumentedCodeAndWholeFiles) {
    TestSystem system(SystemKind::kMemory);
    ArrangeDatabase(system);
    system.GetMemory().files.RefuseMakeFolder(L"");
    Run(system);
    ExpectWholeFiles(system);
}

TEST_P(FaultTest, RegistryCannotBeRead_GivesADocumentedCodeAndWholeFiles) {
    TestSystem system(SystemKind::kMemory);
    ArrangeDatabase(system);
    system.GetMemory().registry.RefuseReads(platform::Hive::kLocalMachine, L"");
    Run(system);
    ExpectWholeFiles(system);
}

TEST_P(FaultTest, FileHeldByAnotherProcess_StaysAsItIs) {
    for (const auto& [strFile, strContent] : m_before) {
        if (strContent == kAbsent) continue;
        for (platform::Hold hold : {platform::Hold::kReading, platform::Hold::kReadingShared,
                                    platform::Hold::kWriting, platform::Hold::kWritingShared}) {
            SCOPED_TRACE(strFile + " held " + std::to_string(static_cast<int>(hold)));
            TestSystem system(SystemKind::kMemory);
            ArrangeDatabase(system);
            const auto held = system.HoldFile(GetAllFiles(system)[strFile].front(), hold);
            Run(system);
            EXPECT_EQ(TakeSnapshot(system)[strFile], strContent);
        }
    }
}

std::string GetTestName(const testing::TestParamInfo<COperation>& operation) {
    std::string strName = operation.param.pszName;
    for (char& ch : strName) {
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
    }
    return strName;
}

INSTANTIATE_TEST_SUITE_P(All, FaultTest, testing::ValuesIn(GetAllOperations()), GetTestName);

}  // namespace

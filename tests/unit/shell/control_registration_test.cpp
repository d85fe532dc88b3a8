#include "shell/control_registration.h"

#include <gmock/gmock.h>

#include "support/test_platform.h"

using platform::BoxOwner;
using platform::Hive;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr wchar_t kMenuLibrary[] = L"TypeLib\\{77529779-442F-43F2-9932-A4876EB56D8D}\\1.0";
constexpr wchar_t kMenuLibrary32[] = L"\\Wow6432Node\\TypeLib\\{77529779-442F-43F2-9932-A4876EB56D8D}\\1.0";
constexpr wchar_t kClassId[] = L"{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";
constexpr wchar_t kDescription[] = L"AutoCAD DwgThumbnail Control 2013";
constexpr wchar_t kProgramKey[] = L"AUTOCAD.DwgThumbnailCtrl.4\\CLSID";
constexpr wchar_t kClassKey[] = L"CLSID\\{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";
constexpr wchar_t kMachineProgramKey[] = L"Software\\Classes\\AUTOCAD.DwgThumbnailCtrl.4\\CLSID";
constexpr wchar_t kMachineClassKey[] = L"Software\\Classes\\CLSID\\{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";

}  // namespace

// In memory everywhere: what is tested is which keys are looked at, and the real class root is two hives in
// one.
class ControlRegistrationTest : public MemorySystemTest {
  protected:
    ControlRegistrationTest() {
        PutFolder(InRoot(L"App\\Applications\\Common Files"));
        PutFolder(InRoot(L"Common\\KALVOR"));
        SetMachineValue(L"NetworkAppPath", InRoot(L"App"));
        SetVariable(L"CommonProgramFiles", InRoot(L"Common"));
        SetVariable(L"SystemRoot", L"C:\\Windows");
    }

    std::wstring Local(const std::wstring& name) { return InRoot(L"Common\\KALVOR\\" + name); }
    std::wstring Common(const std::wstring& name) {
        return InRoot(L"App\\Applications\\Common Files\\" + name);
    }

    void SetDefault(Hive hive, const wchar_t* key, const wchar_t* text) {
        platform::GetRegistry().WriteString(hive, key, L"", text);
    }
    void KnowThumbnail() {
        SetDefault(Hive::kClassesRoot, kProgramKey, kClassId);
        SetDefault(Hive::kClassesRoot, kClassKey, kDescription);
        SetDefault(Hive::kLocalMachine, kMachineProgramKey, kClassId);
        SetDefault(Hive::kLocalMachine, kMachineClassKey, kDescription);
    }
    struct KeyValue {
        Hive hive;
        const wchar_t* key;
    };
    static std::vector<KeyValue> ProbedFirst() {
        return {{Hive::kClassesRoot, kProgramKey},
                {Hive::kClassesRoot, kClassKey},
                {Hive::kLocalMachine, kMachineClassKey}};
    }
    static std::vector<KeyValue> AllKeys() {
        std::vector<KeyValue> keys = ProbedFirst();
        keys.push_back({Hive::kLocalMachine, kMachineProgramKey});
        return keys;
    }
    void OnRegistrar(std::function<void()> effect) { GetMemory().processes.OnRun(std::move(effect)); }
};

TEST_F(ControlRegistrationTest, CopyOcxFiles_CopiesControlsOnly) {
    PutFile(Common(L"KalvorMenu.ocx"), "menu");
    PutFile(Common(L"readme.txt"), "text");
    PutFolder(Common(L"folder.ocx"));
    CopyOcxFiles();
    EXPECT_EQ(GetBytes(Local(L"KalvorMenu.ocx")), "menu");
    EXPECT_FALSE(HasFile(Local(L"readme.txt")));
    EXPECT_FALSE(HasFolder(Local(L"folder.ocx")));
}

TEST_F(ControlRegistrationTest, CopyOcxFiles_KeepsTheLocalFile) {
    PutFile(Common(L"KalvorMenu.ocx"), "newer");
    PutFile(Local(L"KalvorMenu.ocx"), "older");
    CopyOcxFiles();
    EXPECT_EQ(GetBytes(Local(L"KalvorMenu.ocx")), "older");
}

TEST_F(ControlRegistrationTest, CopyFiles_OneFailure_CopiesTheRestAndIsFalse) {
    PutFile(Common(L"a.ocx"), "a");
    PutFile(Common(L"b.ocx"), "b");
    PutFile(Local(L"a.ocx"), "old");
    EXPECT_FALSE(CopyFiles(Common(L"*.ocx").c_str(), InRoot(L"Common\\KALVOR").c_str(), true));
    EXPECT_EQ(GetBytes(Local(L"b.ocx")), "b");
    EXPECT_TRUE(CopyFiles(Common(L"*.ocx").c_str(), InRoot(L"Common\\KALVOR\\").c_str(), false));
    EXPECT_EQ(GetBytes(Local(L"a.ocx")), "a");
}

TEST_F(ControlRegistrationTest, CopyFiles_NoMatch_IsTrue) {
    EXPECT_TRUE(CopyFiles(Common(L"*.ocx").c_str(), InRoot(L"Nowhere").c_str(), true));
}

TEST_F(ControlRegistrationTest, MenuControl_KnownInThe32BitView_RunsNothing) {
    SetDefault(Hive::kClassesRoot, kMenuLibrary32, L"any text");
    RegisterMenuControl();
    EXPECT_THAT(GetRuns(), IsEmpty());
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(ControlRegistrationTest, MenuControl_KnownInThe64BitViewOnly_RunsTheRegistrar) {
    PutFile(Local(L"KalvorMenu.ocx"), "menu");
    SetDefault(Hive::kClassesRoot, kMenuLibrary, L"any text");
    RegisterMenuControl();
    ASSERT_EQ(GetRuns().size(), 1u);
    EXPECT_EQ(GetRuns()[0].program, L"C:\\Windows\\SysWOW64\\REGSVR32.EXE");
    EXPECT_THAT(GetRuns()[0].arguments,
                ElementsAre(L"REGSVR32.EXE", L"/s", L"\"" + Local(L"KalvorMenu.ocx") + L"\""));
    EXPECT_THAT(GetBoxes(), IsEmpty()) << "the probe behind it looks at the 64-bit view";
}

TEST_F(ControlRegistrationTest, MenuControl_FileMissing_IsToldOverTheMainWindow) {
    RegisterMenuControl();
    EXPECT_THAT(GetRuns(), IsEmpty());
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].owner, BoxOwner::kHostMainWindow);
    EXPECT_EQ(GetBoxes()[0].text, L"Couldn't find ocx file: \n" + Local(L"KalvorMenu.ocx") +
                                      L"\n\nPlease check software installation.");
    EXPECT_EQ(GetBoxes()[0].caption, L"");
    EXPECT_EQ(GetBoxes()[0].flags, 16u);
}

TEST_F(ControlRegistrationTest, MenuControl_RegistrarFailsQuietly_TheProbeBehindItTells) {
    PutFile(Common(L"KalvorMenu.ocx"), "menu");
    RegisterMenuControl();
    EXPECT_EQ(GetRuns().size(), 1u);
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].owner, BoxOwner::kHostMainWindow);
    EXPECT_EQ(GetBoxes()[0].text, L"Error registering ocx file: \n" + Local(L"KalvorMenu.ocx") +
                                      L"\n\nPlease check software installation.");
}

TEST_F(ControlRegistrationTest, MenuControl_CopyRefusedAndNoLocalFile_IsMissing) {
    PutFile(Common(L"KalvorMenu.ocx"), "menu");
    GetMemory().files.RefuseCreate(Local(L"KalvorMenu.ocx"));
    RegisterMenuControl();
    EXPECT_THAT(GetRuns(), IsEmpty());
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_TRUE(GetBoxes()[0].text.starts_with(L"Couldn't find ocx file: \n"));
}

TEST_F(ControlRegistrationTest, EmptySystemRoot_RunsTheRegistrarByItsBareName) {
    SetVariable(L"SystemRoot", L"");
    PutFile(Local(L"KalvorMenu.ocx"), "menu");
    PutFile(Local(L"DwgThumbnail.ocx"), "thumbnail");
    RegisterMenuControl();
    RegisterThumbnailControl();
    ASSERT_EQ(GetRuns().size(), 2u);
    EXPECT_EQ(GetRuns()[0].program, L"REGSVR32.EXE");
    EXPECT_EQ(GetRuns()[1].program, L"REGSVR32.EXE");
}

TEST_F(ControlRegistrationTest, Thumbnail_Known_RunsNothing) {
    KnowThumbnail();
    EXPECT_TRUE(RegisterThumbnailControl());
    EXPECT_THAT(GetRuns(), IsEmpty());
}

TEST_F(ControlRegistrationTest, Thumbnail_OnlyTheMachineProgramKeyWrong_RunsNothingAndStaysUnknown) {
    PutFile(Local(L"DwgThumbnail.ocx"), "thumbnail");
    KnowThumbnail();
    SetDefault(Hive::kLocalMachine, kMachineProgramKey, L"something else");
    EXPECT_FALSE(RegisterThumbnailControl());
    EXPECT_THAT(GetRuns(), IsEmpty()) << "the key is not among those that are looked at first";
    EXPECT_THAT(GetBoxes(), IsEmpty()) << "the caller tells it";
}

TEST_F(ControlRegistrationTest, Thumbnail_OneProbedKeyWrong_RunsTheRegistrarAndStaysUnknown) {
    PutFile(Local(L"DwgThumbnail.ocx"), "thumbnail");
    size_t nRuns = 0;
    for (const KeyValue& probe : ProbedFirst()) {
        for (const wchar_t* text : {L"something else", L""}) {
            KnowThumbnail();
            SetDefault(probe.hive, probe.key, text);
            EXPECT_FALSE(RegisterThumbnailControl()) << probe.key;
            EXPECT_EQ(GetRuns().size(), ++nRuns) << probe.key;
        }
    }
    EXPECT_EQ(GetRuns()[0].program, L"C:\\Windows\\system32\\REGSVR32.EXE");
    EXPECT_THAT(GetRuns()[0].arguments,
                ElementsAre(L"REGSVR32.EXE", L"/s", L"\"" + Local(L"DwgThumbnail.ocx") + L"\""));
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(ControlRegistrationTest, Thumbnail_OneProbedKeyWrong_TheRegistrarMendsIt) {
    PutFile(Local(L"DwgThumbnail.ocx"), "thumbnail");
    OnRegistrar([this] { KnowThumbnail(); });
    for (const KeyValue& probe : ProbedFirst()) {
        KnowThumbnail();
        SetDefault(probe.hive, probe.key, L"something else");
        EXPECT_TRUE(RegisterThumbnailControl()) << probe.key;
    }
    EXPECT_EQ(GetRuns().size(), 3u);
}

TEST_F(ControlRegistrationTest, Thumbnail_AnyOfTheFourKeysStillWrongAfterTheRegistrar_IsFalse) {
    PutFile(Local(L"DwgThumbnail.ocx"), "thumbnail");
    for (const KeyValue& probe : AllKeys()) {
        SetDefault(Hive::kClassesRoot, kProgramKey, L"unknown before");
        OnRegistrar([this, probe] {
            KnowThumbnail();
            SetDefault(probe.hive, probe.key, L"AutoCAD DwgThumbnail Control 2012");
        });
        EXPECT_FALSE(RegisterThumbnailControl()) << probe.key;
    }
}

TEST_F(ControlRegistrationTest, Thumbnail_HalfKnownAndFileMissing_IsToldWithoutRunningAnything) {
    for (const KeyValue& probe : ProbedFirst()) {
        KnowThumbnail();
        SetDefault(probe.hive, probe.key, L"");
        EXPECT_FALSE(RegisterThumbnailControl()) << probe.key;
    }
    EXPECT_THAT(GetRuns(), IsEmpty());
    EXPECT_EQ(GetBoxes().size(), 3u);
}

TEST_F(ControlRegistrationTest, Thumbnail_KnownAndFileMissing_IsFine) {
    KnowThumbnail();
    EXPECT_TRUE(RegisterThumbnailControl());
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(ControlRegistrationTest, Thumbnail_MachineKeyMissing_RunsTheRegistrarAtEveryLoad) {
    PutFile(Local(L"DwgThumbnail.ocx"), "thumbnail");
    SetDefault(Hive::kClassesRoot, kProgramKey, kClassId);
    SetDefault(Hive::kClassesRoot, kClassKey, kDescription);
    EXPECT_FALSE(RegisterThumbnailControl());
    EXPECT_FALSE(RegisterThumbnailControl());
    EXPECT_EQ(GetRuns().size(), 2u);
}

TEST_F(ControlRegistrationTest, Thumbnail_ComparisonKnowsLetterCase) {
    PutFile(Local(L"DwgThumbnail.ocx"), "thumbnail");
    KnowThumbnail();
    SetDefault(Hive::kClassesRoot, kProgramKey, L"{b4fd4fc6-4eba-4d06-8244-bb09a940c60a}");
    EXPECT_FALSE(RegisterThumbnailControl());
    EXPECT_EQ(GetRuns().size(), 1u);
}

TEST_F(ControlRegistrationTest, Thumbnail_RegistrarMakesItKnown_IsTrue) {
    PutFile(Common(L"DwgThumbnail.ocx"), "thumbnail");
    OnRegistrar([this] { KnowThumbnail(); });
    EXPECT_TRUE(RegisterThumbnailControl());
    EXPECT_EQ(GetRuns().size(), 1u);
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(ControlRegistrationTest, Thumbnail_FileMissing_IsToldWithoutOwner) {
    EXPECT_FALSE(RegisterThumbnailControl());
    EXPECT_THAT(GetRuns(), IsEmpty());
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].owner, BoxOwner::kNone);
    EXPECT_EQ(GetBoxes()[0].text, L"Couldn't find ocx file: \n" + Local(L"DwgThumbnail.ocx") +
                                      L"\n\nPlease check software installation.");
}

TEST_F(ControlRegistrationTest, Thumbnail_CopyRefusedAndNoLocalFile_IsMissing) {
    PutFile(Common(L"DwgThumbnail.ocx"), "thumbnail");
    GetMemory().files.RefuseCreate(Local(L"DwgThumbnail.ocx"));
    EXPECT_FALSE(RegisterThumbnailControl());
    EXPECT_THAT(GetRuns(), IsEmpty());
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_TRUE(GetBoxes()[0].text.starts_with(L"Couldn't find ocx file: \n"));
}

TEST_F(ControlRegistrationTest, BothControls_CopyTheFilesAlsoWhenTheyAreKnown) {
    KnowThumbnail();
    SetDefault(Hive::kClassesRoot, kMenuLibrary32, L"any text");
    PutFile(Common(L"KalvorMenu.ocx"), "menu");
    RegisterMenuControl();
    EXPECT_TRUE(HasFile(Local(L"KalvorMenu.ocx")));
    PutFile(Common(L"DwgThumbnail.ocx"), "thumbnail");
    EXPECT_TRUE(RegisterThumbnailControl());
    EXPECT_TRUE(HasFile(Local(L"DwgThumbnail.ocx")));
}

TEST_F(ControlRegistrationTest, LocalFileAndADifferentCommonOne_TheLocalOneIsRegistered) {
    PutFile(Common(L"KalvorMenu.ocx"), "newer");
    PutFile(Local(L"KalvorMenu.ocx"), "older");
    OnRegistrar([this] { SetDefault(Hive::kClassesRoot, kMenuLibrary, L"any text"); });
    RegisterMenuControl();
    ASSERT_EQ(GetRuns().size(), 1u);
    EXPECT_EQ(GetRuns()[0].arguments[2], L"\"" + Local(L"KalvorMenu.ocx") + L"\"");
    EXPECT_EQ(GetBytes(Local(L"KalvorMenu.ocx")), "older");
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(ControlRegistrationTest, MenuControl_RegisteredInThe64BitViewOnly_RunsTheRegistrarAtEveryLoad) {
    PutFile(Local(L"KalvorMenu.ocx"), "menu");
    OnRegistrar([this] { SetDefault(Hive::kClassesRoot, kMenuLibrary, L"any text"); });
    RegisterMenuControl();
    RegisterMenuControl();
    EXPECT_EQ(GetRuns().size(), 2u);
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(ControlRegistrationTest, SystemRootWithBackslash_GetsNoSecondOne) {
    SetVariable(L"SystemRoot", L"C:\\Windows\\");
    PutFile(Local(L"KalvorMenu.ocx"), "menu");
    RegisterMenuControl();
    ASSERT_EQ(GetRuns().size(), 1u);
    EXPECT_EQ(GetRuns()[0].program, L"C:\\Windows\\SysWOW64\\REGSVR32.EXE");
}

TEST_F(ControlRegistrationTest, PercentInThePath_IsText) {
    SetVariable(L"CommonProgramFiles", InRoot(L"%s%n"));
    RegisterMenuControl();
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, L"Couldn't find ocx file: \n" + InRoot(L"%s%n\\KALVOR\\KalvorMenu.ocx") +
                                      L"\n\nPlease check software installation.");
}

TEST_F(ControlRegistrationTest, ReadDefaultRegValue_MissingKeyOrTooLongText_IsEmpty) {
    EXPECT_EQ(ReadDefaultRegValue(Hive::kClassesRoot, L"No\\Such\\Key"), L"");
    SetDefault(Hive::kClassesRoot, L"Long", std::wstring(1023, L'x').c_str());
    EXPECT_EQ(ReadDefaultRegValue(Hive::kClassesRoot, L"Long").size(), 1023u);
    SetDefault(Hive::kClassesRoot, L"Long", std::wstring(1024, L'x').c_str());
    EXPECT_EQ(ReadDefaultRegValue(Hive::kClassesRoot, L"Long"), L"");
}

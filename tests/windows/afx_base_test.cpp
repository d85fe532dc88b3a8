// Text, arrays, maps, failures of files: the framework's types without windows.
#include <afxcoll.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

template <class Action>
bool RaisesBadArgument(Action action) {
    try {
        action();
        return false;
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
}

TEST(AfxString, PartsAreClampedToTheText) {
    const CString text = L"pump";
    EXPECT_EQ(text.Mid(1, 2), L"um");
    EXPECT_EQ(text.Mid(2), L"mp");
    EXPECT_EQ(text.Mid(9), L"");
    EXPECT_EQ(text.Mid(-3, 2), L"pu");
    EXPECT_EQ(text.Left(2), L"pu");
    EXPECT_EQ(text.Left(99), L"pump");
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Right(2), L"mp");
    EXPECT_EQ(text.Right(99), L"pump");
}

TEST(AfxString, Finding) {
    const CString text = L"a\\b\\c";
    EXPECT_EQ(text.Find(L'\\'), 1);
    EXPECT_EQ(text.Find(L'\\', 2), 3);
    EXPECT_EQ(text.Find(L"b\\"), 2);
    EXPECT_EQ(text.Find(L'x'), -1);
    EXPECT_EQ(text.Find(L'a', 99), -1);
    EXPECT_EQ(text.ReverseFind(L'\\'), 3);
    EXPECT_EQ(text.FindOneOf(L"cb"), 2);
}

TEST(AfxString, TrimmingBySets) {
    EXPECT_EQ(CString(L" \t a b \r\n").Trim(), L"a b");
    EXPECT_EQ(CString(L"\\\\a\\").TrimLeft(L'\\'), L"a\\");
    EXPECT_EQ(CString(L"xyaxy").Trim(L"yx"), L"a");
    EXPECT_EQ(CString(L"   ").TrimRight(), L"");
    EXPECT_EQ(CString(L"a  ").TrimRight(L' '), L"a");
}

TEST(AfxString, CaseIsOfTheWholeAlphabet) {
    EXPECT_EQ(CString(L"größe é").MakeUpper(), L"GRÖßE É");
    EXPECT_EQ(CString(L"GRÖSSE").MakeLower(), L"grösse");
    EXPECT_EQ(CString(L"Pump").CompareNoCase(L"PUMP"), 0);
    EXPECT_NE(CString(L"Pump").Compare(L"PUMP"), 0);
}

TEST(AfxString, ReplacingAndRemoving) {
    CString text = L"a--b--c";
    EXPECT_EQ(text.Replace(L"--", L"-"), 2);
    EXPECT_EQ(text, L"a-b-c");
    EXPECT_EQ(text.Replace(L"-", L"--"), 2);
    EXPECT_EQ(text.Replace(L"", L"x"), 0);
    EXPECT_EQ(text.Remove(L'-'), 4);
    EXPECT_EQ(text, L"abc");
    EXPECT_EQ(text.Insert(1, L"XY"), 5);
    EXPECT_EQ(text.Delete(1, 2), 3);
    EXPECT_EQ(text, L"abc");
}

TEST(AfxString, CharacterOutsideTheText_RaisesTheBadArgument) {
    CString text = L"ab";
    EXPECT_EQ(text[1], L'b');
    EXPECT_TRUE(RaisesBadArgument([&] { (void)text.GetAt(2); }));
    EXPECT_TRUE(RaisesBadArgument([&] { (void)text.GetAt(-1); }));
    EXPECT_TRUE(RaisesBadArgument([&] { text.SetAt(2, L'x'); }));
}

TEST(AfxString, BufferTakesTheTextUpToItsNull) {
    CString text;
    wchar_t* buffer = text.GetBuffer(10);
    buffer[0] = L'h', buffer[1] = L'i', buffer[2] = L'\0';
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 2);
    EXPECT_EQ(text, L"hi");
}

TEST(AfxString, FormatTakesWideTexts) {
    CString text;
    text.Format(L"%s is %d%%", L"ü", 5);
    EXPECT_EQ(text, L"ü is 5%");
    text.Format(L"%s", std::wstring(5000, L'x').c_str());
    EXPECT_EQ(text.GetLength(), 5000);
}

TEST(AfxString, NullIsTheEmptyText) {
    CString text(static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(text.IsEmpty());
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text + L"a" + CString(L"b") + L'c' + std::wstring(L"d"), L"abcd");
}

TEST(AfxArray, IndexOutsideTheArray_RaisesTheBadArgument) {
    CStringArray array;
    EXPECT_EQ(array.Add(L"a"), 0);
    EXPECT_EQ(array.Add(L"b"), 1);
    EXPECT_EQ(array[1], L"b");
    EXPECT_TRUE(RaisesBadArgument([&] { (void)array[2]; }));
    EXPECT_TRUE(RaisesBadArgument([&] { (void)array.GetAt(-1); }));
    EXPECT_TRUE(RaisesBadArgument([&] { array.SetAt(2, L""); }));
    EXPECT_TRUE(RaisesBadArgument([&] { array.RemoveAt(1, 2); }));
    EXPECT_TRUE(RaisesBadArgument([&] { array.SetSize(-1); }));
    EXPECT_EQ(array.GetSize(), 2);
}

TEST(AfxArray, InsertingBeyondTheEnd_FillsTheGap) {
    CArray<int, int> array;
    array.InsertAt(2, 7);
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array[0], 0);
    EXPECT_EQ(array[2], 7);
    array.InsertAt(0, 1);
    EXPECT_EQ(array[0], 1);
    array.Append(array);
    EXPECT_EQ(array.GetSize(), 8);
    array.RemoveAt(0, 8);
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST(AfxMap, LookupOfAMissingKey_LeavesTheValue) {
    CMap<int, int, DWORD, DWORD> map(10);
    map.InitHashTable(17);
    map[3] = 30;
    DWORD value = 1;
    EXPECT_FALSE(map.Lookup(4, value));
    EXPECT_EQ(value, 1u);
    EXPECT_TRUE(map.Lookup(3, value));
    EXPECT_EQ(value, 30u);
    EXPECT_TRUE(map.RemoveKey(3));
    EXPECT_FALSE(map.RemoveKey(3));
    EXPECT_TRUE(map.IsEmpty());
}

TEST(AfxClasses, RunTimeClass_KnowsItsBases) {
    CButton button;
    const CObject* object = &button;
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CButton)));
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CWnd)));
    EXPECT_FALSE(object->IsKindOf(RUNTIME_CLASS(CDialog)));
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "CButton");
}

TEST(AfxFile, Rename_MovesTheFileOrTellsWhy) {
    const auto folder = std::filesystem::temp_directory_path() / L"afx_rename";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    const std::wstring from = (folder / L"a.dwg").wstring();
    const std::wstring to = (folder / L"b.dwg").wstring();
    std::ofstream(std::filesystem::path(from)) << "x";
    CFile::Rename(from.c_str(), to.c_str());
    EXPECT_TRUE(std::filesystem::exists(to));
    try {
        CFile::Rename(from.c_str(), to.c_str());
        ADD_FAILURE() << "nothing was raised";
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::fileNotFound);
        EXPECT_EQ(e->m_lOsError, ERROR_FILE_NOT_FOUND);
        wchar_t text[512];
        EXPECT_TRUE(e->GetErrorMessage(text, 512));
        EXPECT_EQ(std::wstring(text), L"The file does not exist:\n" + from);
        wchar_t shortText[9];
        EXPECT_TRUE(e->GetErrorMessage(shortText, 9));
        EXPECT_STREQ(shortText, L"The file");
        e->Delete();
    }
    std::filesystem::remove_all(folder);
}

TEST(AfxFile, SystemErrors_HaveTheirCauses) {
    EXPECT_EQ(CFileException::OsErrorToException(ERROR_SHARING_VIOLATION), CFileException::sharingViolation);
    EXPECT_EQ(CFileException::OsErrorToException(ERROR_ACCESS_DENIED), CFileException::accessDenied);
    EXPECT_EQ(CFileException::OsErrorToException(ERROR_ALREADY_EXISTS), CFileException::accessDenied);
    EXPECT_EQ(CFileException::OsErrorToException(NO_ERROR), CFileException::none);
    EXPECT_EQ(CFileException::OsErrorToException(123456), CFileException::genericException);
}

}  // namespace

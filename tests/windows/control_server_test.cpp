// The controls' libraries as COM servers: registration, class objects, dispatch by number, type libraries.
#include <gmock/gmock.h>

#include "control_fixture.h"
#include "controls/menu_ids.h"
#include "controls/thumbnail_ids.h"

namespace {

using platform::Hive;

const std::wstring kClasses = L"Software\\Classes\\";
const std::wstring kMenuLibrary = L"TypeLib\\{77529779-442F-43F2-9932-A4876EB56D8D}\\1.0";
const std::wstring kThumbnailClass = L"{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";

std::wstring PathBeside(const wchar_t* file) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path).substr(0, std::wstring(path).find_last_of(L'\\') + 1) + file;
}

class ControlServerTest : public SystemTest {
  protected:
    ~ControlServerTest() override {
        for (const HMODULE library : m_libraries)
            FreeLibrary(library);
    }
    template <class Function>
    Function Get(const wchar_t* file, const char* name) {
        const HMODULE library = LoadLibraryW(PathBeside(file).c_str());
        EXPECT_NE(library, nullptr) << file;
        m_libraries.push_back(library);
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    }
    HRESULT Call(const wchar_t* file, const char* name) { return Get<HRESULT(WINAPI*)()>(file, name)(); }
    std::wstring Default(const std::wstring& key) {
        std::wstring text;
        platform::GetRegistry().ReadString(Hive::kLocalMachine, kClasses + key, L"", text);
        return text;
    }

    std::vector<HMODULE> m_libraries;
};

TEST_F(ControlServerTest, MenuControl_RegistersItsClassAndItsLibraryInBothViews) {
    EXPECT_EQ(Call(L"KalvorMenu.ocx", "DllRegisterServer"), S_OK);
    EXPECT_NE(Default(kMenuLibrary), L"");
    EXPECT_NE(Default(L"Wow6432Node\\" + kMenuLibrary), L"");
    EXPECT_EQ(Default(kMenuLibrary + L"\\0\\win64"), PathBeside(L"KalvorMenu.ocx"));
    EXPECT_EQ(Default(L"CLSID\\{BC137D8F-1378-43CE-98AF-E2635733FEC7}\\InprocServer32"),
              PathBeside(L"KalvorMenu.ocx"));
    EXPECT_EQ(Call(L"KalvorMenu.ocx", "DllUnregisterServer"), S_OK);
    EXPECT_EQ(Default(kMenuLibrary), L"");
    EXPECT_EQ(Default(L"Wow6432Node\\" + kMenuLibrary), L"");
    EXPECT_EQ(Default(L"CLSID\\{BC137D8F-1378-43CE-98AF-E2635733FEC7}"), L"");
}

TEST_F(ControlServerTest, ThumbnailControl_RegistersWhatTheModuleLooksFor) {
    EXPECT_EQ(Call(L"DwgThumbnail.ocx", "DllRegisterServer"), S_OK);
    EXPECT_EQ(Default(L"AUTOCAD.DwgThumbnailCtrl.4\\CLSID"), kThumbnailClass);
    EXPECT_EQ(Default(L"CLSID\\" + kThumbnailClass), L"AutoCAD DwgThumbnail Control 2013");
    EXPECT_EQ(Default(L"CLSID\\" + kThumbnailClass + L"\\InprocServer32"), PathBeside(L"DwgThumbnail.ocx"));
    EXPECT_EQ(Call(L"DwgThumbnail.ocx", "DllUnregisterServer"), S_OK);
    EXPECT_EQ(Default(L"AUTOCAD.DwgThumbnailCtrl.4\\CLSID"), L"");
    EXPECT_EQ(Default(L"CLSID\\" + kThumbnailClass), L"");
}

TEST_F(ControlServerTest, RegisteringTwice_IsTheSame) {
    EXPECT_EQ(Call(L"DwgThumbnail.ocx", "DllRegisterServer"), S_OK);
    EXPECT_EQ(Call(L"DwgThumbnail.ocx", "DllRegisterServer"), S_OK);
    EXPECT_EQ(Default(L"AUTOCAD.DwgThumbnailCtrl.4\\CLSID"), kThumbnailClass);
}

TEST_F(ControlServerTest, ClassObject_IsThereForTheOwnClassOnly) {
    using GetClass = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto getClass = Get<GetClass>(L"KalvorMenu.ocx", "DllGetClassObject");
    void* object = nullptr;
    EXPECT_EQ(getClass(controls::kThumbnailClassId, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(getClass(controls::kMenuClassId, IID_IDispatch, &object), E_NOINTERFACE);
    ASSERT_EQ(getClass(controls::kMenuClassId, IID_IClassFactory, &object), S_OK);
    auto* factory = static_cast<IClassFactory*>(object);
    EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    IUnknown* control = nullptr;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(&control)), S_OK);
    EXPECT_EQ(Call(L"KalvorMenu.ocx", "DllCanUnloadNow"), S_FALSE);
    EXPECT_EQ(control->QueryInterface(IID_IOleCache, &object), E_NOINTERFACE);
    control->Release();
    EXPECT_EQ(Call(L"KalvorMenu.ocx", "DllCanUnloadNow"), S_OK);
    factory->LockServer(TRUE);
    EXPECT_EQ(Call(L"KalvorMenu.ocx", "DllCanUnloadNow"), S_FALSE);
    factory->LockServer(FALSE);
    EXPECT_EQ(Call(L"KalvorMenu.ocx", "DllCanUnloadNow"), S_OK);
    factory->Release();
}

// A control's dispatch interface, called with one argument at most.
class Dispatched {
  public:
    explicit Dispatched(CWnd& control) {
        control.GetControlUnknown()->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&m_dispatch));
    }
    ~Dispatched() { m_dispatch->Release(); }
    Dispatched(const Dispatched&) = delete;
    Dispatched& operator=(const Dispatched&) = delete;
    HRESULT Call(DISPID id, WORD flags, VARIANT* argument = nullptr, VARIANT* result = nullptr) {
        DISPPARAMS parameters = {argument, nullptr, argument ? 1u : 0u, 0};
        return m_dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, nullptr,
                                  nullptr);
    }
    IDispatch* operator->() const { return m_dispatch; }

  private:
    IDispatch* m_dispatch = nullptr;
};

TEST_F(ControlServerTest, MenuControl_RefusesCallsThatMakeNoSense) {
    const control_test::ServedClass served(L"KalvorMenu.ocx", controls::kMenuClassId);
    control_test::ControlWindow window;
    ASSERT_TRUE(window.Make(controls::kMenuClassId, CRect(0, 0, 100, 100)));
    Dispatched menu(window.m_control);
    VARIANT text, result;
    VariantInit(&result);
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocString(L"not a number");
    EXPECT_EQ(menu.Call(2, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(menu.Call(4, DISPATCH_METHOD), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(menu.Call(1, DISPATCH_PROPERTYPUT, &text), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(menu.Call(10, DISPATCH_PROPERTYGET, &text, &result), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(menu.Call(11, DISPATCH_PROPERTYPUT, &text), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(menu.Call(4, DISPATCH_METHOD, &text, nullptr), S_OK) << "nobody wants the result";
    VariantClear(&text);
}

TEST_F(ControlServerTest, TypeLibraries_NameTheMembers) {
    const control_test::ServedClass menuClass(L"KalvorMenu.ocx", controls::kMenuClassId);
    const control_test::ServedClass thumbnailClass(L"DwgThumbnail.ocx", controls::kThumbnailClassId);
    const struct {
        REFCLSID classId;
        const wchar_t* name;
        DISPID id;
    } members[] = {
        {controls::kMenuClassId, L"IconSize", 1},         {controls::kMenuClassId, L"LoadMenu", 4},
        {controls::kMenuClassId, L"ItemKind", 10},        {controls::kMenuClassId, L"ToggleState", 11},
        {controls::kMenuClassId, L"Enabled", -514},       {controls::kThumbnailClassId, L"DwgFileName", 0},
        {controls::kThumbnailClassId, L"BackColor", -501}};
    for (const auto& member : members) {
        control_test::ControlWindow window;
        ASSERT_TRUE(window.Make(member.classId, CRect(0, 0, 100, 100)));
        Dispatched control(window.m_control);
        LPOLESTR name = const_cast<LPOLESTR>(member.name);
        DISPID id = -1;
        EXPECT_EQ(control->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK) << member.name;
        EXPECT_EQ(id, member.id) << member.name;
    }
}

}  // namespace

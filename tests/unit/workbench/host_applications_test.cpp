// Applications: loading, messages, LISP functions.
#include "host_fixture.h"

namespace workbench::test {
namespace {

constexpr wchar_t kPath[] = L"C:\\App\\menu.arx";

class ApplicationsTest : public HostTest {
  protected:
    bool Load() { return acrxDynamicLinker->loadModule(kPath, true); }
    static Events Messages() { return std::exchange(FakeApplication::messages, {}); }

    // An application with one LISP function of code 3.
    void LoadWithFunction(std::function<void()> body) {
        FakeApplication::onMessage = [body](AcRx::AppMsgCode message, void*) {
            if (message == AcRx::kLoadDwgMsg) {
                EXPECT_EQ(acedDefun(L"appfun", 3), RTNORM);
            } else if (message == AcRx::kUnloadDwgMsg) {
                acedUndef(L"appfun", 3);
            } else if (message == AcRx::kInvkSubrMsg) {
                body();
            }
            return AcRx::kRetOK;
        };
        Load();
    }
};

TEST_F(ApplicationsTest, Load_SendsInitThenLoadDwgForEachDocument) {
    ADocument();
    host::Document& second = ADocument();
    EXPECT_TRUE(Load());
    EXPECT_EQ(Messages(), (Events{L"1 Drawing2.dwg", L"3 Drawing1.dwg", L"3 Drawing2.dwg"}));
    EXPECT_EQ(acDocManager->curDocument(), &second);
    ADocument();
    EXPECT_EQ(Messages(), (Events{L"3 Drawing3.dwg"}));
}

TEST_F(ApplicationsTest, Load_Again_SendsNothing) {
    Load();
    Messages();
    EXPECT_TRUE(acrxDynamicLinker->loadModule(L"c:/app/MENU.ARX", true));
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(m_loader.loaded, 1);
}

TEST_F(ApplicationsTest, Load_ThatFails_IsTold) {
    EXPECT_FALSE(acrxDynamicLinker->loadModule(L"C:\\bad.arx", true));
    EXPECT_EQ(m_surface.transcript, L"C:\\bad.arx: cannot be loaded\n");
    EXPECT_FALSE(acrxDynamicLinker->loadModule(nullptr, true));
}

TEST_F(ApplicationsTest, Load_OfAnotherApiVersion_IsRefusedAndFreed) {
    FakeApplication::version = kArxHostApiVersion + 1;
    EXPECT_FALSE(Load());
    EXPECT_EQ(m_loader.loaded, 0);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(ApplicationsTest, Load_WhoseInitFails_IsUnloaded) {
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void*) {
        return message == AcRx::kInitAppMsg ? AcRx::kRetError : AcRx::kRetOK;
    };
    EXPECT_FALSE(Load());
    EXPECT_EQ(m_loader.loaded, 0);
    EXPECT_EQ(Messages(), (Events{L"1 -", L"2 -"}));
}

TEST_F(ApplicationsTest, Unload_NeedsTheApplicationsConsent) {
    Load();
    EXPECT_TRUE(acrxDynamicLinker->isApplicationLocked(kPath));
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(kPath));
    EXPECT_TRUE(acrxDynamicLinker->unlockApplication(m_host->Apps().Find(L"menu.arx")));
    EXPECT_FALSE(acrxDynamicLinker->isApplicationLocked(kPath));
    EXPECT_TRUE(acrxDynamicLinker->unloadModule(kPath));
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(kPath));
    EXPECT_EQ(m_loader.loaded, 0);
}

TEST_F(ApplicationsTest, Unload_OfOneThatLockedItselfAgain_IsRefused) {
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void* appId) {
        if (message == AcRx::kInitAppMsg) {
            acrxDynamicLinker->unlockApplication(appId);
            acrxDynamicLinker->lockApplication(appId);
            acrxDynamicLinker->registerAppMDIAware(appId);
        }
        return AcRx::kRetOK;
    };
    Load();
    EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(kPath));
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(kPath));
}

TEST_F(ApplicationsTest, Services_KnowTheirApplicationsOnly) {
    int nobody = 0;
    EXPECT_FALSE(acrxDynamicLinker->unlockApplication(&nobody));
    EXPECT_FALSE(acrxDynamicLinker->lockApplication(nullptr));
    EXPECT_FALSE(acrxDynamicLinker->registerAppMDIAware(&nobody));
    EXPECT_FALSE(acrxDynamicLinker->registerAppNotMDIAware(&nobody));
    EXPECT_FALSE(acrxDynamicLinker->isApplicationLocked(L"x.arx"));
}

TEST_F(ApplicationsTest, Unload_SendsUnloadDwgForEachDocumentThenUnload) {
    ADocument();
    ADocument();
    Load();
    m_host->Apps().unlockApplication(m_host->Apps().Find(kPath));
    Messages();
    acrxDynamicLinker->unloadModule(kPath);
    EXPECT_EQ(Messages(), (Events{L"4 Drawing1.dwg", L"4 Drawing2.dwg", L"2 Drawing2.dwg"}));
}

TEST_F(ApplicationsTest, Close_SendsUnloadDwgWhileTheDocumentIsCurrent) {
    host::Document& first = ADocument();
    ADocument();
    Load();
    Messages();
    acDocManager->closeDocument(&first);
    EXPECT_EQ(Messages(), (Events{L"4 Drawing1.dwg"}));
    EXPECT_STREQ(acDocManager->curDocument()->docTitle(), L"Drawing2.dwg");
}

TEST_F(ApplicationsTest, HostEnd_UnloadsLockedOnesToo) {
    ADocument();
    Load();
    Messages();
    m_host.reset();
    EXPECT_EQ(FakeApplication::messages.size(), 2u);
    EXPECT_EQ(m_loader.loaded, 0);
}

TEST_F(ApplicationsTest, CommandsLeftBehind_AreTakenAwayAndTold) {
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void* appId) {
        if (message == AcRx::kInitAppMsg) {
            acedRegCmds->addCommand(L"g", L"_a", L"a", 0, [] {});
            acrxDynamicLinker->unlockApplication(appId);
        }
        return AcRx::kRetOK;
    };
    Load();
    m_surface.transcript.clear();
    acrxDynamicLinker->unloadModule(kPath);
    EXPECT_EQ(m_surface.transcript, std::wstring(kPath) + L": 1 commands were left behind\n");
    EXPECT_EQ(m_host->Commands().Count(), 0u);
}

TEST_F(ApplicationsTest, FunctionsLeftBehind_AreTakenAwayAndTold) {
    ADocument();
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void* appId) {
        if (message == AcRx::kLoadDwgMsg) {
            acedDefun(L"left", 0);
        } else if (message == AcRx::kInitAppMsg) {
            acrxDynamicLinker->unlockApplication(appId);
        }
        return AcRx::kRetOK;
    };
    Load();
    acrxDynamicLinker->unloadModule(kPath);
    EXPECT_NE(m_surface.transcript.find(L"the function LEFT was left behind"), std::wstring::npos);
    EXPECT_NE(Type(L"(left)\n").find(L"no function definition: LEFT"), std::wstring::npos);
}

TEST_F(ApplicationsTest, AppName_IsThePathWhileItsCodeRuns) {
    std::wstring name;
    FakeApplication::onMessage = [&](AcRx::AppMsgCode, void*) {
        name = acedGetAppName();
        return AcRx::kRetOK;
    };
    Load();
    EXPECT_EQ(name, kPath);
    EXPECT_STREQ(acedGetAppName(), L"");
}

TEST_F(ApplicationsTest, Commands_RunAsTheirApplication) {
    ADocument();
    static std::wstring name;
    name.clear();
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void*) {
        if (message == AcRx::kInitAppMsg) {
            acedRegCmds->addCommand(L"g", L"_a", L"a", 0, [] { name = acedGetAppName(); });
        }
        return AcRx::kRetOK;
    };
    Load();
    Type(L"a\n");
    EXPECT_EQ(name, kPath);
}

TEST_F(ApplicationsTest, Defun_OutsideAnApplication_Fails) {
    ADocument();
    EXPECT_EQ(acedDefun(L"f", 0), RTERROR);
    EXPECT_EQ(acedUndef(L"f", 0), RTERROR);
    EXPECT_EQ(acedRegFunc([] { return 0; }, 0), RTERROR);
    EXPECT_EQ(acedRetT(), RTERROR);
    EXPECT_EQ(acedGetArgs(), nullptr);
}

TEST_F(ApplicationsTest, Defun_WithoutADocument_Fails) {
    int result = 0;
    FakeApplication::onMessage = [&](AcRx::AppMsgCode, void*) {
        result = acedDefun(L"f", 0);
        return AcRx::kRetOK;
    };
    Load();
    EXPECT_EQ(result, RTERROR);
}

TEST_F(ApplicationsTest, Undef_NeedsNameAndCode) {
    ADocument();
    std::vector<int> results;
    FakeApplication::onMessage = [&](AcRx::AppMsgCode message, void*) {
        if (message == AcRx::kLoadDwgMsg) {
            acedDefun(L"f", 2);
            results = {acedUndef(L"f", 1), acedUndef(L"g", 2), acedUndef(L"F", 2), acedUndef(L"f", 2)};
        }
        return AcRx::kRetOK;
    };
    Load();
    EXPECT_EQ(results, (std::vector<int>{RTERROR, RTERROR, RTNORM, RTERROR}));
}

TEST_F(ApplicationsTest, Function_IsCalledWithItsCodeAndGivesItsResult) {
    ADocument();
    int code = -1;
    LoadWithFunction([&] {
        code = acedGetFunCode();
        acedRetT();
    });
    EXPECT_EQ(Type(L"(appFun)\n"), L"Command: (appFun)\nT\n");
    EXPECT_EQ(code, 3);
    EXPECT_EQ(Messages().back(), L"5 Drawing1.dwg");
}

TEST_F(ApplicationsTest, Function_IsOfEachDocument) {
    ADocument();
    LoadWithFunction([] { acedRetInt(1); });
    host::Document& second = ADocument();
    EXPECT_NE(Type(L"(appfun)\n").find(L"1\n"), std::wstring::npos);
    acDocManager->closeDocument(&second);
    EXPECT_NE(Type(L"(appfun)\n").find(L"1\n"), std::wstring::npos);
}

TEST_F(ApplicationsTest, Function_ArgumentsArriveByType) {
    ADocument();
    std::vector<int> types;
    std::wstring text;
    LoadWithFunction([&] {
        for (const resbuf* at = acedGetArgs(); at != nullptr; at = at->rbnext) {
            types.push_back(at->restype);
            text += at->restype == RTSTR ? at->resval.rstring : L"";
        }
        acedRetVoid();
    });
    EXPECT_EQ(
        Type(L"(appfun 2 70000 1.5 \"x\" T nil '(1.0 2.0) '(1.0 2.0 3.0) '(1 \"y\") '(1 . 2))\n").back(),
        L'\n');
    EXPECT_EQ(types, (std::vector<int>{RTSHORT, RTLONG, RTREAL, RTSTR, RTT, RTNIL, RTPOINT, RT3DPOINT, RTLB,
                                       RTSHORT, RTSTR, RTLE, RTLB, RTSHORT, RTSHORT, RTDOTE}));
    EXPECT_EQ(text, L"xy");
}

TEST_F(ApplicationsTest, Function_WithoutArguments_GetsNull) {
    ADocument();
    bool isNull = false;
    LoadWithFunction([&] { isNull = acedGetArgs() == nullptr; });
    EXPECT_EQ(Type(L"(appfun)\n"), L"Command: (appfun)\nnil\n");
    EXPECT_TRUE(isNull);
}

TEST_F(ApplicationsTest, Function_MayFreeItsArgumentsOrLeaveThem) {
    ADocument();
    bool frees = false;
    LoadWithFunction([&] {
        if (frees) {
            acutRelRb(acedGetArgs());
        }
    });
    const long before = database::LiveResultBuffers();
    Type(L"(appfun 1 \"text\" '(1 2))\n");
    frees = true;
    Type(L"(appfun 1 \"text\" '(1 2))\n");
    EXPECT_EQ(database::LiveResultBuffers(), before);
}

TEST_F(ApplicationsTest, Function_ThatGetsWhatCannotBePassed_IsNotCalled) {
    ADocument();
    bool called = false;
    LoadWithFunction([&] { called = true; });
    const long before = database::LiveResultBuffers();
    EXPECT_NE(Type(L"(appfun 1 'symbol)\n").find(L"; error: bad argument type"), std::wstring::npos);
    EXPECT_NE(Type(L"(appfun (list 1 car))\n").find(L"; error: bad argument type"), std::wstring::npos);
    EXPECT_FALSE(called);
    EXPECT_EQ(database::LiveResultBuffers(), before);
}

TEST_F(ApplicationsTest, Function_ResultsOfEachKind) {
    ADocument();
    std::function<void()> give;
    LoadWithFunction([&] { give(); });
    const auto result = [&](std::function<void()> body) {
        give = std::move(body);
        const std::wstring printed = Type(L"(appfun)\n");
        return printed.substr(std::wstring(L"Command: (appfun)\n").size());
    };
    EXPECT_EQ(result([] { acedRetVoid(); }), L"");
    EXPECT_EQ(result([] { acedRetNil(); }), L"nil\n");
    EXPECT_EQ(result([] { acedRetInt(70000); }), L"70000\n");
    EXPECT_EQ(result([] { acedRetReal(1.5); }), L"1.5\n");
    EXPECT_EQ(result([] { acedRetStr(L"a\"b"); }), L"\"a\\\"b\"\n");
    EXPECT_EQ(result([] {
                  const ads_point point = {1, 2, 3};
                  acedRetPoint(point);
              }),
              L"(1.0 2.0 3.0)\n");
    EXPECT_EQ(result([] {
                  resbuf* list = acutBuildList(RTSHORT, 1, RTSTR, L"x", RTLB, RTT, RTNIL, RTLE, RTNONE);
                  acedRetList(list);
                  acutRelRb(list);
              }),
              L"(1 \"x\" (T nil))\n");
    EXPECT_EQ(result([] {
                  resbuf* list = acutBuildList(RTLB, RTSHORT, 1, RTSHORT, 2, RTDOTE, RTNONE);
                  acedRetList(list);
                  acutRelRb(list);
              }),
              L"(1 . 2)\n");
    EXPECT_EQ(result([] {
                  resbuf* value = acutBuildList(RTREAL, 2.0, RTSHORT, 9, RTNONE);
                  acedRetVal(value);
                  acutRelRb(value);
              }),
              L"2.0\n");
    EXPECT_EQ(result([] { acedRetStr(nullptr); }), L"nil\n");
    EXPECT_EQ(result([] {
                  acedRetVoid();
                  acedRetT();
              }),
              L"T\n");
}

TEST_F(ApplicationsTest, Function_ListResultNestedAtWill_IsRead) {
    ADocument();
    LoadWithFunction([] {
        constexpr int kDeep = 20000;
        resbuf* list = acutNewRb(RTLB);
        resbuf* last = list;
        for (int i = 1; i < kDeep; ++i) {
            last = last->rbnext = acutNewRb(RTLB);
        }
        acedRetList(list);
        acutRelRb(list);
    });
    EXPECT_NE(Type(L"(appfun)\n").find(L"..."), std::wstring::npos);
}

TEST_F(ApplicationsTest, Function_MessageThatFails_IsALispError) {
    ADocument();
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void*) {
        if (message == AcRx::kLoadDwgMsg) {
            acedDefun(L"appfun", 0);
        }
        return message == AcRx::kInvkSubrMsg ? AcRx::kRetError : AcRx::kRetOK;
    };
    Load();
    EXPECT_NE(Type(L"(appfun)\n").find(L"; error: request of the application failed"), std::wstring::npos);
}

TEST_F(ApplicationsTest, RegisteredFunction_IsCalledInPlaceOfTheMessage) {
    ADocument();
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void*) {
        if (message == AcRx::kLoadDwgMsg) {
            acedDefun(L"direct", 7);
            acedRegFunc(
                [] {
                    acedRetInt(acedGetFunCode());
                    return RSRSLT;
                },
                7);
            acedDefun(L"failing", 8);
            acedRegFunc([] { return RSERR; }, 8);
        }
        return AcRx::kRetOK;
    };
    Load();
    Messages();
    EXPECT_EQ(Type(L"(direct)\n"), L"Command: (direct)\n7\n");
    EXPECT_NE(Type(L"(failing)\n").find(L"; error:"), std::wstring::npos);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(ApplicationsTest, CommandFunctionOfAnApplication_IsTyped) {
    ADocument();
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void*) {
        if (message == AcRx::kLoadDwgMsg) {
            acedDefun(L"C:DOIT", 0);
        } else if (message == AcRx::kInvkSubrMsg) {
            acutPrintf(L"done %d\n", 1);
            acedRetVoid();
        }
        return AcRx::kRetOK;
    };
    Load();
    EXPECT_EQ(Type(L"doit\n"), L"Command: doit\ndone 1\n");
}

TEST_F(ApplicationsTest, LoadAndUnload100Times_LeavesNothing) {
    ADocument();
    FakeApplication::onMessage = [](AcRx::AppMsgCode message, void* appId) {
        if (message == AcRx::kInitAppMsg) {
            acrxDynamicLinker->unlockApplication(appId);
        } else if (message == AcRx::kLoadDwgMsg) {
            acedDefun(L"f", 0);
        } else if (message == AcRx::kUnloadDwgMsg) {
            acedUndef(L"f", 0);
        }
        return AcRx::kRetOK;
    };
    m_surface.transcript.clear();
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(Load());
        ASSERT_TRUE(acrxDynamicLinker->unloadModule(kPath));
    }
    EXPECT_EQ(m_surface.transcript, L"");
    EXPECT_EQ(m_loader.loaded, 0);
    EXPECT_TRUE(Documents().Current()->Functions().empty());
}

TEST_F(ApplicationsTest, Registry_HasTheServicesWhileTheHostLives) {
    EXPECT_NE(acrxDynamicLinker, nullptr);
    EXPECT_NE(acedRegCmds, nullptr);
    EXPECT_NE(acedEditor, nullptr);
    EXPECT_EQ(AcEditor::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER)), nullptr);
    m_host.reset();
    EXPECT_EQ(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER), nullptr);
    EXPECT_EQ(acedSetEnv(L"A", L"b"), RTERROR);
}

}  // namespace
}  // namespace workbench::test

// What the module's LISP functions give back to their caller inside the module, which the host never sees.
#include <adscodes.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include "frame/session.h"
#include "shell/lisp_functions.h"
#include "support/windows_driver.h"

namespace {

class LispResultsTest : public testing::Test {
  protected:
    void SetUp() override {
        OleInitialize(nullptr);
        frame::Options options;
        options.withoutModule = true;
        m_session = std::make_unique<frame::Session>();
        ASSERT_TRUE(m_session->Start(options));
    }
    void TearDown() override {
        m_session.reset();
        windows::PumpWaiting();
        OleUninitialize();
    }
    bool Said(const std::wstring& text) const {
        return m_session->TheTranscript().Text().find(text) != std::wstring::npos;
    }

    std::unique_ptr<frame::Session> m_session;
};

TEST_F(LispResultsTest, MissingArguments_GiveTheErrorAndTheFormat) {
    EXPECT_EQ(RSERR, 3);
    EXPECT_EQ(kv2dMenu_Init(), RSERR);
    EXPECT_TRUE(Said(L"Function format is: BOOL.success (kv2dMenu_Init eApp BOOL.ini)\n"));
    EXPECT_EQ(kv2dMenu_SetTabbedMenu(), RSERR);
    EXPECT_TRUE(Said(L"Function format is: VOID (kv2dMenu_SetTabbedMenu STR.Menu)\n"));
    EXPECT_EQ(kv2dMenu_SetToggleState(), RSERR);
    EXPECT_TRUE(Said(L"Function format is: VOID (kv2dMenu_SetToggleState STR.ToggleName BOOL.State)\n"));
}

TEST_F(LispResultsTest, RightArgumentsWithoutAPalette_GiveZeroAndSayNothing) {
    EXPECT_EQ(kv2dMenu_DocXDataHasChanged(), 0);
    EXPECT_EQ(kv2dMenu_DocXRecordHasChanged(), 0);
    EXPECT_FALSE(Said(L"Function format"));
}

}  // namespace

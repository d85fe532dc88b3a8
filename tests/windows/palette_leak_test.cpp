// Long use leaves nothing behind: changes of drawing, palettes made and destroyed.
//
// A run of the suite changes the drawing 1,000 times. KV2D_SWITCHES=10000 in the environment makes it any
// other number; KV2D_TEST_SECONDS=0 beside it takes the limit of a case away.
#include "frame/resource_counts.h"
#include "palette_fixture.h"

namespace {

int WantedSwitches() {
    const char* text = std::getenv("KV2D_SWITCHES");
    return text ? std::atoi(text) : 1000;
}

// In use on the heaps; the system's own count of private memory is 0 under Wine.
std::size_t HeapBytes() {
    return frame::ResourceCounts::Now().memory * 1024;
}

// Windows, menus, icons, cursors. 0 on a system that does not count them; icons show in their bitmaps there.
DWORD UserObjects() {
    return GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
}

class PaletteLeaks : public PaletteTest {
  protected:
    int m_changes = 0;
};

constexpr SIZE_T kMegabyte = 1024 * 1024;

}  // namespace

TEST_F(PaletteLeaks, ManyChangesOfDrawing_LeaveNothingBehind) {
    UseUsualDatabase();
    StartPalette(kAppIsometric);
    AcApDocument* first = NewDrawing(5);
    AddElement(12);
    AcApDocument* second = NewDrawing(5);
    AcApDocument* third = NewDrawing(0);
    const auto change = [&](int times) {
        for (int i = 0; i < times; ++i)
            for (AcApDocument* document : {first, third, second}) {
                acDocManager->activateDocument(document);
                if (++m_changes % 50 == 0) windows::PumpWaiting();
            }
    };
    change(20);
    windows::PumpWaiting();
    const windows::HandleCount before = windows::HandleCount::Now();
    const DWORD userBefore = UserObjects();
    const std::size_t memoryBefore = HeapBytes();
    change((WantedSwitches() + 2) / 3);
    windows::PumpWaiting();
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_LE(UserObjects(), userBefore);
    EXPECT_LE(HeapBytes(), memoryBefore + kMegabyte);
    RecordProperty("changes", m_changes);
}

TEST_F(PaletteLeaks, PaletteMadeAndDestroyed100Times_LeavesNothingBehind) {
    UseUsualDatabase();
    const auto once = [this](int app) {
        StartPalette(app);
        NewDrawing(5);
        End();
    };
    for (int i = 0; i < 3; ++i)
        for (int app : {kAppElectric, kAppPid, kAppIsometric, kAppOrtho})
            once(app);
    const windows::HandleCount before = windows::HandleCount::Now();
    const DWORD userBefore = UserObjects();
    const std::size_t memoryBefore = HeapBytes();
    for (int i = 0; i < 25; ++i)
        for (int app : {kAppElectric, kAppPid, kAppIsometric, kAppOrtho})
            once(app);
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_LE(after.gdi, before.gdi + 10);  // not one for each time
    EXPECT_LE(after.windows, before.windows);
    EXPECT_LE(UserObjects(), userBefore);
    EXPECT_LE(HeapBytes(), memoryBefore + 4 * kMegabyte);
    EXPECT_EQ(test_control::Seen().alive, 0);
}

#include "frame_fixture.h"

namespace frame_test {

BEGIN_MESSAGE_MAP(RecordingPalette, CAdUiPalette)
ON_WM_SIZE()
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(RecordingSet, CAdUiPaletteSet)
ON_WM_WINDOWPOSCHANGED()
END_MESSAGE_MAP()

}  // namespace frame_test

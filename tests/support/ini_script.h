// Plays a random script on the real ini document and on the plain reference at once and compares all that a
// caller can see. Used by the fuzz target and by the differential test.
#pragma once

#include <cstdint>
#include <string_view>

// The first bytes choose the flags and the operations, the rest is the file that is loaded first. Aborts,
// after telling what differs, at the first difference. Installs a platform of its own for the time of the
// call.
void PlayIniScript(std::string_view script);

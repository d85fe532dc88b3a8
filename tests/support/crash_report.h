// Makes a crash of a test program tell where it happened instead of opening a system error box.
#pragma once

void InstallCrashReport();

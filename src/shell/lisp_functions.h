// The functions that the module offers to LISP. Each takes its arguments from the host and gives RSERR for a
// wrong list, after printing its own format; 0 otherwise. A missing palette is no error.
#pragma once

int kv2dMenu_Init();
int kv2dMenu_DocXDataHasChanged();
int kv2dMenu_DocXRecordHasChanged();
int kv2dMenu_SetToggleState();
int kv2dMenu_SetTabbedMenu();

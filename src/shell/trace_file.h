// Trace markers into a file, for administrators who look for the place where something hangs.
#pragma once

// Starts appending the module's trace markers to the file that the environment variable KV2D_TRACE names.
// Without the variable, or if the file cannot be opened, tracing stays off.
void StartTraceFile();
void StopTraceFile();

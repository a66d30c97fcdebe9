// Variables of a thread that the short calls read: at a fixed distance from the thread's own block, without the call
// that finds those of a library which was loaded late. The room for such variables is small; keep it to a few words.
#pragma once

#define HOST_THREAD_LOCAL __attribute__((tls_model("initial-exec"))) thread_local

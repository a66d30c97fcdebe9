// The profile of a test program on the native host.
#pragma once

// The file that the program starts with. A test that names another one (HostSetProfilePath) names this one again at its
// end.
const char* TestProfilePath();

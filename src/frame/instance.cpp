#include "instance.h"

HINSTANCE gLibInstance = nullptr;

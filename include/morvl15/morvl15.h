// All families of the library.
#ifndef MORVL15_MORVL15_H
#define MORVL15_MORVL15_H

#include <morvl15/base.h>
#include <morvl15/datetime.h>
#include <morvl15/dialog.h>
#include <morvl15/font.h>
#include <morvl15/format.h>
#include <morvl15/frame.h>
#include <morvl15/intl.h>
#include <morvl15/mask.h>
#include <morvl15/memory.h>
#include <morvl15/number.h>
#include <morvl15/print.h>

#endif

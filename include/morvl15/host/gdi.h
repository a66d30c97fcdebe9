// Device contexts of the native host, and what is drawn on them: pens, brushes, fonts, text, documents. Each call does
// what the platform documents under the same name.
//
// A context draws on a picture of the screen, of 1024 by 768 pixels at 96 dots per inch that nobody sees, on a picture
// in memory, or on the pages of a printer. Sizes of the mapping modes follow from the device's dots per inch: 1000
// units of MM_HIENGLISH are exactly an inch's dots. Contexts and objects are the process's; a context is for one
// thread at a time.
#ifndef MORVL15_HOST_GDI_H
#define MORVL15_HOST_GDI_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

typedef struct DEVMODEA DEVMODEA;

// ---- rectangles and arithmetic ----------------------------------------------------------------------------------

MORVL_HOST_API BOOL SetRect(RECT* rect, INT left, INT top, INT right, INT bottom);
MORVL_HOST_API BOOL SetRectEmpty(RECT* rect);
MORVL_HOST_API BOOL IsRectEmpty(const RECT* rect);
MORVL_HOST_API BOOL OffsetRect(RECT* rect, INT dx, INT dy);
MORVL_HOST_API BOOL InflateRect(RECT* rect, INT dx, INT dy);
MORVL_HOST_API BOOL IntersectRect(RECT* result, const RECT* a, const RECT* b);

MORVL_HOST_API INT MulDiv(INT value, INT numerator, INT denominator);  // halves go away from zero; -1 past the range

// ---- contexts ---------------------------------------------------------------------------------------------------

// The driver "DISPLAY" is the screen; for a printer the device's name counts, the driver and the port may be null.
MORVL_HOST_API HDC CreateDCA(LPCSTR driver, LPCSTR device, LPCSTR port, const DEVMODEA* mode);
MORVL_HOST_API HDC CreateICA(LPCSTR driver, LPCSTR device, LPCSTR port,
                             const DEVMODEA* mode);  // nothing is drawn on it
MORVL_HOST_API HDC CreateCompatibleDC(HDC dc);       // with a picture of one pixel, at the dots per inch of the other
MORVL_HOST_API BOOL DeleteDC(HDC dc);

// A window's inner area, the whole window; null is the screen. Windows here have no border.
MORVL_HOST_API HDC GetDC(HWND window);
MORVL_HOST_API HDC GetWindowDC(HWND window);
MORVL_HOST_API INT ReleaseDC(HWND window, HDC dc);

MORVL_HOST_API INT SaveDC(HDC dc);                 // the number of the saved state, 1 for the first
MORVL_HOST_API BOOL RestoreDC(HDC dc, INT state);  // or -1 for the last saved one, -2 for the one before

#define TECHNOLOGY 2
#define HORZSIZE 4  // millimetres
#define VERTSIZE 6
#define HORZRES 8  // pixels, the printable area's on a printer
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMCOLORS 24
#define RASTERCAPS 38
#define LOGPIXELSX 88  // dots per inch
#define LOGPIXELSY 90
#define PHYSICALWIDTH 110  // pixels; the paper's
#define PHYSICALHEIGHT 111
#define PHYSICALOFFSETX 112  // pixels from the paper's edge to the printable area
#define PHYSICALOFFSETY 113

#define DT_RASDISPLAY 1
#define DT_RASPRINTER 2

MORVL_HOST_API INT GetDeviceCaps(HDC dc, INT index);

#define DRAFTMODE 7           // in: an INT
#define QUERYESCSUPPORT 8     // in: an INT, the escape asked for
#define SETABORTPROC 9        // in: the procedure
#define GETPHYSPAGESIZE 12    // out: a POINT
#define GETPRINTINGOFFSET 13  // out: a POINT
#define SETCOPYCOUNT 17       // in: an INT, out: the count that the printer makes of it

// Above 0 for success, 0 for an escape that the device doesn't have, below 0 for a failure.
MORVL_HOST_API INT Escape(HDC dc, INT escape, INT inBytes, LPCSTR in, LPVOID out);

// ---- mapping ----------------------------------------------------------------------------------------------------

#define MM_TEXT 1       // pixels, y grows downward; in all others upward
#define MM_LOMETRIC 2   // tenths of a millimetre
#define MM_HIMETRIC 3   // hundredths of a millimetre
#define MM_LOENGLISH 4  // hundredths of an inch
#define MM_HIENGLISH 5  // thousandths of an inch
#define MM_TWIPS 6      // 1440ths of an inch

MORVL_HOST_API INT SetMapMode(HDC dc, INT mode);  // the mode before, 0 for a failure
MORVL_HOST_API INT GetMapMode(HDC dc);
MORVL_HOST_API BOOL SetWindowOrgEx(HDC dc, INT x, INT y, POINT* old);  // a null output is left out, here and below
MORVL_HOST_API BOOL GetWindowOrgEx(HDC dc, POINT* origin);
MORVL_HOST_API BOOL SetViewportOrgEx(HDC dc, INT x, INT y, POINT* old);
MORVL_HOST_API BOOL GetViewportOrgEx(HDC dc, POINT* origin);
MORVL_HOST_API BOOL DPtoLP(HDC dc, POINT* points, INT count);
MORVL_HOST_API BOOL LPtoDP(HDC dc, POINT* points, INT count);

#define NULLREGION 1
#define SIMPLEREGION 2

// Both answer the kind of the clip region, 0 for a failure. In the modes where y grows upward, the top of a clip box is
// above its bottom in number too.
MORVL_HOST_API INT GetClipBox(HDC dc, RECT* box);
MORVL_HOST_API INT IntersectClipRect(HDC dc, INT left, INT top, INT right, INT bottom);

// ---- objects ----------------------------------------------------------------------------------------------------
//
// An object that is deleted while a context has it selected goes when the context takes another.

typedef DWORD COLORREF;
#define RGB(red, green, blue) \
    ((COLORREF)((DWORD)(BYTE)(red) | ((DWORD)(BYTE)(green) << 8) | ((DWORD)(BYTE)(blue) << 16)))
#define CLR_INVALID 0xFFFFFFFFu

#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_GUI_FONT 17

#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_DASHDOT 3
#define PS_DASHDOTDOT 4
#define PS_NULL 5
#define PS_INSIDEFRAME 6

#define LF_FACESIZE 32

typedef struct LOGFONTA {
    LONG lfHeight;      // logical units: above 0 the cell's, below 0 the characters', 0 for 12 points
    LONG lfWidth;       // of an average character; 0 for the face's own proportion
    LONG lfEscapement;  // tenths of a degree, anticlockwise
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE];
} LOGFONTA;

#define FW_DONTCARE 0
#define FW_LIGHT 300
#define FW_NORMAL 400
#define FW_BOLD 700

#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define SYMBOL_CHARSET 2
#define SHIFTJIS_CHARSET 128
#define HANGUL_CHARSET 129
#define GB2312_CHARSET 134
#define CHINESEBIG5_CHARSET 136
#define GREEK_CHARSET 161
#define TURKISH_CHARSET 162
#define VIETNAMESE_CHARSET 163
#define HEBREW_CHARSET 177
#define ARABIC_CHARSET 178
#define BALTIC_CHARSET 186
#define RUSSIAN_CHARSET 204
#define THAI_CHARSET 222
#define EASTEUROPE_CHARSET 238

#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0x00
#define FF_ROMAN 0x10
#define FF_SWISS 0x20
#define FF_MODERN 0x30
#define FF_SCRIPT 0x40
#define FF_DECORATIVE 0x50

MORVL_HOST_API HGDIOBJ GetStockObject(INT object);                    // never needs to be deleted
MORVL_HOST_API HPEN CreatePen(INT style, INT width, COLORREF color);  // width in logical units; 0 is a pixel
MORVL_HOST_API HBRUSH CreateSolidBrush(COLORREF color);
MORVL_HOST_API HFONT CreateFontIndirectA(const LOGFONTA* font);
MORVL_HOST_API HBITMAP CreateCompatibleBitmap(HDC dc, INT width, INT height);  // to be drawn on in a context in memory
MORVL_HOST_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);  // what was selected before; null for a failure
MORVL_HOST_API BOOL DeleteObject(HGDIOBJ object);
MORVL_HOST_API INT GetObjectA(HGDIOBJ object, INT bytes, LPVOID record);  // a font's LOGFONTA

// ---- drawing ----------------------------------------------------------------------------------------------------

#define TRANSPARENT 1
#define OPAQUE 2

#define SRCCOPY 0x00CC0020u

MORVL_HOST_API COLORREF SetTextColor(HDC dc, COLORREF color);
MORVL_HOST_API COLORREF GetTextColor(HDC dc);
MORVL_HOST_API COLORREF SetBkColor(HDC dc, COLORREF color);
MORVL_HOST_API COLORREF GetBkColor(HDC dc);
MORVL_HOST_API INT SetBkMode(HDC dc, INT mode);
MORVL_HOST_API INT GetBkMode(HDC dc);

MORVL_HOST_API BOOL MoveToEx(HDC dc, INT x, INT y, POINT* old);
MORVL_HOST_API BOOL LineTo(HDC dc, INT x, INT y);
MORVL_HOST_API BOOL Polyline(HDC dc, const POINT* points, INT count);
MORVL_HOST_API BOOL Polygon(HDC dc, const POINT* points, INT count);
MORVL_HOST_API BOOL Rectangle(HDC dc, INT left, INT top, INT right, INT bottom);
MORVL_HOST_API BOOL Ellipse(HDC dc, INT left, INT top, INT right, INT bottom);
MORVL_HOST_API INT FillRect(HDC dc, const RECT* rect, HBRUSH brush);
MORVL_HOST_API INT FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
MORVL_HOST_API BOOL BitBlt(HDC dc, INT x, INT y, INT width, INT height, HDC source, INT sourceX, INT sourceY,
                           DWORD operation);  // SRCCOPY only, from a context of the screen or in memory

// ---- text: bytes of the code page in force ----------------------------------------------------------------------

typedef struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICA;

#define TMPF_FIXED_PITCH 0x01  // set for a face whose pitch is not fixed
#define TMPF_VECTOR 0x02
#define TMPF_TRUETYPE 0x04

#define TA_LEFT 0
#define TA_RIGHT 2
#define TA_CENTER 6
#define TA_TOP 0
#define TA_BOTTOM 8
#define TA_BASELINE 24
#define TA_NOUPDATECP 0
#define TA_UPDATECP 1

#define ETO_OPAQUE 0x0002u
#define ETO_CLIPPED 0x0004u

#define DT_TOP 0x0000u
#define DT_LEFT 0x0000u
#define DT_CENTER 0x0001u
#define DT_RIGHT 0x0002u
#define DT_VCENTER 0x0004u
#define DT_BOTTOM 0x0008u
#define DT_WORDBREAK 0x0010u
#define DT_SINGLELINE 0x0020u
#define DT_NOCLIP 0x0100u
#define DT_CALCRECT 0x0400u
#define DT_NOPREFIX 0x0800u

MORVL_HOST_API UINT SetTextAlign(HDC dc, UINT align);
MORVL_HOST_API UINT GetTextAlign(HDC dc);
MORVL_HOST_API BOOL TextOutA(HDC dc, INT x, INT y, LPCSTR text, INT bytes);
MORVL_HOST_API BOOL ExtTextOutA(HDC dc, INT x, INT y, UINT options, const RECT* rect, LPCSTR text, UINT bytes,
                                const INT* advances);
MORVL_HOST_API INT DrawTextA(HDC dc, LPCSTR text, INT bytes, RECT* rect, UINT format);  // the text's height
MORVL_HOST_API BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, INT bytes, SIZE* size);
// Width in the low 16 bits, height in the high ones. Tab stops in logical units; none means every 8 average characters.
MORVL_HOST_API DWORD GetTabbedTextExtentA(HDC dc, LPCSTR text, INT bytes, INT stops, const INT* positions);
MORVL_HOST_API BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metric);
MORVL_HOST_API INT GetTextFaceA(HDC dc, INT bytes, LPSTR name);

// ---- fonts ------------------------------------------------------------------------------------------------------

#define RASTER_FONTTYPE 1
#define DEVICE_FONTTYPE 2
#define TRUETYPE_FONTTYPE 4

typedef INT(CALLBACK* FONTENUMPROCA)(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD type, LPARAM value);

// Calls for the scalable fonts of the machine, until the callback answers 0: without a face for one font of each face,
// in the order of their names; with a face for each of its styles, from the lightest on, upright before slanted.
// The result is the callback's last one, or 1 where there was no font.
MORVL_HOST_API INT EnumFontsA(HDC dc, LPCSTR face, FONTENUMPROCA callback, LPARAM value);

// ---- documents --------------------------------------------------------------------------------------------------

typedef BOOL(CALLBACK* ABORTPROC)(HDC dc, INT code);

typedef struct DOCINFOA {
    INT cbSize;
    LPCSTR lpszDocName;
    LPCSTR lpszOutput;
    LPCSTR lpszDatatype;
    DWORD fwType;
} DOCINFOA;

#define SP_NOTREPORTED 0x4000
#define SP_ERROR (-1)
#define SP_APPABORT (-2)
#define SP_USERABORT (-3)
#define SP_OUTOFDISK (-4)
#define SP_OUTOFMEMORY (-5)

// Above 0 for success, else one of the codes above. While a printer works it calls the abort procedure, with 0 or the
// code of its trouble; after an answer of 0 the document is given up, and its calls fail with SP_APPABORT.
MORVL_HOST_API INT SetAbortProc(HDC dc, ABORTPROC procedure);
MORVL_HOST_API INT StartDocA(HDC dc, const DOCINFOA* document);  // the job's number
MORVL_HOST_API INT StartPage(HDC dc);
MORVL_HOST_API INT EndPage(HDC dc);
MORVL_HOST_API INT EndDoc(HDC dc);
MORVL_HOST_API INT AbortDoc(HDC dc);

MORVL_END_C

#endif

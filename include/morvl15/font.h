// Fonts: lists of the fonts of a device as blocks of records, and single facts of a face.
//
// A list is a movable global block (GlobalAlloc) that the caller locks to read it and frees in the end. It starts with
// the count of its records, a 16-bit signed number; the records follow without a gap, in the order in which the
// platform tells of the fonts. A list holds at most 32,767 records. Any thread may call, each with a device context of
// its own.
#ifndef MORVL15_FONT_H
#define MORVL15_FONT_H

#include <morvl15/base.h>
#include <morvl15/host.h>

MORVL_BEGIN_C

#pragma pack(push, 1)

// The platform's TEXTMETRICA without the bytes that it ends with to fill up: 53 bytes.
typedef struct FonTextMetric {
    int32_t tmHeight;
    int32_t tmAscent;
    int32_t tmDescent;
    int32_t tmInternalLeading;
    int32_t tmExternalLeading;
    int32_t tmAveCharWidth;
    int32_t tmMaxCharWidth;
    int32_t tmWeight;
    int32_t tmOverhang;
    int32_t tmDigitizedAspectX;
    int32_t tmDigitizedAspectY;
    uint8_t tmFirstChar;
    uint8_t tmLastChar;
    uint8_t tmDefaultChar;
    uint8_t tmBreakChar;
    uint8_t tmItalic;
    uint8_t tmUnderlined;
    uint8_t tmStruckOut;
    uint8_t tmPitchAndFamily;
    uint8_t tmCharSet;
} FonTextMetric;

// The records of the three lists.
typedef struct FonFaceRecord {
    char faceName[LF_FACESIZE];  // zero-terminated
} FonFaceRecord;

typedef struct FonSizeRecord {
    LOGFONTA logFont;
    FonTextMetric textMetric;
} FonSizeRecord;

typedef struct FonMetricsRecord {
    LOGFONTA logFont;
    FonTextMetric textMetric;
    uint16_t fontType;  // RASTER_FONTTYPE, DEVICE_FONTTYPE, TRUETYPE_FONTTYPE
} FonMetricsRecord;

// The running state of a list: what FontEnumFaces and FontEnumSizes get as their value. All zero at first; `block` is
// the list at the end, and the caller's.
typedef struct FonEnumState {
    int16_t count;  // of the records so far
    HGLOBAL block;  // null before the first, and after a failure
} FonEnumState;

#pragma pack(pop)

// ---- lists ------------------------------------------------------------------------------------------------------

// FonGetFontFaces: lists the names of a device's faces, as FonFaceRecord.
//   dc  in:  a device or information context
// Result: the block, of exactly the size that its records need; null for a context without fonts, for no context and
// when there is no memory, which can't be told apart.
MORVL_API HGLOBAL MORVL_CALL FonGetFontFaces(HDC dc);

// FonGetFontSizes: lists the sizes and styles of one face, as FonSizeRecord.
//   dc    in:  a device or information context
//   face  in:  the face's name, without regard to case; null lists one font of each face
// Result: as FonGetFontFaces; null for a face that doesn't exist too.
MORVL_API HGLOBAL MORVL_CALL FonGetFontSizes(HDC dc, const char* face);

// FonGetFontFaceMetrics: lists one font of each face with its metric and type, as FonMetricsRecord.
//   dc  in:  a device or information context
// Result: as FonGetFontFaces.
MORVL_API HGLOBAL MORVL_CALL FonGetFontFaceMetrics(HDC dc);

// FontEnumFaces, FontEnumSizes: the callbacks (FONTENUMPROCA) of FonGetFontFaces and FonGetFontSizes, for an
// enumeration of the caller's own. Each adds one record to a list.
//   font    in:      the logical font; its name is cut to 31 bytes where it has no terminator
//   metric  in:      the metric; FontEnumFaces doesn't read it and takes null
//   type    in:      not read
//   value   in/out:  the address of a FonEnumState; its block is never locked
// Result: 1 to go on. 0 to stop: when there is no memory, and then the list so far is freed and the block null; when
// the list is full, which it stays; and for a null argument. The block has room for its records and, so that a list of
// many doesn't move with each of them, may have more.
MORVL_API INT MORVL_CALL FontEnumFaces(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD type, LPARAM value);
MORVL_API INT MORVL_CALL FontEnumSizes(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD type, LPARAM value);

// ---- single facts -----------------------------------------------------------------------------------------------

// FonGetFontCharSet: the character set of a face, which is that of the first font that the platform tells of it.
//   dc       in:   a device or information context
//   face     in:   the face's name; null takes the first font of all
//   charSet  out:  LOGFONTA's lfCharSet; left as it is when there is no such face. Null is left out
// Result: 1, whether there is such a face or not; 0 for a null context.
MORVL_API int32_t MORVL_CALL FonGetFontCharSet(HDC dc, const char* face, uint8_t* charSet);

// FonGetFontPitchAndFamily: the same for LOGFONTA's lfPitchAndFamily.
MORVL_API int32_t MORVL_CALL FonGetFontPitchAndFamily(HDC dc, const char* face, uint8_t* pitchAndFamily);

// FonFixLogfont: gives a logical font the pitch, family and character set of the face that it names. All else stays,
// and all of it where there is no such face.
//   dc       in:      a device or information context
//   logfont  in/out:  the logical font; a name without terminator counts as one of 31 bytes. Null is left out
// Result: 1, whether there is such a face or not; 0 for a null context.
MORVL_API int32_t MORVL_CALL FonFixLogfont(HDC dc, LOGFONTA* logfont);

MORVL_END_C

#endif

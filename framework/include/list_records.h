// Records that the module and the list service exchange byte for byte.
#pragma once

#include <windef.h>

#include <cstddef>

#pragma pack(push, 1)
struct CustomPaperRecord {
    DWORD id;             // below 512: papers of the printer description
    LONG serviceNumber;   // the list service's own number; -1 in a new record
    CHAR internalName[12];
    DWORD unit;           // 0 millimetres, otherwise inches
    CHAR displayName[68];
    DWORD widthTenths;    // tenths of a millimetre
    DWORD heightTenths;
    DWORD widthInches;    // packed: whole inches high word, sixteenths low word
    DWORD heightInches;
    BYTE zero1[8];
    DWORD kept[4];        // the list service's; printable margins in tenths of a millimetre
    BYTE zero2[36];
};
static_assert(sizeof(CustomPaperRecord) == 168);
static_assert(offsetof(CustomPaperRecord, unit) == 20);
static_assert(offsetof(CustomPaperRecord, displayName) == 24);
static_assert(offsetof(CustomPaperRecord, widthTenths) == 92);
static_assert(offsetof(CustomPaperRecord, kept) == 116);

struct WatermarkRecord {
    DWORD id;  // below 128: watermarks of the printer description
    CHAR name[23];
    CHAR text[256];
    CHAR typeface[33];
    DWORD size;  // points
    BYTE bold;
    BYTE italic;
    BYTE red;
    BYTE green;
    BYTE blue;
    BYTE angleMode;  // 1 horizontal, 2 diagonal, 3 vertical, 4 user angle
    BYTE zero[2];
    LONG angle;  // degrees, counter-clockwise
    DWORD positionMode;
    LONG offsetX;  // points from the page centre
    LONG offsetY;
};
static_assert(sizeof(WatermarkRecord) == 344);
static_assert(offsetof(WatermarkRecord, size) == 316);
static_assert(offsetof(WatermarkRecord, angle) == 328);

// Input bins use `identifier` as the dmDefaultSource value; output bins as the bin's bit.
struct BinRecord {
    CHAR displayName[68];
    DWORD identifier;
    DWORD entryId;
    BYTE reserved[19];
    CHAR optionItem[33];  // name whose show-by-option test decides whether the bin is offered
};
static_assert(sizeof(BinRecord) == 128);
static_assert(offsetof(BinRecord, identifier) == 68);
static_assert(offsetof(BinRecord, optionItem) == 95);
#pragma pack(pop)

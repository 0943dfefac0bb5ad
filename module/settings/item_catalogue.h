// The item catalogue: one record for every control that carries a setting or a caption, and the
// records its kinds need. Pages, binding, rules and saved settings walk it; all lookups go from the
// top and give the first match.
#pragma once
#include <cstddef>
#include <span>
#include <windows.h>

namespace kvui {

enum ItemType : DWORD {
    kItemText = 0,  // static text or group box
    kItemEdit = 1,
    kItemCombo = 2,
    kItemRadio = 3,
    kItemCheck = 4,
    kItemButton = 6,
    kItemList = 7,      // fed at run time
    kItemMaskList = 8,  // no row of this driver
    kItemSlider = 9,
    kItemKeepSetting = 21,  // no row of this driver, nor of the three below
    kItemSavedCombo = 30,
    kItemSavedList = 31,
    kItemSavedButton = 32,
    kItemAnyType = 0xFFFFFFFF,  // for NextItemOfDialog
};

enum MaskMode : DWORD {
    kMaskWholeField = 0,  // the control owns the whole field
    kMaskBitNumbers = 1,  // owns the bits of the mask; rule conditions name bit numbers
    kMaskValues = 2,      // owns the bits of the mask; rule conditions compare values
};

enum EditKind : DWORD {
    kEditNumeric = 0,  // the character set is what the edit accepts
    kEditText = 1,     // the character set is what the edit refuses
};

enum CheckTest : DWORD {
    kCheckEquals = 0,  // checked when the value equals the checked value
    kCheckAnyBit = 1,  // checked when the value has any bit of the checked value
};

enum ButtonKind : DWORD {
    kButtonOpenDialog = 0,
    kButtonOpenAndSelect = 1,  // then select the dialog's result in the control to update
    kButtonResetRecord = 3,    // the whole record to the printer's defaults
    kButtonMoveEntries = 4,    // between the two installed-options lists
};

// Lists whose entries users change: the list service keeps them, overlays are files.
enum class RunTimeList {
    kNone,  // the row has its entries
    kPapers,
    kOutputPapers,  // with an entry of 0 before them: printed on the paper it is laid out for
    kSources,
    kOtherSources,  // of the first page, covers and interleaves
    kMailBins,
    kWatermarks,
    kOverlays,
};

constexpr std::size_t kItemNameSize = 128;

struct SelectItem {
    DWORD stringId;  // 0 ends the list
    DWORD value;
    DWORD iconId;
    char name[kItemNameSize];
    char secondName[kItemNameSize];
    char thirdName[kItemNameSize];
};

struct CheckItem {
    CheckTest testMode;
    DWORD checkedValue;
    DWORD clearedValue;
    DWORD shownWhileChecked;  // companion controls, 0 for none
    DWORD shownWhileCleared;
    DWORD checkedIcon;
    DWORD clearedIcon;
    bool alwaysEnabled;  // whatever the installed options show
};

struct RadioItem {
    DWORD buttonId;  // 0 ends the list
    DWORD captionId;
    DWORD value;
    DWORD iconId;
    char name[kItemNameSize];
};

// A secret number of a job, which counts while its bit of mdmSecurity is set.
struct JobNumber {
    DWORD securityBit;
    DWORD emptyValue;  // stored for an edit without a number
    UINT titleId;      // of the message when it is left empty all the same
    UINT textId;
};

struct EditAttribute {
    EditKind kind;
    char characters[64];
    LONG maxCharacters;
    LONG minimum;
    LONG maximum;
    LONG decimals;
    DWORD spinId;
    DWORD rangeTextId;
    const JobNumber* job;  // null for all other numbers
};

struct SliderItem {
    DWORD maximum;
    DWORD minimum;
    DWORD tickFrequency;
    DWORD pageSize;
    DWORD valueEditId;
    DWORD minimumTextId;
    DWORD maximumTextId;
    DWORD spinId;
    LONG storedMinimum;  // left of 0 where the middle is stored as 0; 0: stored as it is shown
};

struct MoveRecord {
    DWORD sourceListId;
    char settingField[kItemNameSize];
};

struct ButtonItem {
    ButtonKind kind;
    char templateName[68];
    DLGPROC procedure;
    const MoveRecord* move;  // kButtonMoveEntries only
    DWORD controlToUpdate;   // kButtonOpenAndSelect only
};

struct ControlItem {
    DWORD controlId;
    char controlName[kItemNameSize];
    char dialogName[kItemNameSize];
    ItemType type;
    char settingField[kItemNameSize];  // empty for controls that edit nothing
    char optionKey[kItemNameSize];     // "ShowItemAccordingToOption"
    char conflictKey[kItemNameSize];   // "ConflictConditions"
    char grayOutKey[kItemNameSize];    // "GrayOutConditions"
    DWORD captionId;
    DWORD pictureId;
    MaskMode maskMode;
    DWORD mask;
    const SelectItem* selectList;  // types 2 and 7; null for run-time lists
    char listName[kItemNameSize];  // rules-file section with further entries
    DWORD defaultIconId;
    DWORD alternateIds[4];
    const RadioItem* radioList;
    const CheckItem* check;
    const EditAttribute* edit;
    const ButtonItem* button;
    DWORD listControlId;
    DWORD entryEditMode;  // 1 for edits, 2 for all other rows
    DWORD entryEditWords[2];
    const SliderItem* slider;
    const void* group;
    DWORD helpId;
    RunTimeList runTimeList;
};

struct HelpPair {
    DWORD controlId;
    DWORD helpId;
};

constexpr std::size_t kMostCatalogueRows = 256;  // row numbers are kept in bytes
extern const std::span<const ControlItem> kCatalogue;
extern const std::span<const HelpPair> kHelpTable;

// The apply button of the mailbox dialog, which opens nothing.
extern ButtonItem mailBoxApplyButton;

const ControlItem* ItemById(DWORD controlId);
const ControlItem* ItemByName(const char* controlName);
DWORD ControlIdByName(const char* controlName);  // 0 for none

// First row at or after start on that dialog ("" for every dialog) and of that type (kItemAnyType
// for every type). *next receives the number of the row after it. Null when nothing is left.
const ControlItem* NextItemOfDialog(std::size_t start, const char* dialogName, ItemType type,
                                    std::size_t* next);

// The resource id of the icon that stands for a value of the item; 0 for none.
DWORD IconForValue(const ControlItem& item, DWORD value);

// Popup help topic of a control: the help table first, then the catalogue; 0 for none.
DWORD HelpIdFor(DWORD controlId);

// Whether the entries of a list stand for bits of one word, several of them at once.
bool IsSetOfEntries(const ControlItem& item);

// The entries of an item's static list, without the terminator; empty when it has none.
std::span<const SelectItem> SelectEntries(const ControlItem& item);
std::span<const RadioItem> RadioButtons(const ControlItem& item);

// The item's part of its setting field: ANDed with the mask in mask modes 1 and 2. FALSE when the
// item edits no readable field.
BOOL ReadItemValue(const DEVMODEA* record, const ControlItem& item, DWORD* value);

// Writes the item's part of its field. TRUE when changed; then *oldWord (may be null) is the whole
// old field. Undo with RestoreItemField, which puts the whole field back.
BOOL WriteItemValue(DEVMODEA* record, const ControlItem& item, DWORD value, DWORD* oldWord);
BOOL RestoreItemField(DEVMODEA* record, const ControlItem& item, DWORD oldWord);

}  // namespace kvui

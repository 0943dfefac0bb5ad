// The records of the catalogue's check boxes, radio groups, edits, sliders and buttons. The rows in
// catalogue_rows.cpp point to them.
#pragma once
#include "exports.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/catalogue_names.h"
#include "settings/dialog_procedures.h"
#include "sheet/private_devmode.h"

namespace kvui {

// A check box whose value is compared with the checked value as a whole.
constexpr CheckItem Equals(DWORD checked, DWORD cleared, DWORD checkedIcon = 0,
                           DWORD clearedIcon = 0) {
    return {kCheckEquals, checked, cleared, 0, 0, checkedIcon, clearedIcon, false};
}
// A check box that shows checked while any bit of the checked value is set.
constexpr CheckItem AnyBit(DWORD checked, DWORD cleared) {
    return {kCheckAnyBit, checked, cleared, 0, 0, 0, 0, false};
}
constexpr CheckItem AlwaysEnabled(CheckItem check) {
    check.alwaysEnabled = true;
    return check;
}

// A radio button's caption string has the button's own id.
constexpr RadioItem Choice(DWORD buttonId, DWORD value, DWORD iconId = 0) {
    return {buttonId, buttonId, value, iconId, ""};
}
constexpr RadioItem kNoMoreChoices = Choice(0, 0);

consteval EditAttribute Characters(EditKind kind, const char* characters, LONG maxCharacters,
                                   LONG minimum, LONG maximum, DWORD spinId, DWORD rangeTextId) {
    EditAttribute edit{kind, "", maxCharacters, minimum, maximum, 0, spinId, rangeTextId, nullptr};
    SetName(edit.characters, characters);
    return edit;
}
consteval EditAttribute Digits(LONG maxCharacters, LONG minimum, LONG maximum, DWORD spinId = 0,
                               DWORD rangeTextId = 0) {
    return Characters(kEditNumeric, "0123456789", maxCharacters, minimum, maximum, spinId,
                      rangeTextId);
}
consteval EditAttribute SignedDigits(LONG maxCharacters, LONG minimum, LONG maximum, DWORD spinId,
                                     DWORD rangeTextId) {
    return Characters(kEditNumeric, "-0123456789", maxCharacters, minimum, maximum, spinId,
                      rangeTextId);
}

consteval EditAttribute OfJob(const JobNumber* job, EditAttribute edit) {
    edit.job = job;
    return edit;
}

// Every slider runs from 0 to 100 on the screen, in pages and ticks of ten.
constexpr SliderItem Percent(DWORD valueEditId, DWORD minimumTextId, DWORD maximumTextId,
                             DWORD spinId, LONG storedMinimum) {
    return {100, 0, 10, 10, valueEditId, minimumTextId, maximumTextId, spinId, storedMinimum};
}

consteval ButtonItem Opens(const char* templateName, DLGPROC procedure) {
    ButtonItem button{kButtonOpenDialog, "", procedure, nullptr, 0};
    SetName(button.templateName, templateName);
    return button;
}
consteval ButtonItem OpensAndSelects(const char* templateName, DLGPROC procedure,
                                     DWORD controlToUpdate) {
    ButtonItem button = Opens(templateName, procedure);
    button.kind = kButtonOpenAndSelect;
    button.controlToUpdate = controlToUpdate;
    return button;
}
constexpr ButtonItem Moves(const MoveRecord* move) {
    return {kButtonMoveEntries, "", nullptr, move, 0};
}

constexpr MoveRecord kFromInstallable = {IDC_LIST_INSTALLABLE, "mdmInstalledOptions"};
constexpr MoveRecord kFromInstalled = {IDC_LIST_INSTALLED, "mdmInstalledOptions"};

// clang-format off

// Columns: value when checked, when cleared, and their icons.
constexpr CheckItem kAllPaperSizeCheck          = Equals(0x40,       0);
constexpr CheckItem kOutPaperCheck              = AnyBit(0x80000000, 0);
constexpr CheckItem kFitToPaperCheck            = Equals(1,          0);
constexpr CheckItem k1stPageSourceCheck         = Equals(1,          0);
constexpr CheckItem kCollateCheck               = Equals(1,          0, IDI_COLLATE_ON, IDI_COLLATE_OFF);
constexpr CheckItem kTransmitOnceCheck          = Equals(0x8,        0);
constexpr CheckItem kProofPrintCheck            = Equals(0x2,        0);
constexpr CheckItem kRotateCheck                = Equals(0x80,       0);
constexpr CheckItem kImageShiftingCheck         = Equals(0x400,      0);
constexpr CheckItem kWatermark1stPageCheck      = AlwaysEnabled(Equals(0x1, 0));
// Cleared, these two leave a bit outside their mask: "not in background", "not repeated".
constexpr CheckItem kWatermarkInBackgroundCheck = AlwaysEnabled(Equals(0x2, 0x4));
constexpr CheckItem kWatermarkRepeatCheck       = AlwaysEnabled(Equals(0x10, 0x8));
constexpr CheckItem kOverlay1stPageCheck        = Equals(0x1,        0);
constexpr CheckItem kGlossyBlackTextCheck       = AnyBit(0xC00,      0);
constexpr CheckItem kGlossyBlackGraphicsCheck   = AnyBit(0x1FF,      0);
constexpr CheckItem kGlossyBlackBitmapCheck     = AnyBit(0x200,      0);
constexpr CheckItem kLineArtCheck               = Equals(0x4,        0);
constexpr CheckItem kAutoConfigCheck            = Equals(0x20,       0);
constexpr CheckItem kAccessCodeCheck            = AnyBit(0x1,        0);
constexpr CheckItem kLockJobCheck               = AnyBit(0x2,        0);
constexpr CheckItem kDistributionCheck          = AnyBit(0x80000000, 0);
constexpr CheckItem kDist1stOnlyCheck           = AnyBit(0x40000000, 0x20000000);
constexpr CheckItem kNupBorderCheck             = AnyBit(0x4,        0);
constexpr CheckItem kFrontCoverCheck            = AnyBit(0x1,        0);
constexpr CheckItem kFrontWithImageCheck        = AnyBit(0x2,        0);
constexpr CheckItem kBackCoverCheck             = AnyBit(0x4,        0);
constexpr CheckItem kBackWithImageCheck         = AnyBit(0x8,        0);
constexpr CheckItem kInterleavingCheck          = AnyBit(0x80000000, 0);
constexpr CheckItem kInterleaveWithImageCheck   = AnyBit(0x40000000, 0);

// Columns: button, value, icon.
constexpr RadioItem kScalingButtons[] = {
    Choice(IDC_RADIO_SCALING_AUTO,   0),
    Choice(IDC_RADIO_SCALING_MANUAL, 1),
    kNoMoreChoices,
};
constexpr RadioItem kOrientationButtons[] = {
    Choice(IDC_RADIO_PORTRAIT,  1, IDI_PORTRAIT),
    Choice(IDC_RADIO_LANDSCAPE, 2, IDI_LANDSCAPE),
    kNoMoreChoices,
};
constexpr RadioItem kColorModeButtons[] = {
    Choice(IDC_RADIO_GRAYSCALE, 1),
    Choice(IDC_RADIO_COLOR,     2),
    kNoMoreChoices,
};
constexpr RadioItem kColorMatchingButtons[] = {
    Choice(IDC_RADIO_MATCHING_OFF, 0),
    Choice(IDC_RADIO_MATCHING_ON,  2),
    kNoMoreChoices,
};
constexpr RadioItem kNupStyleButtons[] = {
    Choice(IDC_RADIO_STYLE_1, 0),
    Choice(IDC_RADIO_STYLE_2, 1),
    Choice(IDC_RADIO_STYLE_3, 2),
    Choice(IDC_RADIO_STYLE_4, 3),
    kNoMoreChoices,
};

// Columns: bit of mdmSecurity, stored for "empty", title, text.
constexpr JobNumber kAccessNumber = {kSecurityAccessCode, 0,              IDS_ACCESS_NUMBER_TITLE, IDS_ACCESS_NUMBER_TEXT};
constexpr JobNumber kJobPassword  = {kSecurityLockJob,    kNoJobPassword, IDS_PASSWORD_TITLE,      IDS_PASSWORD_TEXT};

// Columns: most characters, minimum, maximum, spin, range text.
constexpr EditAttribute kScalingEdit      = Digits(3, 20, 400, IDC_SPIN_SCALING, IDC_ST_SCALING_RANGE);
constexpr EditAttribute kCopiesEdit       = Digits(3, 1, 999, IDC_SPIN_COPIES, IDC_ST_COPIES_RANGE);
constexpr EditAttribute kAccessNumberEdit = OfJob(&kAccessNumber, Digits(4, 1, 999));
constexpr EditAttribute kPasswordEdit     = OfJob(&kJobPassword, Digits(4, 0, 9999));
constexpr EditAttribute kDistStartEdit    = Digits(3, 1, 999, IDC_SPIN_DISTRIBUTION_START);
// The image shift dialog works in inches or millimetres and keeps its own limits; these are its
// widest, in tenths of a millimetre.
constexpr EditAttribute kOffsetXEdit      = SignedDigits(5, -159, 159, IDC_SPIN_OFFSET_X, IDC_ST_OFFSET_X_RANGE);
constexpr EditAttribute kOffsetYEdit      = SignedDigits(5, -71, 71, IDC_SPIN_OFFSET_Y, IDC_ST_OFFSET_Y_RANGE);
// The user name travels in printer job commands, so the characters that delimit those are refused.
constexpr EditAttribute kUserNameEdit =
    Characters(kEditText, R"(!@#$%^&*()-+}{[]|?><'\/.,=`~:;")", 8, 0, 0, 0, 0);

// Columns: value edit, texts at the minimum and the maximum end, spin, stored at the minimum.
constexpr SliderItem kContrastSlider   = Percent(IDC_EDIT_CONTRAST, IDC_ST_CONTRAST_MIN, IDC_ST_CONTRAST_MAX, IDC_SPIN_CONTRAST, -50);
constexpr SliderItem kBrightnessSlider = Percent(IDC_EDIT_BRIGHTNESS, IDC_ST_BRIGHTNESS_MIN, IDC_ST_BRIGHTNESS_MAX, IDC_SPIN_BRIGHTNESS, -50);
constexpr SliderItem kSaturationSlider = Percent(IDC_EDIT_SATURATION, IDC_ST_SATURATION_MIN, IDC_ST_SATURATION_MAX, IDC_SPIN_SATURATION, -50);
constexpr SliderItem kSharpnessSlider  = Percent(IDC_EDIT_SHARPNESS, IDC_ST_SHARPNESS_MIN, IDC_ST_SHARPNESS_MAX, IDC_SPIN_SHARPNESS, 0);

// Columns: template, procedure, combo box that then shows the dialog's result.
constexpr ButtonItem kOpenCustomPapers       = OpensAndSelects("_LBPCUSTOMPAPERS", DDMCUSTOMPAPER, IDC_COMBO_PAPER_SIZE);
constexpr ButtonItem kOpenFirstPage          = Opens("_LBPFIRSTPAGE", FirstPageDlgProc);
constexpr ButtonItem kOpenPaperSourceDetails = Opens("_DLGTAB00", DDMTAB00);
constexpr ButtonItem kOpenOutputDetails      = Opens("_DLGTAB01", DDMTAB01);
constexpr ButtonItem kOpenNupDetails         = Opens("_DLGCOMBINATION", CombinationDlgProc);
constexpr ButtonItem kOpenImageShift         = Opens("_LBPIMAGESHIFT", ImageShiftDlgProc);
constexpr ButtonItem kOpenWatermarkEditor    = Opens("_LBPQUARNWATERCOLOR", EditWatermarkDlgProc);
constexpr ButtonItem kOpenOverlayEditor      = OpensAndSelects("_LBPEDITOVERLAY", EditOverlayDlgProc, IDC_LIST_OVERLAY);
constexpr ButtonItem kOpenMailBox            = Opens("_MAILBOXR", DDMMailBox);
constexpr ButtonItem kOpenAbout              = Opens("_ABOUTKVI", DDMAbout);
constexpr ButtonItem kInstallOptions         = Moves(&kFromInstallable);
constexpr ButtonItem kRemoveOptions          = Moves(&kFromInstalled);

// clang-format on

}  // namespace kvui

// The lists and records that the rows of the catalogue point to, and the short constructors their
// tables are written with. Only the catalogue's own files include it.
#pragma once
#include "settings/item_catalogue.h"

namespace kvui {

// Copies a name into its fixed array; too long a name does not compile.
template <std::size_t size>
consteval void SetName(char (&target)[size], const char* name) {
    std::size_t length = 0;
    for (; name[length] != '\0'; ++length) target[length] = name[length];
    target[length] = '\0';
}

// Lists of entries; each ends with an entry of string id 0. kRunTimeEntries stands for a list that
// the binding builds when it fills the control.
extern const SelectItem kRunTimeEntries[];
extern const SelectItem kMediaEntries[];
extern const SelectItem kFirstPageMediaEntries[];
extern const SelectItem kInstalledStateEntries[];
extern const SelectItem kOutBinEntries[];
extern const SelectItem kNupEntries[];
extern const SelectItem kDuplexEntries[];
extern const SelectItem kSortingEntries[];
extern const SelectItem kOverlayPagesEntries[];
extern const SelectItem kPhotoIntentEntries[];
extern const SelectItem kGraphicsIntentEntries[];
extern const SelectItem kTextIntentEntries[];
extern const SelectItem kCompressEntries[];
extern const SelectItem kResolutionEntries[];
extern const SelectItem kInstallableEntries[];
extern const SelectItem kInstalledEntries[];
extern const SelectItem kDensityEntries[];
extern const SelectItem kCornerOrderEntries[];
extern const SelectItem kAcrossOrderEntries[];
extern const SelectItem kDownOrderEntries[];
extern const SelectItem kBookletBindingEntries[];
extern const SelectItem kStapleEntries[];
extern const SelectItem kPunchEntries[];
extern const SelectItem kPunchNumEntries[];
extern const SelectItem kFoldingEntries[];
extern const SelectItem kMailBoxAssignEntries[];

// Check boxes.
extern const CheckItem kAllPaperSizeCheck;
extern const CheckItem kOutPaperCheck;
extern const CheckItem kFitToPaperCheck;
extern const CheckItem k1stPageSourceCheck;
extern const CheckItem kCollateCheck;
extern const CheckItem kTransmitOnceCheck;
extern const CheckItem kProofPrintCheck;
extern const CheckItem kRotateCheck;
extern const CheckItem kImageShiftingCheck;
extern const CheckItem kWatermark1stPageCheck;
extern const CheckItem kWatermarkInBackgroundCheck;
extern const CheckItem kWatermarkRepeatCheck;
extern const CheckItem kOverlay1stPageCheck;
extern const CheckItem kGlossyBlackTextCheck;
extern const CheckItem kGlossyBlackGraphicsCheck;
extern const CheckItem kGlossyBlackBitmapCheck;
extern const CheckItem kLineArtCheck;
extern const CheckItem kAutoConfigCheck;
extern const CheckItem kAccessCodeCheck;
extern const CheckItem kLockJobCheck;
extern const CheckItem kDistributionCheck;
extern const CheckItem kDist1stOnlyCheck;
extern const CheckItem kNupBorderCheck;
extern const CheckItem kFrontCoverCheck;
extern const CheckItem kFrontWithImageCheck;
extern const CheckItem kBackCoverCheck;
extern const CheckItem kBackWithImageCheck;
extern const CheckItem kInterleavingCheck;
extern const CheckItem kInterleaveWithImageCheck;

// Radio groups; each ends with a button of id 0.
extern const RadioItem kScalingButtons[];
extern const RadioItem kOrientationButtons[];
extern const RadioItem kColorModeButtons[];
extern const RadioItem kColorMatchingButtons[];
extern const RadioItem kNupStyleButtons[];

// Edits.
extern const EditAttribute kScalingEdit;
extern const EditAttribute kCopiesEdit;
extern const EditAttribute kOffsetXEdit;
extern const EditAttribute kOffsetYEdit;
extern const EditAttribute kUserNameEdit;
extern const EditAttribute kAccessNumberEdit;
extern const EditAttribute kPasswordEdit;
extern const EditAttribute kDistStartEdit;

// Sliders.
extern const SliderItem kContrastSlider;
extern const SliderItem kBrightnessSlider;
extern const SliderItem kSaturationSlider;
extern const SliderItem kSharpnessSlider;

// Push buttons.
extern const ButtonItem kOpenCustomPapers;
extern const ButtonItem kOpenFirstPage;
extern const ButtonItem kOpenPaperSourceDetails;
extern const ButtonItem kOpenOutputDetails;
extern const ButtonItem kOpenNupDetails;
extern const ButtonItem kOpenImageShift;
extern const ButtonItem kOpenWatermarkEditor;
extern const ButtonItem kOpenOverlayEditor;
extern const ButtonItem kOpenMailBox;
extern const ButtonItem kOpenAbout;
extern const ButtonItem kInstallOptions;
extern const ButtonItem kRemoveOptions;

}  // namespace kvui
